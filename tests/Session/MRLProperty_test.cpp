#include "Session/MRLProperty.h"
#include "Session/detail/PropertyAccess.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <thread>
#include <unistd.h>
#include <vector>

using mrl::detail::PropertyAccess;

namespace {

class Properties : public testing::Test {
protected:
    ~Properties() override {
        PropertyAccess::setConfigFile(PropertyAccess::defaultConfigFile);
        std::filesystem::remove(m_path);
    }

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

    const std::string m_path = testing::TempDir() + "mrl_properties_" + std::to_string(getpid()) + ".xml";
};

TEST_F(Properties, AreReadFromEntriesOfManyForms) {
    const struct {
        const char* name;
        const char* entries;
        const char* expected; // of the property "p"
    } rows[] = {
        {"a number", "<e><property>p</property><value type='long'>42</value></e>", "42/42"},
        {"digits end a number", "<e><property>p</property><value type='long'> +12x9</value></e>",
         " +12x9/12"},
        {"no digits", "<e><property>p</property><value type='long'>x</value></e>", "x/0"},
        {"no type", "<e><property>p</property><value>42</value></e>", "42/-"},
        {"a type in capitals", "<e><property>p</property><value type='LONG'>42</value></e>", "42/-"},
        {"a type with a prefix",
         "<e xmlns:t='urn:t'><property>p</property><value t:type='long'>4</value></e>", "4/-"},
        {"the value first", "<e><value type='long'>7</value><property>p</property></e>", "7/7"},
        {"several pairs in an entry",
         "<e><property>q</property><value>1</value><value>2</value><property>p</property></e>", "2/-"},
        {"the later of two names, the later of two values",
         "<e><property>q</property><property>p</property><value>1</value></e>", "1/-"},
        {"the later of two values", "<e><value>1</value><value>2</value><property>p</property></e>", "2/-"},
        {"the first of two entries",
         "<e><property>p</property><value>1</value></e><e><property>p</property><value>2</value></e>", "1/-"},
        {"a name without a value does not wait for the next entry",
         "<e><property>p</property></e><e><value>1</value></e>", "-/-"},
        {"tags with a prefix", "<e xmlns:x='urn:x'><x:property>p</x:property><x:value>1</x:value></e>",
         "-/-"},
        {"tags in capitals", "<e><Property>p</Property><Value>1</Value></e>", "-/-"},
        {"pairs deeper down", "<e><f><property>p</property><value>1</value></f></e>", "-/-"},
        {"pairs on the top level", "<property>p</property><value>1</value>", "-/-"},
        {"comments, texts and strangers between",
         "t<!--c--><e>t<x/><property>p<!--c--></property><!--c-->t<value><![CDATA[<1>]]></value></e>",
         "<1>/-"},
        {"the name in another case", "<e><property>P</property><value>1</value></e>", "-/-"},
    };
    for (const auto& row : rows) {
        load("<?xml version='1.0'?><any>" + std::string(row.entries) + "</any>");
        EXPECT_EQ(read("p"), row.expected) << row.name;
    }
}

TEST_F(Properties, AreNoneWhenTheFileIsMissingOrRefused) {
    const std::string pair = "<e><property>p</property><value>1</value></e>";
    std::string deep;
    for (int i = 0; i < 65; ++i) {
        deep += "<d>";
    }
    for (int i = 0; i < 65; ++i) {
        deep += "</d>";
    }
    const std::pair<const char*, std::string> rows[] = {
        {"not well-formed", "<a>" + pair + "<b></a>"},
        {"empty", ""},
        {"a document type", "<!DOCTYPE a [<!ENTITY x 'y'>]><a>" + pair + "</a>"},
        {"an entity of the outside", "<!DOCTYPE a [<!ENTITY x SYSTEM '/etc/passwd'>]><a>" + pair + "&x;</a>"},
        {"too deep", "<a>" + pair + deep + "</a>"},
        {"too long", "<a>" + pair + std::string(4 * 1024 * 1024, ' ') + "</a>"},
    };
    for (const auto& [name, document] : rows) {
        load(document);
        EXPECT_EQ(read("p"), "-/-") << name;
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
    EXPECT_EQ(read("outputBufferSize"), "300000/300000");
    EXPECT_EQ(read("outputBufferPoolSize"), "30/30");
    EXPECT_EQ(read("DocumentOutputCompression"), "1/1");
    EXPECT_EQ(read("ExternalServicesRecordingMode"), "1/1");
    EXPECT_EQ(read("NumberOfRequestRetries"), "10/10");
    EXPECT_EQ(read("disableSpecSignCheck"), "0/0");
}

TEST_F(Properties, AreLoadedByOneOfManyThreads) {
    load("<a><e><property>p</property><value type='long'>1</value></e></a>");
    std::vector<const MRLProperty*> seen(8);
    {
        std::vector<std::jthread> threads;
        for (auto& store : seen) {
            threads.emplace_back([&store] { store = &MRLProperty::getInstance(); });
        }
    }
    EXPECT_EQ(std::count(seen.begin(), seen.end(), &MRLProperty::getInstance()), 8);
}

} // namespace
