#include "Session/MRLProperty.h"
#include "Session/detail/PropertyAccess.h"
#include "support/Failure.h"
#include "support/Table.h"
#include "support/TemporaryDirectory.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <vector>

using mrl::detail::PropertyAccess;

namespace {

class Properties : public testing::Test {
protected:
    ~Properties() override { PropertyAccess::setConfigFile(PropertyAccess::defaultConfigFile); }

    void load(const std::string& document) {
        std::ofstream(m_path) << document;
        PropertyAccess::setConfigFile(m_path);
    }

    /// The text and the number of a property, "-" for none: "12x/12", "x/-", "-/-".
    static std::string read(const char* name) {
        const MRLProperty& store = MRLProperty::getInstance();
        I18NString text;
        int number = 0;
        std::string result = store.getValue(name, text) != 0 ? text.toUtf8() : "-";
        return result + "/" + (store.getValue(name, number) != 0 ? std::to_string(number) : "-");
    }

    const mrl::test::TemporaryDirectory m_directory;
    const std::string m_path = m_directory.path() + "/properties.xml";
};

TEST_F(Properties, AreReadFromEntriesOfManyForms) {
    for (const auto& row : mrl::test::table("properties.txt")) {
        load("<?xml version='1.0'?><any>" + row[0] + "</any>");
        EXPECT_EQ(read("p"), row[1]) << row[0].substr(0, 200);
    }
}

TEST_F(Properties, AreNoneWhenTheFileIsMissingOrRefused) {
    const std::string pair = "<e><property>p</property><value>1</value></e>";
    for (const char* type : {"[<!ENTITY x 'y'>]", "[<!ENTITY x SYSTEM '/etc/passwd'>]", "SYSTEM 'a.dtd'"}) {
        load("<!DOCTYPE a " + std::string(type) + "><a>" + pair + "</a>");
        EXPECT_EQ(read("p"), "-/-") << type;
    }
    for (const char* path : {"/nowhere/at/all.xml", "/tmp", "/dev/zero", ""}) {
        PropertyAccess::setConfigFile(path);
        EXPECT_EQ(read("p"), "-/-") << path;
    }
}

TEST_F(Properties, LeaveTheCallersValueWhenThereIsNone) {
    load("<a><e><property>n</property><value type='long'>-1</value></e></a>");
    const MRLProperty& store = MRLProperty::getInstance();
    unsigned number = 5;
    int signedNumber = 5;
    I18NString text("kept");
    EXPECT_EQ(store.getValue("none", number), 0);
    EXPECT_EQ(store.getValue(nullptr, signedNumber), 0);
    EXPECT_EQ(store.getValue("none", text), 0);
    EXPECT_EQ(number, 5U);
    EXPECT_EQ(signedNumber, 5);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(store.getValue("n", number), 1);
    EXPECT_EQ(number, 4294967295U);
}

TEST_F(Properties, AreReadOnceUntilTheStoreIsDeleted) {
    load("<a><e><property>p</property><value>1</value></e></a>");
    EXPECT_EQ(read("p"), "1/-");
    std::ofstream(m_path) << "<a><e><property>p</property><value>2</value></e></a>";
    EXPECT_EQ(read("p"), "1/-");
    MRLProperty::deleteInstance();
    EXPECT_EQ(read("p"), "2/-");
    PropertyAccess::setValue("p", "3", 1);
    PropertyAccess::setValue("q", "4", 0);
    EXPECT_EQ(read("p"), "3/3");
    EXPECT_EQ(read("q"), "4/-");
}

TEST_F(Properties, KeysAreTheChecksumsOfTheNames) {
    EXPECT_EQ(PropertyAccess::getKey("123456789"), 0xcbf43926U); // the check value of this CRC
    expectAssert([] { PropertyAccess::getKey(nullptr); }, "HBL_ASSERT(rProperty);");
    expectAssert([] { PropertyAccess::setValue(nullptr, "1", 0); }, "HBL_ASSERT(rProperty);");
}

TEST_F(Properties, OfTheExampleFileAreTheDefaults) {
    PropertyAccess::setConfigFile(MRL_RESOURCES "/renqproperties.xml");
    const std::pair<const char*, const char*> rows[] = {
        {"outputBufferSize", "300000/300000"}, {"outputBufferPoolSize", "30/30"},
        {"DocumentOutputCompression", "1/1"},  {"ExternalServicesRecordingMode", "1/1"},
        {"NumberOfRequestRetries", "10/10"},   {"disableSpecSignCheck", "0/0"}};
    for (const auto& [name, expected] : rows) {
        EXPECT_EQ(read(name), expected) << name;
    }
}

TEST_F(Properties, AreLoadedByOneOfManyThreads) {
    load("<a><e><property>p</property><value type='long'>1</value></e></a>");
    std::vector<const MRLProperty*> seen(8);
    mrl::test::inThreads(8, [&](std::size_t number) { seen[number] = &MRLProperty::getInstance(); });
    EXPECT_EQ(std::count(seen.begin(), seen.end(), &MRLProperty::getInstance()), 8);
}

} // namespace
