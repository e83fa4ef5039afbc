#include "soap/ContentManager.h"

#include "Toolkit/MRLAddOptions.h"
#include "Toolkit/MRLBaseClass.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLContentAdd_Reply.h"
#include "Toolkit/MRLContentAdd_Request.h"
#include "Toolkit/MRLContentDelete_Reply.h"
#include "Toolkit/MRLContentDelete_Request.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLContentUpdate_Reply.h"
#include "Toolkit/MRLContentUpdate_Request.h"
#include "Toolkit/MRLDeleteOptions.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLPropEnumArray.h"
#include "Toolkit/MRLQueryOptions.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLSearchPathSingleObject.h"
#include "Toolkit/MRLSortArray.h"
#include "Toolkit/MRLUpdateOptions.h"
#include "soap/ObjectMapper.h"
#include "soap/SchemaAccess.h"
#include "store/StoreError.h"

#include <string>
#include <vector>

namespace mrl::bus {

namespace {

std::string requiredPath(MRLSchemaTypeI* path, const char* parameter) {
    auto text = SchemaAccess::text(path);
    if (!text || text->empty())
        throw StoreError(StoreErrorCode::badSearchPath,
                         std::string("The parameter ") + parameter +
                             " is missing; give a search path such as /content.");
    return std::move(*text);
}

std::vector<SortKey> sortKeys(MRLSchemaTypeArrayI* sorts) {
    std::vector<SortKey> keys;
    for (auto* sort : SchemaAccess::elements(sorts)) {
        auto property = SchemaAccess::text(sort, "propName");
        if (!property || property->empty())
            throw StoreError(StoreErrorCode::badOption,
                             "A sort key names no property; set its propName, or leave the key out.");
        keys.push_back({std::move(*property), SchemaAccess::text(sort, "order") == "descending"});
    }
    return keys;
}

std::optional<Right> askedRight(MRLSchemaTypeI* options) {
    const auto text = SchemaAccess::text(options, "permission");
    if (!text || text->empty())
        return std::nullopt;
    const auto right = rightFromText(*text);
    if (!right)
        throw StoreError(StoreErrorCode::badOption,
                         "There is no permission '" + *text +
                             "'; the option takes read, write, execute, setPolicy or traverse.");
    return right;
}

NameClash askedClash(MRLSchemaTypeI* options) {
    const auto action = SchemaAccess::text(options, "updateAction");
    if (action == "replace")
        return NameClash::replace;
    return action == "update" ? NameClash::update : NameClash::fail;
}

bool isSet(MRLSchemaTypeI* options, const char* option) {
    return SchemaAccess::number(options, option).value_or(0) != 0;
}

DeadReference askedDeadReference(MRLSchemaTypeI* options) {
    return isSet(options, "ignoreInvalidObjectReference") ? DeadReference::drop : DeadReference::fail;
}

std::vector<StoreObject> givenObjects(MRLBaseClassArray* array) {
    std::vector<StoreObject> objects;
    for (auto* object : SchemaAccess::elements(array))
        objects.push_back(ObjectMapper::fromSchema(*object));
    return objects;
}

void fill(MRLBaseClassArray& result, const std::vector<StoreObject>& objects, ObjectMapper mapper) {
    result.reserve(objects.size());
    for (const auto& object : objects)
        result.push_back(static_cast<MRLBaseClass*>(mapper.toSchema(object)));
}

} // namespace

bool ContentManager::perform(Call& call) {
    auto& in = call.binding.getInputMessage();
    auto& out = call.binding.getOutputMessage();
    switch (in.getMessageType()) {
    case MRLMessageI::eMRLContentQuery_Request:
        query(static_cast<MRLContentQuery_Request&>(in), static_cast<MRLContentQuery_Reply&>(out),
              call.attachments);
        return true;
    case MRLMessageI::eMRLContentAdd_Request:
        requireChange(call.caller);
        add(static_cast<MRLContentAdd_Request&>(in), static_cast<MRLContentAdd_Reply&>(out));
        return true;
    case MRLMessageI::eMRLContentUpdate_Request:
        requireChange(call.caller);
        update(static_cast<MRLContentUpdate_Request&>(in), static_cast<MRLContentUpdate_Reply&>(out));
        return true;
    case MRLMessageI::eMRLContentDelete_Request:
        requireChange(call.caller);
        remove(static_cast<MRLContentDelete_Request&>(in), static_cast<MRLContentDelete_Reply&>(out));
        return true;
    default: return false;
    }
}

void ContentManager::query(MRLContentQuery_Request& request, MRLContentQuery_Reply& reply,
                           OutgoingAttachments& attachments) {
    MRLQueryOptions* options = request.getOptions();
    QueryRequest query;
    query.searchPath = requiredPath(request.getSearchPath(), "searchPath");
    query.properties = SchemaAccess::texts(request.getProperties());
    query.sortBy = sortKeys(request.getSortBy());
    query.maxObjects = SchemaAccess::number(options, "maxObjects");
    query.skipObjects = SchemaAccess::number(options, "skipObjects").value_or(0);
    query.permission = askedRight(options);
    for (auto* reference :
         SchemaAccess::elements(SchemaAccess::asArray(SchemaAccess::object(options, "refProps"))))
        query.referenceProperties[SchemaAccess::text(reference, "refPropName").value_or("")] =
            SchemaAccess::texts(reference, "properties");

    auto& registry = reply.getObjectRegistry();
    ObjectMapper mapper(registry, isSet(options, "schemaInfo"));
    mapper.setDataForm(dataFormFrom(SchemaAccess::text(options, "dataEncoding").value_or("base64")),
                       attachments);
    mapper.setDataRange(SchemaAccess::number(options, "skipDataBytes").value_or(0),
                        SchemaAccess::number(options, "maxDataBytes"));
    fill(*reply.getResult(&registry), m_store.query(query), mapper);
}

void ContentManager::add(MRLContentAdd_Request& request, MRLContentAdd_Reply& reply) {
    MRLAddOptions* options = request.getOptions();
    const AddOptions wanted{askedClash(options), isSet(options, "faultIfObjectReferenced"),
                            askedDeadReference(options), SchemaAccess::texts(options, "returnProperties")};
    auto& registry = reply.getObjectRegistry();
    fill(*reply.getResult(&registry),
         m_store.add(requiredPath(request.getParentPath(), "parentPath"), givenObjects(request.getObjects()),
                     wanted),
         ObjectMapper(registry, false));
}

void ContentManager::update(MRLContentUpdate_Request& request, MRLContentUpdate_Reply& reply) {
    MRLUpdateOptions* options = request.getOptions();
    const UpdateOptions wanted{askedDeadReference(options), SchemaAccess::texts(options, "returnProperties")};
    auto& registry = reply.getObjectRegistry();
    fill(*reply.getResult(&registry), m_store.update(givenObjects(request.getObjects()), wanted),
         ObjectMapper(registry, false));
}

void ContentManager::remove(MRLContentDelete_Request& request, MRLContentDelete_Reply& reply) {
    std::vector<std::string> paths;
    for (auto* object : SchemaAccess::elements(request.getObjects()))
        paths.push_back(SchemaAccess::text(SchemaAccess::object(object, "searchPath"), "value").value_or(""));
    MRLDeleteOptions* options = request.getOptions();
    const DeleteOptions wanted{isSet(options, "recursive"), isSet(options, "faultIfObjectReferenced"),
                               isSet(options, "force")};
    reply.setResult(static_cast<int>(m_store.remove(paths, wanted)));
}

} // namespace mrl::bus
