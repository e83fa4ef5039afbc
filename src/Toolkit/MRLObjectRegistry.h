#pragma once

#include "Toolkit/MRLObjectRegistryI.h"

#include <vector>

/// The registry behind messages, readers and faults. Registration is one append.
class MRL_EXPORT MRLObjectRegistry : public MRLObjectRegistryI {
public:
    /// A new registry with a reference count of 0.
    /// @throws HBLOutOfMemoryError
    static MRLObjectRegistry* create();

    MRLObjectRegistry(const MRLObjectRegistry&) = delete;
    MRLObjectRegistry& operator=(const MRLObjectRegistry&) = delete;

    /// Cleans; a release that throws ends here, and what was left in the list is not released.
    ~MRLObjectRegistry() override;

    void registerPointer(char* p, RSDeleteMode mode) override;
    void registerPointer(float* p, RSDeleteMode mode) override;
    void registerPointer(int* p, RSDeleteMode mode) override;
    void registerPointer(MRL_AttachmentContainerI* p) override;
    void registerPointer(MRL_CharStreamable* p) override;
    void registerPointer(MRLBase64Binary* p) override;
    void registerPointer(MRL_String* p) override;
    void registerPointer(std::string* p) override;
    void registerPointer(PLQMemoryOutputStream* p) override;
    void registerPointer(I18NString* p) override;
    void registerPointer(MRLSchemaTypeI* p) override;
    void clean() override;

private:
    /// What an entry points to, and so how it is released.
    enum RSObjRegEnum : int {
        eSchemaType = 0,
        eStdString = 1,
        eMRLString = 2,
        eI18NString = 3,
        eMemoryOutputStream = 4,
        eBase64Binary = 5,
        eCharStreamable = 6,
        eAttachmentContainer = 7,
        eDeleteScalar = 8,
        eDeleteScalar1 = 9,
        eDeleteScalar2 = 10,
        eDeleteArray = 11,
        eFree = 12
    };
    struct RegistrationEntry {
        void* pointer;
        RSObjRegEnum kind;
    };

    MRLObjectRegistry();
    static RSObjRegEnum mapMode(RSDeleteMode mode);
    static void release(void* pointer, RSObjRegEnum kind);
    void append(void* pointer, RSObjRegEnum kind);

    std::vector<RegistrationEntry> m_entries;
};
