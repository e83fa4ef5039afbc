// Generated from catalogue/messages/find.toml.
#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/MRLExport.h"

class MRLThingArray;
class MRLFind_2_Reply_PrivateData;

/// The reply of `find_2`: finds things like another.
class MRL_EXPORT MRLFind_2_Reply : public MRLMessageI {
public:
    static constexpr MessageType s_messageType = eMRLFind_2_Reply;
    static constexpr const char* s_messageName = "find_2_Reply";

    MRLFind_2_Reply();
    ~MRLFind_2_Reply() override;

    MessageType getMessageType() const override;
    void getParameterNames(std::vector<const char*>& names) const override;
    void* getParameter(const char* name, int create) override;
    ObjectType getParameterType(const char* name) override;
    void setParameter(const char* name, void* value, const ObjectType& type) override;
    const char* getGeneratedMessageName() const override;

    /// The value of `result`.
    MRLThingArray* getResult() const;
    MRLThingArray* getResult(MRLObjectRegistryI* registry);
    void setResult(MRLThingArray* value);

private:
    MRLFind_2_Reply_PrivateData* m_data; // owned
};
