#include "Toolkit/MRLObjectRegistry.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLSchemaTypeI.h"
#include "Toolkit/MRL_AttachmentContainerI.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_String.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

// A small message never grows the list.
constexpr std::size_t initialEntries = 100;

} // namespace

MRLObjectRegistry::MRLObjectRegistry() {
    m_entries.reserve(initialEntries);
}

MRLObjectRegistry* MRLObjectRegistry::create() {
    return hblRethrowing("MRLObjectRegistry::create", [] { return new MRLObjectRegistry; });
}

MRLObjectRegistry::~MRLObjectRegistry() {
    try {
        MRLObjectRegistry::clean();
    } catch (...) { // a release that fails must not leave a destructor
    }
}

void MRLObjectRegistry::registerPointer(char* p, RSDeleteMode mode) {
    append(p, mapMode(mode));
}

void MRLObjectRegistry::registerPointer(float* p, RSDeleteMode mode) {
    append(p, mapMode(mode));
}

void MRLObjectRegistry::registerPointer(int* p, RSDeleteMode mode) {
    append(p, mapMode(mode));
}

void MRLObjectRegistry::registerPointer(MRL_AttachmentContainerI* p) {
    append(p, eAttachmentContainer);
}

void MRLObjectRegistry::registerPointer(MRL_CharStreamable* p) {
    append(p, eCharStreamable);
}

void MRLObjectRegistry::registerPointer(MRLBase64Binary* p) {
    append(p, eBase64Binary);
}

void MRLObjectRegistry::registerPointer(MRL_String* p) {
    append(p, eMRLString);
}

void MRLObjectRegistry::registerPointer(std::string* p) {
    append(p, eStdString);
}

void MRLObjectRegistry::registerPointer(PLQMemoryOutputStream* p) {
    append(p, eMemoryOutputStream);
}

void MRLObjectRegistry::registerPointer(I18NString* p) {
    append(p, eI18NString);
}

void MRLObjectRegistry::registerPointer(MRLSchemaTypeI* p) {
    append(p, eSchemaType);
}

void MRLObjectRegistry::clean() {
    // A destructor may come back here: what it adds is dropped with the list, and what it released
    // is gone from its entry before the release began.
    const std::size_t count = m_entries.size();
    for (std::size_t i = 0; i < count; ++i) {
        RegistrationEntry& entry = m_entries.at(i);
        const RSObjRegEnum kind = entry.kind;
        void* const pointer = std::exchange(entry.pointer, nullptr);
        if (pointer != nullptr)
            release(pointer, kind);
    }
    m_entries.clear();
}

MRLObjectRegistry::RSObjRegEnum MRLObjectRegistry::mapMode(RSDeleteMode mode) {
    switch (mode) {
    case eRSDeleteScalar: return eDeleteScalar;
    case eRSDeleteScalar1: return eDeleteScalar1;
    case eRSDeleteScalar2: return eDeleteScalar2;
    case eRSDeleteArray: return eDeleteArray;
    case eRSFree: return eFree;
    }
    HBL_ASSERT(FALSE);
    return eDeleteScalar;
}

void MRLObjectRegistry::release(void* pointer, RSObjRegEnum kind) {
    switch (kind) {
    case eSchemaType: delete static_cast<MRLSchemaTypeI*>(pointer); return;
    case eStdString: delete static_cast<std::string*>(pointer); return;
    case eMRLString: delete static_cast<MRL_String*>(pointer); return;
    case eI18NString: delete static_cast<I18NString*>(pointer); return;
    case eMemoryOutputStream: delete static_cast<PLQMemoryOutputStream*>(pointer); return;
    case eBase64Binary: delete static_cast<MRLBase64Binary*>(pointer); return;
    case eCharStreamable: delete static_cast<MRL_CharStreamable*>(pointer); return;
    case eAttachmentContainer: delete static_cast<MRL_AttachmentContainerI*>(pointer); return;
    case eDeleteScalar:
    case eDeleteScalar1:
    case eDeleteScalar2: ::operator delete(pointer); return;
    case eDeleteArray: ::operator delete[](pointer); return;
    case eFree: std::free(pointer); return;
    }
    HBL_ASSERT(FALSE);
}

void MRLObjectRegistry::append(void* pointer, RSObjRegEnum kind) {
    m_entries.push_back({pointer, kind});
}
