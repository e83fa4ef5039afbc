#pragma once

#include "Toolkit/MRLMessageI.h"

namespace mrl::tool {

/// A message of any type and without parameters: it asks a port type whether it has an entry for that
/// type, where no message class exists to ask with.
class EmptyMessage final : public MRLMessageI {
public:
    explicit EmptyMessage(MessageType type)
        : m_type(type) {}

    MessageType getMessageType() const override { return m_type; }
    void getParameterNames(std::vector<const char*>& /*names*/) const override {}
    void* getParameter(const char* /*name*/, int /*create*/) override { return nullptr; }
    ObjectType getParameterType(const char* /*name*/) override { return MRLSchemaTypeI::e_Unknown; }
    void setParameter(const char* /*name*/, void* /*value*/, const ObjectType& /*type*/) override {}
    const char* getGeneratedMessageName() const override { return ""; }

private:
    MessageType m_type;
};

} // namespace mrl::tool
