#pragma once

#include "Toolkit/MRLSchemaTypeArrayI.h"

#include "HBLCore/MRLExport.h"

#include <string>
#include <vector>

class MRLUndocumentedFaultDetail;

/// The detail of a fault in the shape that older services write. The items are borrowed.
class MRL_EXPORT MRLUndocumentedFaultDetailArray : public MRLSchemaTypeArrayI {
public:
    using Items = std::vector<MRLUndocumentedFaultDetail*>;

    static constexpr ObjectType s_objectType = eMRLUndocumentedFaultDetailArray;
    static constexpr const char* s_className = "MRLUndocumentedFaultDetailArray";
    static constexpr const char* s_schemaName = "undocumentedFaultDetailArray";

    MRLUndocumentedFaultDetailArray();
    ~MRLUndocumentedFaultDetailArray() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;

    /// Null for every name: the items are reached with at().
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;

    /// @throws HBLAssertError always: only the fault serializer writes such an object.
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;

private:
    std::size_t getChildObjectCount() const override;

public:
    std::size_t size() const override;
    virtual int operator==(const MRLSchemaTypeI& other) const;
    virtual int operator!=(const MRLSchemaTypeI& other) const;

    bool empty() const { return m_vector.empty(); }
    /// @throws std::out_of_range
    MRLUndocumentedFaultDetail* at(std::size_t place) const { return m_vector.at(place); }
    MRLUndocumentedFaultDetail*& at(std::size_t place) { return m_vector.at(place); }
    MRLUndocumentedFaultDetail* front() const { return m_vector.front(); }
    void reserve(std::size_t count) { m_vector.reserve(count); }
    void clear() { m_vector.clear(); }
    void push_back(MRLUndocumentedFaultDetail* item) { m_vector.push_back(item); }
    Items::iterator begin() { return m_vector.begin(); }
    Items::iterator end() { return m_vector.end(); }
    Items::const_iterator begin() const { return m_vector.begin(); }
    Items::const_iterator end() const { return m_vector.end(); }

private:
    Items m_vector;
};
