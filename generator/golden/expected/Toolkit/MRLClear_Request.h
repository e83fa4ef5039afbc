// Generated from catalogue/messages/find.toml.
#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/MRLExport.h"

/// The request of `clear`: forgets all things.
class MRL_EXPORT MRLClear_Request : public MRLMessageI {
public:
    static constexpr MessageType s_messageType = eMRLClear_Request;
    static constexpr const char* s_messageName = "clear_Request";

    MRLClear_Request();
    ~MRLClear_Request() override;

    MessageType getMessageType() const override;
    void getParameterNames(std::vector<const char*>& names) const override;
    void* getParameter(const char* name, int create) override;
    ObjectType getParameterType(const char* name) override;
    void setParameter(const char* name, void* value, const ObjectType& type) override;
    const char* getGeneratedMessageName() const override;
};
