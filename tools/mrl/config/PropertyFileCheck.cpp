#include "config/PropertyFileCheck.h"

#include "Session/MRLPropertyFile.h"
#include "config/Wording.h"
#include "lookup/Nearest.h"

#include "HBLIDOM/HBLIDOM_Helper.h"
#include "HBLIDOM/HBLIDOM_Parser.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <string_view>

namespace mrl::tool {

namespace {

using Finding = HBLConfigurationFinding;

std::string textOf(const HBLIDOM_Element& element) {
    return HBLIDOM_Helper::getElementText(element).toUtf8();
}

template <class Take>
void forElements(const HBLIDOM_Node& parent, const Take& take) {
    for (HBLIDOM_Node child = parent.getFirstChild(); child.isNull() == 0; child = child.getNextSibling()) {
        if (child.getNodeType() == HBLIDOM_Node::ELEMENT_NODE) {
            take(HBLIDOM_Element(child));
        }
    }
}

/// White space around a number does not count.
bool isWithin(std::string_view text, std::int64_t most) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    text = first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
    std::int64_t number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number >= 0 && number <= most;
}

/// Goes the way of the library, and says where it finds nothing to take.
class Examination {
public:
    Examination(const std::string& path, PropertyFile& into)
        : m_path(path)
        , m_into(into) {}

    void look(const HBLIDOM_Element& root) {
        forElements(root, [&](const HBLIDOM_Element& entry) {
            if (isPart(entry)) {
                add(entry, "expected an element around each pair of property and value, found " +
                               quoted(entry.getTagName().toUtf8()) + " by itself, which is not read");
            } else {
                lookAtEntry(entry);
            }
        });
    }

private:
    static bool isPart(const HBLIDOM_Element& element) {
        return element.getTagName() == "property" || element.getTagName() == "value";
    }

    void add(const HBLIDOM_Element& at, std::string words) {
        m_into.findings.push_back(
            {Finding::eDoubtful, {m_path, at.getLineNumber(), at.getColumnNumber()}, std::move(words)});
    }

    void lookAtEntry(const HBLIDOM_Element& entry) {
        std::optional<HBLIDOM_Element> name;
        std::optional<HBLIDOM_Element> value;
        forElements(entry, [&](const HBLIDOM_Element& part) {
            if (!isPart(part)) {
                add(part, "expected property or value, found " + quoted(part.getTagName().toUtf8()) +
                              ", which is not read");
                return;
            }
            (part.getTagName() == "property" ? name : value) = part;
            if (name && value) {
                lookAtPair(*name, *value);
                name.reset();
                value.reset();
            }
        });
        if (name) {
            add(*name, "expected a value beside the property " + quoted(textOf(*name)) + ", found none");
        } else if (value) {
            add(*value, "expected a property beside the value " + quoted(textOf(*value)) + ", found none");
        }
    }

    void lookAtPair(const HBLIDOM_Element& nameAt, const HBLIDOM_Element& valueAt) {
        const std::string name = textOf(nameAt);
        const auto [first, isNew] = m_seen.emplace(name, nameAt.getLineNumber());
        if (!isNew) {
            add(nameAt, "expected each property once, found " + quoted(name) + " again, first at line " +
                            std::to_string(first->second) + "; the first counts");
            return;
        }
        ++m_into.count;
        const auto& numbers = MRLPropertyFile::s_numbers;
        const auto* const known = std::ranges::find(numbers, name, &MRLPropertyFile::Number::name);
        if (known == numbers.end()) {
            lookAtOther(nameAt, name);
        } else if (valueAt.getAttributeNS("", "type") != "long") {
            add(valueAt,
                "expected type=\"long\" at the value of " + quoted(name) + "; without it the default holds");
        } else if (const std::string value = textOf(valueAt); !isWithin(value, known->most)) {
            add(valueAt, "expected a whole number from 0 to " + std::to_string(known->most) +
                             " as the value of " + quoted(name) + ", found " + quoted(value));
        }
    }

    /// The host's own, unless it is close to one of the toolkit's.
    void lookAtOther(const HBLIDOM_Element& at, const std::string& name) {
        std::vector<std::string_view> names;
        names.reserve(std::size(MRLPropertyFile::s_numbers));
        for (const MRLPropertyFile::Number& number : MRLPropertyFile::s_numbers) {
            names.push_back(number.name);
        }
        if (const std::string near = proposal(name, names, MOST_PROPOSED); !near.empty()) {
            add(at, "the toolkit does not know the property " + quoted(name) + near);
        }
    }

    const std::string& m_path;
    PropertyFile& m_into;
    std::map<std::string, int> m_seen; // name and line
};

} // namespace

PropertyFile examinedProperties(const std::string& path) {
    PropertyFile file;
    HBLIDOM_Parser parser(HBLIDOM_Parser::eKeepPlaces);
    parser.setLimits(MRLPropertyFile::s_limits);
    HBLIDOM_Document document;
    if (parser.parse(path.c_str(), document) == 0) {
        file.findings.push_back({Finding::eWrong,
                                 {path, parser.getCurrentLineNumber(), parser.getCurrentColumnNumber()},
                                 "expected an XML document, or no file: as it is no property is read, and "
                                 "every default holds: " +
                                     parser.errorString().toUtf8()});
        return file;
    }
    Examination(path, file).look(document.getDocumentElement());
    return file;
}

} // namespace mrl::tool
