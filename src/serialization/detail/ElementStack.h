#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "serialization/detail/ClassPlan.h"

#include "HBLCore/HBLFailure.h"

#include <bitset>
#include <cstddef>
#include <deque>
#include <string>

namespace mrl::detail {

/// An element whose end is still to come: its name, type and value. The value is borrowed.
class ElementEntry {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    /// Null for an empty name.
    const char* getParamName() const { return *m_paramName != '\0' ? m_paramName : nullptr; }
    /// Empty for an empty name.
    const char* nameText() const { return m_paramName; }
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
    /// The members of the value's class; null when it has to be asked by name.
    const ClassPlan* plan = nullptr;
    /// The members met so far, by their place in the plan.
    std::bitset<ClassPlan::mostMembers> seen;
    /// The value may have a text of its own. If not, text is white space between elements.
    bool takesText = true;
    /// The value lies in the parent itself, so that nothing is to be set at the end.
    bool isInPlace = false;

private:
    friend class ElementStack;

    const char* m_paramName = "";
    std::string m_ownName; // of a name that is kept nowhere else
    ObjectType m_paramType = MRLSchemaTypeI::e_Unknown;
    void* m_paramValue = nullptr;
};

/// The name of an element: a text and whether it outlives the element.
struct ElementName {
    const char* text; // null for none
    bool isKept;
};

/// The open elements, innermost at the back. Keeps the room of the entries, so that a document whose
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

    ElementEntry& push(const ElementName& name, ElementEntry::ObjectType type, void* value) {
        if (m_size == m_entries.size()) {
            m_entries.emplace_back();
        }
        return fill(m_entries[m_size++], name, type, value);
    }
    /// Another type and value in the place of the innermost element's.
    ElementEntry& replaceBack(const ElementName& name, ElementEntry::ObjectType type, void* value) {
        return fill(*back(), name, type, value);
    }
    void pop() { --m_size; }

private:
    static ElementEntry& fill(ElementEntry& entry, const ElementName& name, ElementEntry::ObjectType type,
                              void* value) {
        if (name.text == nullptr || name.isKept) {
            entry.m_paramName = name.text == nullptr ? "" : name.text;
        } else {
            entry.m_ownName.assign(name.text);
            entry.m_paramName = entry.m_ownName.c_str();
        }
        entry.m_paramType = type;
        entry.m_paramValue = value;
        entry.isArray = false;
        entry.isInPlace = false;
        entry.plan = nullptr;
        entry.takesText = true;
        return entry;
    }

    std::deque<ElementEntry> m_entries; // entries stay where they are; the first m_size are open
    std::size_t m_size = 0;
};

} // namespace mrl::detail
