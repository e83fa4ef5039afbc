// Requests out of JSON, and messages back into JSON.

#include "call/JsonOutput.h"
#include "call/Signatures.h"
#include "call/StreamFiles.h"
#include "call/Template.h"
#include "lookup/Catalogue.h"
#include "support/Table.h"

#include <gmock/gmock.h>

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

TEST(RequestsFromJson, WhatDoesNotFitIsRefusedWithItsPlaceAndTheNearestName) {
    for (const auto& row : mrl::test::plainTable("refused_requests.txt")) {
        try {
            build(row[0].c_str(), mrl::test::withBytes(row[1]));
            ADD_FAILURE() << "accepted: " << row[1];
        } catch (const JsonError& e) {
            EXPECT_THAT(e.what(), testing::StartsWith(row[2])) << row[1];
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
