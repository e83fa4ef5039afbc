#pragma once

#include "Toolkit/MRLZOR.h"

/// A security block that carries a credential in the old form, as a raw text, so that it survives
/// on its way through. Made by the reader; the type tables know nothing of it.
class MRL_EXPORT MRLZOR_Unsupported : public MRLZOR {
public:
    static constexpr ObjectType s_objectType = eMRLZOR_Unsupported;
    static constexpr const char* s_className = "MRLZOR_Unsupported";

    /// A deep copy of `source` without a credential; what it makes belongs to `registry`.
    MRLZOR_Unsupported(const MRLZOR& source, MRLObjectRegistryI& registry);
    /// The same with the credential, whose text is copied too.
    MRLZOR_Unsupported(const MRLZOR_Unsupported& source, MRLObjectRegistryI& registry);
    ~MRLZOR_Unsupported() override;

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

public:
    int operator==(const MRLSchemaTypeI& other) const override;
    int operator!=(const MRLSchemaTypeI& other) const override;

    const char* getZORCredential() const { return m_credential; }
    /// Borrows the text.
    void setZORCredential(const char* credential) { m_credential = credential; }

private:
    const char* m_credential = nullptr;
};
