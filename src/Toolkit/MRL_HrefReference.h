#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

#include <string>

/// A child that waits for the attachment with the given content id. The object is borrowed.
class MRL_EXPORT MRL_HrefReference {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    /// @param contentId, name null leaves the text empty.
    /// @param obj the object that receives the value; may be null.
    /// @param index the place inside an array, as setChildObject() returned it.
    MRL_HrefReference(const char* contentId, MRLSchemaTypeI* obj, const char* name, const ObjectType& type,
                      std::size_t index);
    virtual ~MRL_HrefReference();

    MRL_HrefReference(const MRL_HrefReference&) = delete;
    MRL_HrefReference& operator=(const MRL_HrefReference&) = delete;

    const std::string& getContentId() const { return m_contentId; }

    /// @throws HBLAssertError when there is none.
    MRLSchemaTypeI& getObject() const;
    const std::string& getName() const { return m_name; }
    ObjectType getType() const { return m_type; }
    std::size_t getIndex() const { return m_index; }

private:
    std::string m_contentId;
    MRLSchemaTypeI* m_obj; // borrowed
    std::string m_name;
    ObjectType m_type;
    std::size_t m_index;
};
