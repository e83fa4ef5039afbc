#pragma once

#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/MRLExport.h"

#include <cstdint>
#include <vector>

class MRLTavelHeader;

/// The request or the reply of one operation: named parameters, the bus header, and the registry
/// that owns their values. Counted: a new message has no reference, and the last
/// removeReference() ends it together with its registry. One thread at a time, but for the count.
class MRL_EXPORT MRLMessageI : public HBLReferenceCount {
public:
    /// The CRC-32 of the generated message name, as a signed 32-bit number.
    enum MessageType : std::int32_t {
        e_Unknown = 0,
#include "Toolkit/MRLMessageType_gen_.inc"
    };
    using ObjectType = MRLSchemaTypeI::ObjectType;

    MRLMessageI(const MRLMessageI&) = delete;
    MRLMessageI& operator=(const MRLMessageI&) = delete;

    /// Drops the header and gives up the registry, which ends with its last reference.
    ~MRLMessageI() override;

    virtual MessageType getMessageType() const = 0;

    /// Appends the names of the parameters in the order of the operation's signature. The texts
    /// live as long as the process.
    virtual void getParameterNames(std::vector<const char*>& names) const = 0;

    /// The value of a parameter, typed by getParameterType(); null when there is none and for a name
    /// not known.
    /// @param create not 0: a nullable value counts as set from now on.
    /// @throws HBLAssertError for a null name.
    virtual void* getParameter(const char* name, int create) = 0;

    /// The type of an object's value when there is one, else the declared type; e_Unknown for a
    /// name not known.
    /// @throws HBLAssertError for a null name.
    virtual ObjectType getParameterType(const char* name) = 0;

    /// Stores a value, without a copy; a null object clears the parameter. An empty name and a name
    /// not known do nothing.
    /// @throws MRLException when the type does not fit; HBLAssertError for a null name.
    virtual void setParameter(const char* name, void* value, const ObjectType& type) = 0;

    /// "agentDeleteHotList_Request"
    virtual const char* getGeneratedMessageName() const = 0;

    /// The registry that owns the values; made at the first call.
    /// @throws HBLOutOfMemoryError
    MRLObjectRegistryI& getObjectRegistry();

    /// Takes a reference to `registry` (null allowed), then gives up the one held before.
    void setObjectRegistry(MRLObjectRegistryI* registry);

    /// The bus header. With a registry an absent one is made and registered there; without, the
    /// result may be null.
    /// @throws HBLOutOfMemoryError
    MRLTavelHeader* getTavelHeader(MRLObjectRegistryI* registry);

    /// Stores the header as it is. A registry or the caller owns it, longer than the message.
    void setTavelHeader(MRLTavelHeader* header);

protected:
    MRLMessageI();

private:
    HBLSmartPointer<MRLObjectRegistryI> m_objectRegistry;
    MRLTavelHeader* m_tavelHeader = nullptr; // borrowed
};
