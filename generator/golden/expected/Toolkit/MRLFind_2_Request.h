// Generated from catalogue/messages/find.toml.
#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/MRLExport.h"

class MRLBase64Binary;
class MRLLabel;
class MRLThing;
class MRLFind_2_Request_PrivateData;

/// The request of `find_2`: finds things like another.
class MRL_EXPORT MRLFind_2_Request : public MRLMessageI {
public:
    static constexpr MessageType s_messageType = eMRLFind_2_Request;
    static constexpr const char* s_messageName = "find_2_Request";

    MRLFind_2_Request();
    ~MRLFind_2_Request() override;

    MessageType getMessageType() const override;
    void getParameterNames(std::vector<const char*>& names) const override;
    void* getParameter(const char* name, int create) override;
    ObjectType getParameterType(const char* name) override;
    void setParameter(const char* name, void* value, const ObjectType& type) override;
    const char* getGeneratedMessageName() const override;

    /// like: The thing to compare with.
    MRLThing* getLike() const;
    MRLThing* getLike(MRLObjectRegistryI* registry);
    void setLike(MRLThing* value);

    /// The value of `label`.
    MRLLabel* getLabel() const;
    MRLLabel* getLabel(MRLObjectRegistryI* registry);
    void setLabel(MRLLabel* value);

    /// The value of `exact`.
    int* getExact() const;
    void setExact(int value);
    void resetExact();

    /// The value of `picture`.
    MRLBase64Binary* getPicture() const;
    MRLBase64Binary* getPicture(MRLObjectRegistryI* registry);
    void setPicture(MRLBase64Binary* value);

    /// limit: The most things.
    int* getLimit() const;
    void setLimit(int value);
    void resetLimit();

private:
    MRLFind_2_Request_PrivateData* m_data; // owned
};
