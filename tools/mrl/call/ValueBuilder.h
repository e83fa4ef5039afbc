#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "call/JsonInput.h"

#include <functional>
#include <string>
#include <vector>

class MRLMessageI;
class MRLObjectRegistryI;

namespace mrl::tool {

struct MemberRow;
struct TypeRow;

/// Makes typed values out of JSON, by the names of the schema and through the named access alone. What it
/// makes belongs to the registry. Each operation throws JsonError for what does not fit the schema.
///
/// | schema | JSON |
/// |---|---|
/// | text, date, URI, enumeration, search path | a text |
/// | number, boolean | a number, true or false |
/// | binary | Base64 text |
/// | class | an object; "@type" names a derived class |
/// | property | its value alone, or an object with "value" and "schemaInfo" |
/// | array | an array |
/// | text or binary that travels as an attachment | {"@cid": ID} |
///
/// null leaves a member or parameter unset.
class ValueBuilder {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    explicit ValueBuilder(MRLObjectRegistryI& registry)
        : m_registry(registry) {}

    /// Sets the parameters that stand in `json`, an object.
    void setParameters(MRLMessageI& message, const Json& json);

    /// A new object of the declared type, or of the one that "@type" names.
    MRLSchemaTypeI* makeObject(ObjectType declared, const Json& json, const std::string& path);

    /// The content ids that the values built so far refer to.
    const std::vector<std::string>& contentIds() const { return m_contentIds; }

private:
    using Store = std::function<void(void* value, ObjectType type)>;

    void build(ObjectType declared, const char* schemaType, const Json& json, const std::string& path,
               const Store& store);
    void buildText(ObjectType declared, const Json& json, const std::string& path, const Store& store);
    void buildBinary(const Json& json, const std::string& path, const Store& store);
    void setMembers(MRLSchemaTypeI& object, const Json& json, const std::string& path);
    void setMember(MRLSchemaTypeI& object, const char* member, const Json& json, const std::string& path);
    void setText(MRLSchemaTypeI& object, const TypeRow& row, const Json& json, const std::string& path);
    void fill(MRLSchemaTypeI& array, const Json& json, const std::string& path);
    MRLSchemaTypeI* create(ObjectType type);
    void* newText(const std::string& text);
    std::string contentId(const Json& json, const std::string& path);

    MRLObjectRegistryI& m_registry;
    std::vector<std::string> m_contentIds;
};

} // namespace mrl::tool
