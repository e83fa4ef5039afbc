#include "store/SampleContent.h"

#include "store/ObjectTable.h"
#include "store/StoreSeams.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace mrl::bus {

namespace {

using Path = const char*;

constexpr Path content = "/content";
constexpr Path people = "/directory/namespace[@name='People']";
constexpr Path lena = "/directory/namespace[@name='People']/account[@name='Lena Brandt']";
constexpr Path tomas = "/directory/namespace[@name='People']/account[@name='Tomas Ruiz']";
constexpr Path sales = "/content/folder[@name='Sales']";
constexpr Path regions = "/content/folder[@name='Sales']/folder[@name='Regions']";
constexpr Path finance = "/content/folder[@name='Finance']";
constexpr Path archive = "/content/folder[@name='Archive 2023']";
constexpr Path payroll = "/content/folder[@name='Payroll']";
constexpr Path retail = "/content/package[@name='Retail']";
constexpr Path warehouse = "/configuration/dataSource[@name='Warehouse']";

/// What a sample may do: a reader of the list sees the exceptions at once.
constexpr Rights open = allRights;
constexpr Rights closedToEntry = rightsOf(Right::read);

struct Sample {
    Path container;
    const char* objectClass;
    const char* name;
    const char* description; ///< English; null for none
    const char* germanName;  ///< null: the same in every language
    Path owner;
    Rights rights;
    std::vector<std::pair<const char*, PropertyValue>> more;
};

std::vector<Sample> samples() {
    using namespace std::string_literals;
    const auto text = [](const char* value) { return PropertyValue(std::string(value)); };
    const auto to = [](Path path) {
        return PropertyValue(References{{"", {{"searchPath", std::string(path)}}}});
    };
    return {
        {"/directory",
         "namespace",
         "People",
         "The people of the sample company",
         "Personen",
         nullptr,
         lookOnly,
         {}},
        {people,
         "account",
         "Lena Brandt",
         "Head of sales",
         nullptr,
         nullptr,
         open,
         {{"givenName", text("Lena")},
          {"surname", text("Brandt")},
          {"userName", text("lena")},
          {"email", text("lena.brandt@company.example")}}},
        {people,
         "account",
         "Tomas Ruiz",
         "Controller",
         nullptr,
         nullptr,
         open,
         {{"givenName", text("Tomas")},
          {"surname", text("Ruiz")},
          {"userName", text("tomas")},
          {"email", text("tomas.ruiz@company.example")}}},
        {people,
         "account",
         "Mei Tanaka",
         "Analyst",
         nullptr,
         nullptr,
         open,
         {{"givenName", text("Mei")},
          {"surname", text("Tanaka")},
          {"userName", text("mei")},
          {"email", text("mei.tanaka@company.example")}}},
        {people, "group", "Analysts", "Those who write reports", "Analysten", nullptr, open, {}},
        {people, "role", "Controllers", "Those who approve figures", "Controller", nullptr, open, {}},

        {"/configuration", "dataSource", "Warehouse", "The sales warehouse", "Lager", tomas, open, {}},
        {warehouse,
         "dataSourceConnection",
         "Nightly",
         "Loaded every night",
         nullptr,
         tomas,
         open,
         {{"connectionString", text("dialect=sqlite;file=warehouse.db")}}},

        {content, "package", "Retail", "Sales figures by product and region", "Handel", tomas, open, {}},
        {retail, "model", "Retail model", "The model behind the package", "Handelsmodell", tomas, open, {}},

        {content, "folder", "Sales", "What the sales team works with", "Vertrieb", lena, open, {}},
        {sales,
         "report",
         "Revenue",
         "Revenue by month and region",
         "Umsatz",
         lena,
         open,
         {{"metadataModelPackage", to(retail)}}},
        {sales,
         "report",
         "Pipeline",
         "Open offers and their chances",
         nullptr,
         lena,
         open,
         {{"metadataModelPackage", to(retail)}}},
        {sales,
         "query",
         "Top customers",
         "The hundred largest customers",
         "Beste Kunden",
         lena,
         open,
         {{"metadataModelPackage", to(retail)}}},
        {sales,
         "analysis",
         "Margin explorer",
         "Margins from every side",
         nullptr,
         tomas,
         open,
         {{"metadataModelPackage", to(retail)}}},
        {sales,
         "dashboard",
         "Sales at a glance",
         "The week on one page",
         "Vertrieb auf einen Blick",
         lena,
         open,
         {}},
        {sales, "report", "Salary comparison", "Not for everyone", "Gehaltsvergleich", tomas, noRights, {}},
        {sales, "folder", "Regions", "One report for each region", "Regionen", lena, open, {}},
        {regions, "report", "North", "The northern region", "Nord", lena, open, {}},
        {regions, "report", "South", "The southern region", "S\u00fcd", lena, open, {}},
        {regions,
         "report",
         "\u00c5lesund & coast",
         "Quotes such as O'Hara's \"Best\" work, too",
         nullptr,
         lena,
         open,
         {}},

        {content, "folder", "Finance", "Closing, planning and controlling", "Finanzen", tomas, open, {}},
        {finance, "report", "Balance sheet", "Assets and liabilities", "Bilanz", tomas, open, {}},
        {finance, "query", "Open items", "Invoices that wait for payment", "Offene Posten", tomas, open, {}},
        {finance,
         "document",
         "Closing handbook",
         "How a month is closed",
         "Abschlusshandbuch",
         tomas,
         open,
         {}},
        {finance,
         "URL",
         "Exchange rates",
         "Daily rates of the central bank",
         "Wechselkurse",
         tomas,
         open,
         {{"uri", text("https://rates.company.example/daily")}}},
        {"/content/folder[@name='Finance']/report[@name='Balance sheet']",
         "schedule",
         "Month end",
         "Runs on the last day of each month",
         "Monatsende",
         tomas,
         open,
         {{"active", true},
          {"type", text("monthly")},
          {"monthlyAbsoluteDay", std::int64_t{31}},
          {"startDate", text("2024-01-31T20:00:00.000Z")}}},

        {content,
         "folder",
         "Archive 2023",
         "Closed: may be read, not changed",
         "Archiv 2023",
         tomas,
         lookOnly,
         {}},
        {archive, "report", "Annual report", "The year 2023", "Jahresbericht", tomas, lookOnly, {}},

        {content,
         "folder",
         "Payroll",
         "May be seen, not entered",
         "Gehaltsabrechnung",
         lena,
         closedToEntry,
         {}},
        {payroll, "report", "Salaries", "Month by month", nullptr, lena, noRights, {}},
    };
}

StoreObject toObject(const Sample& sample) {
    StoreObject object{sample.objectClass, {{"defaultName", std::string(sample.name)}}};
    std::vector<LocalText> names{{"en", sample.name}};
    if (sample.germanName != nullptr)
        names.push_back({"de", sample.germanName});
    object.properties["name"] = std::move(names);
    if (sample.description != nullptr)
        object.properties["defaultDescription"] = std::string(sample.description);
    for (const auto& [name, value] : sample.more)
        object.properties[name] = value;
    return object;
}

} // namespace

void SampleContent::placeFixtures() {
    ObjectTable objects(m_database);
    ObjectRow root;
    root.id = ObjectRow::rootId;
    root.storeId = m_seams.newId();
    root.objectClass = root.name = "root";
    root.created = root.modified = m_seams.now();
    root.rights = lookOnly;
    objects.insert(root);
    constexpr std::array<std::pair<const char*, const char*>, 4> fixtures{{{"content", "Content"},
                                                                           {"directory", "Directory"},
                                                                           {"configuration", "Configuration"},
                                                                           {"capability", "Capability"}}};
    for (const auto& [objectClass, name] : fixtures)
        m_writer.place(root, {objectClass, {{"defaultName", std::string(name)}}}, allRights);
}

void SampleContent::placeSamples() {
    ObjectTable objects(m_database);
    for (const auto& sample : samples()) {
        const ObjectRow container = m_writer.resolve(sample.container);
        const ObjectRow placed = m_writer.place(container, toObject(sample), sample.rights);
        if (sample.owner != nullptr) {
            ObjectRow owned = placed;
            owned.owner = m_writer.resolve(sample.owner).id;
            objects.update(owned);
        }
    }
}

} // namespace mrl::bus
