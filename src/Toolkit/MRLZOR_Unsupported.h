#pragma once

#include "Toolkit/MRLZOR.h"

#include "HBLCore/MRLExport.h"

/// A security element that carries a credential in the old form, kept as text. It stands outside the
/// type tables: no factory makes or copies it.
class MRL_EXPORT MRLZOR_Unsupported : public MRLZOR {
public:
    static constexpr ObjectType s_objectType = eMRLZOR_Unsupported;
    static constexpr const char* s_className = "MRLZOR_Unsupported";

    /// A copy of a security element, without a credential; `registry` owns what is new.
    MRLZOR_Unsupported(const MRLZOR& source, MRLObjectRegistryI& registry);
    MRLZOR_Unsupported(const MRLZOR_Unsupported& source, MRLObjectRegistryI& registry);
    ~MRLZOR_Unsupported() override;

    const char* getZORCredential() const { return m_credential; }

    /// Keeps the pointer: the text must outlive the object.
    void setZORCredential(const char* credential) { m_credential = credential; }

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;

private:
    std::size_t getChildObjectCount() const override;

    const char* m_credential = nullptr; // borrowed
};
