// Generated from catalogue/messages/find.toml.
#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/MRLExport.h"

/// The request of `_Null`: The message that stands for none.
class MRL_EXPORT MRL_Null_Request : public MRLMessageI {
public:
    static constexpr MessageType s_messageType = eMRL_Null_Request;
    static constexpr const char* s_messageName = "_Null_Request";

    MRL_Null_Request();
    ~MRL_Null_Request() override;

    MessageType getMessageType() const override;
    void getParameterNames(std::vector<const char*>& names) const override;
    void* getParameter(const char* name, int create) override;
    ObjectType getParameterType(const char* name) override;
    void setParameter(const char* name, void* value, const ObjectType& type) override;
    const char* getGeneratedMessageName() const override;
};
