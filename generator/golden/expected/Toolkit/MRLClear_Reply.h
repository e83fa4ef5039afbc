// Generated from catalogue/messages/find.toml.
#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/MRLExport.h"

/// The reply of `clear`: forgets all things.
class MRL_EXPORT MRLClear_Reply : public MRLMessageI {
public:
    static constexpr MessageType s_messageType = eMRLClear_Reply;
    static constexpr const char* s_messageName = "clear_Reply";

    MRLClear_Reply();
    ~MRLClear_Reply() override;

    MessageType getMessageType() const override;
    void getParameterNames(std::vector<const char*>& names) const override;
    void* getParameter(const char* name, int create) override;
    ObjectType getParameterType(const char* name) override;
    void setParameter(const char* name, void* value, const ObjectType& type) override;
    const char* getGeneratedMessageName() const override;
};
