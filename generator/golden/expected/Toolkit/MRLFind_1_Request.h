// Generated from catalogue/messages/find.toml.
#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/MRLExport.h"

class MRLFind_1_Request_PrivateData;

/// The request of `find_1`: finds things by name.
class MRL_EXPORT MRLFind_1_Request : public MRLMessageI {
public:
    static constexpr MessageType s_messageType = eMRLFind_1_Request;
    static constexpr const char* s_messageName = "find_1_Request";

    MRLFind_1_Request();
    ~MRLFind_1_Request() override;

    MessageType getMessageType() const override;
    void getParameterNames(std::vector<const char*>& names) const override;
    void* getParameter(const char* name, int create) override;
    ObjectType getParameterType(const char* name) override;
    void setParameter(const char* name, void* value, const ObjectType& type) override;
    const char* getGeneratedMessageName() const override;

    /// The value of `name`.
    const char* getName() const;
    void setName(const char* value);

    /// limit: The most things.
    int* getLimit() const;
    void setLimit(int value);
    void resetLimit();

private:
    MRLFind_1_Request_PrivateData* m_data; // owned
};
