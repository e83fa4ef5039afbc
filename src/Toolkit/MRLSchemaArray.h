#pragma once

#include "Toolkit/MRLSchemaTypeArrayI.h"

#include <type_traits>
#include <vector>

class MRLObjectRegistryI;

namespace mrl::detail {

/// @throws std::out_of_range
[[noreturn]] MRL_EXPORT void invalidSubscript();

} // namespace mrl::detail

/// The shared form of all arrays. `Element` is a schema class (held by pointer), `const char*` or
/// `int`. `Self` is the generated class, which gives s_objectType, s_elementType, s_className and
/// s_schemaName. Elements are borrowed, as everywhere in schema objects. The definitions stand in
/// MRLSchemaArrayImpl.h, for the one source that instantiates the array.
template <class Self, class Element>
class MRL_EXPORT MRLSchemaArray : public MRLSchemaTypeArrayI {
public:
    using value_type = std::conditional_t<std::is_class_v<Element>, Element*, Element>;
    using iterator = typename std::vector<value_type>::iterator;
    using const_iterator = typename std::vector<value_type>::const_iterator;

    MRLSchemaArray();

    /// A deep copy, owned by `registry`.
    MRLSchemaArray(const Self& other, MRLObjectRegistryI& registry);
    ~MRLSchemaArray() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;

private:
    std::size_t getChildObjectCount() const override;

public:
    std::size_t size() const override;

    /// The same elements in the same order.
    virtual int operator==(const MRLSchemaTypeI& other) const;
    virtual int operator!=(const MRLSchemaTypeI& other) const;

    bool empty() const { return m_vector.empty(); }
    void reserve(std::size_t n) { m_vector.reserve(n); }

    /// Empties the array and leaves the elements alone.
    void clear() { m_vector.clear(); }

    /// Counted from 0.
    /// @throws std::out_of_range
    value_type& at(std::size_t i) {
        if (i >= m_vector.size())
            mrl::detail::invalidSubscript();
        return m_vector[i];
    }
    const value_type& at(std::size_t i) const {
        if (i >= m_vector.size())
            mrl::detail::invalidSubscript();
        return m_vector[i];
    }

    /// The array must not be empty.
    value_type& front() { return m_vector.front(); }
    const value_type& front() const { return m_vector.front(); }

    iterator begin() { return m_vector.begin(); }
    iterator end() { return m_vector.end(); }
    const_iterator begin() const { return m_vector.begin(); }
    const_iterator end() const { return m_vector.end(); }

    iterator erase(const_iterator where) { return m_vector.erase(where); }
    void push_back(value_type element) { m_vector.push_back(element); }

    /// Becomes a deep copy of `other`, whose elements must not be null; `registry` owns what is new.
    void copy(const Self& other, MRLObjectRegistryI& registry);

private:
    std::vector<value_type> m_vector;
};
