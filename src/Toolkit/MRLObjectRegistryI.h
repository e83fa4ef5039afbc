#pragma once

#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/MRLExport.h"

#include <string>

class I18NString;
class MRLBase64Binary;
class MRLSchemaTypeI;
class MRL_AttachmentContainerI;
class MRL_CharStreamable;
class MRL_String;
class PLQMemoryOutputStream;

/// Owner of all that is allocated for one message, one parse or one fault: a flat list, released
/// together in the order of registration. What an overload takes it owns from then on; when it
/// throws, the object stays the caller's. A pointer registered twice is released twice; null is
/// accepted and skipped. One thread at a time, but for the reference count.
class MRL_EXPORT MRLObjectRegistryI : public HBLReferenceCount {
public:
    /// How a plain pointer is given back.
    enum RSDeleteMode : int {
        eRSDeleteScalar = 0,
        eRSDeleteScalar1 = 1,
        eRSDeleteScalar2 = 2,
        eRSDeleteArray = 3,
        eRSFree = 4
    };

    ~MRLObjectRegistryI() override;

    virtual void registerPointer(char* p, RSDeleteMode mode) = 0;
    virtual void registerPointer(float* p, RSDeleteMode mode) = 0;
    virtual void registerPointer(int* p, RSDeleteMode mode) = 0;
    virtual void registerPointer(MRL_AttachmentContainerI* p) = 0;
    virtual void registerPointer(MRL_CharStreamable* p) = 0;
    virtual void registerPointer(MRLBase64Binary* p) = 0;
    virtual void registerPointer(MRL_String* p) = 0;
    virtual void registerPointer(std::string* p) = 0;
    virtual void registerPointer(PLQMemoryOutputStream* p) = 0;
    virtual void registerPointer(I18NString* p) = 0;
    virtual void registerPointer(MRLSchemaTypeI* p) = 0;

    /// Releases everything, first registered first, and leaves an empty registry that may be used
    /// again. A release that throws ends it: what follows in the list stays registered.
    virtual void clean() = 0;
};
