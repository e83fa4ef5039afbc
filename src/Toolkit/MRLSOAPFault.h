#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

#include <memory>
#include <string>

class MRLFaultDetailArray;
class MRLObjectRegistryI;
class MRLSOAPFault_PrivateData;
class MRLTavelHeader;
class MRLUndocumentedFaultDetailArray;
class MRLZORException;

/// A SOAP fault as a service answered it. Its detail comes in one of two shapes: the documented one,
/// objects of the schema, and the undocumented one that older services write without types. It may
/// carry a security exception. What the setters store is borrowed. One thread at a time.
class MRL_EXPORT MRLSOAPFault : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLSOAPFault;
    static constexpr const char* s_className = "MRLSOAPFault";

    MRLSOAPFault();
    ~MRLSOAPFault() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;

    /// @throws MRLException for a name that is no child of a fault.
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;

    /// Takes the text from a MRL_String. Children that no field holds ("faultSubcode", "dataSource"
    /// and their kin) are checked and dropped.
    /// @return 0
    /// @throws MRLException for a name that is no child of a fault, and for a value of the wrong type.
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;

private:
    std::size_t getChildObjectCount() const override;

public:
    virtual bool operator==(const MRLSchemaTypeI& other) const;
    virtual bool operator!=(const MRLSchemaTypeI& other) const;

    const char* getFaultActor() const;
    void setFaultActor(const char* actor);
    const char* getFaultCode() const;
    void setFaultCode(const char* code);
    const char* getFaultString() const;
    void setFaultString(const char* text);
    MRLFaultDetailArray* getDetail() const;
    void setDetail(MRLFaultDetailArray* detail);
    MRLUndocumentedFaultDetailArray* getUndocumentedDetail() const;
    void setDetail(MRLUndocumentedFaultDetailArray* detail);
    MRLZORException* getZORException() const;
    void setZORException(MRLZORException* exception);

    /// The messages as one text: those of the first detail item without a separator, then each
    /// message of the security exception behind a blank. Replaces what `text` held.
    void getMessages(std::string& text) const;

    /// The fault as a whole envelope in the pretty form, with `header` (null allowed).
    /// @return a text owned by the fault, valid until the next call.
    const char* toString(const MRLTavelHeader* header);

    /// Moves a documented detail to the undocumented shape; what it makes belongs to `registry`.
    void convertFaultDetail(MRLObjectRegistryI& registry);
    /// Moves an undocumented detail to the documented shape; what it makes belongs to `registry`.
    void convertUndocumentedFaultDetail(MRLObjectRegistryI& registry);

private:
    std::unique_ptr<MRLSOAPFault_PrivateData> m_data;
};
