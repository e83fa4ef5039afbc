#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/HBLFailure.h"

#include <cstddef>
#include <deque>
#include <string>

namespace mrl::detail {

/// An element whose end is still to come: its name, type and value. The value is borrowed.
class ElementEntry {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    /// Null for an empty name.
    const char* getParamName() const { return m_paramName.empty() ? nullptr : m_paramName.c_str(); }
    /// Empty for an empty name.
    const char* nameText() const { return m_paramName.c_str(); }
    ObjectType getParamType() const { return m_paramType; }
    void* getParamValue() const { return m_paramValue; }

    /// Stores the value, once only.
    void setParamValue(void* value) {
        HBL_ASSERT(!m_paramValue);
        m_paramValue = value;
    }

    MRLSchemaTypeI* object() const { return static_cast<MRLSchemaTypeI*>(m_paramValue); }

    /// The value is an array: elements inside are its items.
    bool isArray = false;
    /// The value lies in the parent itself, so that nothing is to be set at the end.
    bool isInPlace = false;

private:
    friend class ElementStack;

    std::string m_paramName;
    ObjectType m_paramType = MRLSchemaTypeI::e_Unknown;
    void* m_paramValue = nullptr;
};

/// The open elements, innermost at the back. Keeps the room of the names, so that a document whose
/// elements open and close costs no memory for them.
class ElementStack {
public:
    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }

    ElementEntry* front() { return &m_entries.front(); }
    ElementEntry* back() { return &m_entries[m_size - 1]; }
    const ElementEntry* back() const { return &m_entries[m_size - 1]; }
    /// The parent of the innermost element.
    ElementEntry* belowBack() { return &m_entries[m_size - 2]; }

    /// @param name null for none.
    ElementEntry& push(const char* name, ElementEntry::ObjectType type, void* value) {
        if (m_size == m_entries.size()) {
            m_entries.emplace_back();
        }
        return fill(m_entries[m_size++], name, type, value);
    }
    /// Another type and value in the place of the innermost element's.
    ElementEntry& replaceBack(const char* name, ElementEntry::ObjectType type, void* value) {
        return fill(*back(), name, type, value);
    }
    void pop() { --m_size; }

private:
    static ElementEntry& fill(ElementEntry& entry, const char* name, ElementEntry::ObjectType type,
                              void* value) {
        entry.m_paramName.assign(name == nullptr ? "" : name);
        entry.m_paramType = type;
        entry.m_paramValue = value;
        entry.isArray = false;
        entry.isInPlace = false;
        return entry;
    }

    std::deque<ElementEntry> m_entries; // entries stay where they are; the first m_size are open
    std::size_t m_size = 0;
};

} // namespace mrl::detail
