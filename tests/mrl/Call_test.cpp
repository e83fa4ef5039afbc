// Requests out of JSON, and messages back into JSON.

#include "call/JsonOutput.h"
#include "call/Signatures.h"
#include "call/StreamFiles.h"
#include "call/Template.h"
#include "lookup/Catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mrl::tool;

Json asJson(MRLMessageI& message) {
    StreamsInline streams;
    return JsonOutput(streams).parameters(message);
}

BuiltRequest build(const char* operation, const std::string& json) {
    const FoundOperation found = findOperations(operation).front();
    std::vector<const OperationRow*> signatures;
    for (const FoundOperation& signature : findOperations(operation))
        signatures.push_back(signature.operation);
    return buildRequest(*found.service, signatures, parseJson(json));
}

TEST(RequestsFromJson, EveryOperationTakesAllItsParametersAndTellsTheSame) {
    std::size_t operations = 0;
    std::size_t values = 0;
    for (const ServiceRow& service : services())
        for (const OperationRow& operation : service.operations) {
            SCOPED_TRACE(std::string(service.name) + " " + operation.request);
            const Json json = requestTemplate(*findMessage(operation.request), 2);
            EXPECT_EQ(json.size(), findMessage(operation.request)->parameters.size());
            const BuiltRequest request = buildRequest(service, operation, json);
            EXPECT_STREQ(request.binding->getOperationName(), operation.name);
            EXPECT_EQ(asJson(request.binding->getInputMessage()), json);
            ++operations;
            values += json.flatten().size();
        }
    EXPECT_EQ(operations + services().size(), 437u) << "each service has one entry without a name";
    EXPECT_GT(values, 5000u);
}

TEST(RequestsFromJson, ValuesMayBeWrittenInSeveralForms) {
    const struct {
        const char* operation;
        const char* given;
        const char* told;
    } rows[] = {
        {"contentManagerService.query", R"({"searchPath": {"@text": "/a \" & ä"}, "options": null})",
         R"({"searchPath": "/a \" & ä"})"},
        {"contentManagerService.update",
         R"({"objects": [{"@type": "MRLReport", "version": {"value": 2147483647}, "defaultName": {},
             "hidden": {"value": false, "schemaInfo": {"modifiable": true}}, "name": []}]})",
         R"({"objects": [{"@type": "report", "defaultName": {}, "name": {}, "version": 2147483647,
             "hidden": {"schemaInfo": {"modifiable": true}, "value": false}}]})"},
        {"reportService.getMapPreview", R"({"id": {"@cid": "map-1"}})", R"({"id": {"@cid": "map-1"}})"},
    };
    for (const auto& row : rows) {
        const BuiltRequest request = build(row.operation, row.given);
        EXPECT_EQ(asJson(request.binding->getInputMessage()), parseJson(row.told)) << row.given;
    }
}

TEST(RequestsFromJson, TheParametersChooseBetweenSignatures) {
    const char* const copy = "VantorLumenaPortType.copy";
    EXPECT_STREQ(build(copy, R"({"target": "/a"})").binding->getInputMessage().getGeneratedMessageName(),
                 "copy_1_Request");
    EXPECT_STREQ(build(copy, R"({"newName": ["a"]})").binding->getInputMessage().getGeneratedMessageName(),
                 "copy_2_Request");
}

struct Refused {
    const char* operation;
    const char* json;
    const char* complaint;
};

TEST(RequestsFromJson, WhatDoesNotFitIsRefusedWithItsPlaceAndTheNearestName) {
    const char* const query = "contentManagerService.query";
    const char* const add = "contentManagerService.add";
    const Refused rows[] = {
        {query, "[]", "expected an object with the parameters, not an array"},
        {query, R"({"searchPaht": "/"})",
         "searchPaht: there is no parameter 'searchPaht' in contentQuery_Request; did you mean searchPath"},
        {query, R"({"options": {"maxObject": 1}})",
         "options.maxObject: there is no member 'maxObject' in queryOptions; did you mean maxObjects"},
        {query, R"({"options": {"maxObjects": 2147483648}})",
         "options.maxObjects: expected a whole number from -2147483648 to 2147483647, not the number "
         "2147483648"},
        {query, R"({"options": {"maxObjects": 18446744073709551615}})",
         "options.maxObjects: expected a whole number from -2147483648 to 2147483647, not the number "
         "18446744073709551615"},
        {query, R"({"options": {"maxObjects": 1.0}})",
         "options.maxObjects: expected a whole number from -2147483648 to 2147483647, not the number 1.0"},
        {query, R"({"options": {"schemaInfo": 1}})",
         "options.schemaInfo: expected true or false, not the number 1"},
        {query, R"({"searchPath": "a\u0000b"})",
         "searchPath: holds the control character 0, which no envelope can carry"},
        {query, R"({"properties": ["serchPath"]})",
         "properties[0]: 'serchPath' is no value of propEnum; did you mean searchPath, sourcePath"},
        {query, R"({"sortBy": [{"order": "up"}]})",
         "sortBy[0].order: 'up' is no value of orderEnum; it has ascending, descending"},
        {query, R"({"sortBy": [{}, null]})", "sortBy[1]: expected an element, sort, not null"},
        {query, R"({"sortBy": {}})", "sortBy: expected an array of sort, not an object"},
        {add, R"({"objects": [{"@type": "baseClass"}]})",
         "objects[0].@type: 'baseClass' is no baseClass that can be"
         " made"},
        {add, R"({"objects": [{"@type": "queryOptions"}]})",
         "objects[0].@type: 'queryOptions' is no baseClass that can be made"},
        {add, R"({"objects": [{"@type": "folder", "position": -1}]})",
         "objects[0].position: expected a whole number from 0 to 2147483647, not the number -1"},
        {add, R"({"objects": ["a"]})", "objects[0].@type: is missing: baseClass is abstract, name one of "},
        {"reportService.getMapPreview", R"({"id": {"@cid": "a b"}})",
         "id.@cid: expected an id of printable ASCII without < > \" &"},
        {"reportService.getMapPreview", R"({"id": {"cid": "a"}})",
         R"(id: expected a text, or {"@cid": ID} for an attachment, not an object)"},
        {query, R"({"searchPath": "a", "searchPath": "a"})",
         "searchPath: is given twice; one of the two has to go"},
        {query, R"({"options": {"maxObjects": 1, "maxObjects": 1}})", "options.maxObjects: is given twice"},
        {query, "{\n\"a\"", "the data is not JSON: parse error at line 2, column 4"},
        {query, "\"\xff\"", "the data is not JSON: parse error at line 1, column 2"},
    };
    for (const Refused& row : rows) {
        try {
            build(row.operation, row.json);
            ADD_FAILURE() << "accepted: " << row.json;
        } catch (const JsonError& e) {
            EXPECT_THAT(e.what(), testing::StartsWith(row.complaint)) << row.json;
        }
    }
    EXPECT_THROW(parseJson(std::string(100000, '[')), JsonError);
}

TEST(RequestsFromJson, BinaryIsBase64AndNothingElse) {
    const char* const operation = "contentManagerService.add";
    const auto json = [](const std::string& data) {
        return R"({"objects": [{"@type": "output", "data": ")" + data + R"("}]})";
    };
    for (const char* good : {"", "AA==", "AAE=", "AAEC"})
        EXPECT_EQ(asJson(build(operation, json(good)).binding->getInputMessage())["objects"][0]["data"],
                  good);
    for (const char* bad : {"A", "AA=", "AA*=", "AA==AA==", "=AAA"})
        EXPECT_THROW(build(operation, json(bad)), JsonError) << bad;
}

} // namespace
