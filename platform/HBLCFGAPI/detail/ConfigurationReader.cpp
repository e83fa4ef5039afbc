#include "HBLCFGAPI/detail/ConfigurationReader.h"

#include "HBLCFGAPI/detail/ConfigurationText.h"
#include "HBLCFGAPI/detail/TreeText.h"
#include "HBLIDOM/HBLIDOM_Helper.h"

#include <string_view>
#include <utility>
#include <vector>

namespace mrl::detail {

namespace {

using Finding = HBLConfigurationFinding;

bool isConfiguration(const HBLIDOM_Node& node, const char* localName) {
    return HBLIDOM_Helper::matchLocalName(node, localName) != 0 &&
           HBLIDOM_Helper::matchNamespaceURI(node, HBLConfigurationNames::s_namespace) != 0;
}

bool isText(const HBLIDOM_Node& node) {
    return node.getNodeType() == HBLIDOM_Node::TEXT_NODE ||
           node.getNodeType() == HBLIDOM_Node::CDATA_SECTION_NODE;
}

std::vector<HBLIDOM_Element> elementsIn(const HBLIDOM_Element& parent) {
    std::vector<HBLIDOM_Element> elements;
    for (HBLIDOM_Node child = parent.getFirstChild(); child.isNull() == 0; child = child.getNextSibling()) {
        if (child.getNodeType() == HBLIDOM_Node::ELEMENT_NODE) {
            elements.emplace_back(child);
        }
    }
    return elements;
}

std::string ownText(const HBLIDOM_Element& element) {
    return HBLIDOM_Helper::getElementText(element).toUtf8();
}

/// Quoted, and cut where it is long.
std::string quoted(std::string_view text) {
    constexpr std::size_t MOST = 40;
    return "\"" + (text.size() <= MOST ? std::string(text) : std::string(text.substr(0, MOST)) + "...") +
           "\"";
}

std::string nameOf(const HBLIDOM_Element& element) {
    return element.getAttribute("name").toUtf8();
}

} // namespace

HBLConfigurationPlace ConfigurationReader::placeOf(const HBLIDOM_Element& element) const {
    return {m_source, element.getLineNumber(), element.getColumnNumber()};
}

void ConfigurationReader::wrong(const HBLIDOM_Element& at, const std::string& words) {
    m_into.m_findings.push_back({Finding::eWrong, placeOf(at), words});
}

void ConfigurationReader::doubtful(const HBLConfigurationPlace& place, const std::string& words) {
    m_into.m_findings.push_back({Finding::eDoubtful, place, words});
}

template <class Take>
void ConfigurationReader::forElements(const HBLIDOM_Element& parent, const char* expected, const Take& take) {
    for (HBLIDOM_Node child = parent.getFirstChild(); child.isNull() == 0; child = child.getNextSibling()) {
        if (child.getNodeType() == HBLIDOM_Node::ELEMENT_NODE) {
            take(HBLIDOM_Element(child));
        } else if (isText(child)) {
            const std::string text = child.getNodeValue().toUtf8();
            if (!trimmed(text).empty()) {
                wrong(parent, std::string("expected ") + expected + " in " + parent.getTagName().toUtf8() +
                                  ", found the text " + quoted(trimmed(text)));
            }
        }
    }
}

void ConfigurationReader::readRoot(const HBLIDOM_Element& root) {
    if (HBLIDOM_Helper::matchLocalName(root, "queryResult") != 0) {
        m_into.m_isOverlay = true;
        readQueryResult(root);
        return;
    }
    if (!isConfiguration(root, "parameters")) {
        wrong(root, std::string("expected the root element <qzn:parameters xmlns:qzn=\"") +
                        HBLConfigurationNames::s_namespace + "\">, found " +
                        quoted(root.getTagName().toUtf8()) + " of the namespace " +
                        quoted(root.getNamespaceURI().toUtf8()));
        return;
    }
    forElements(root, "qzn:parameter elements", [&](const HBLIDOM_Element& child) {
        if (isConfiguration(child, "parameter")) {
            readParameter(child);
        } else {
            wrong(child, "expected qzn:parameter, found " + quoted(child.getTagName().toUtf8()));
        }
    });
}

void ConfigurationReader::readParameter(const HBLIDOM_Element& parameter) {
    const std::string name = nameOf(parameter);
    if (name.empty()) {
        wrong(parameter, "expected an attribute \"name\" with the name of the property in qzn:parameter");
        return;
    }
    const auto [first, isNew] = m_seen.emplace(name, placeOf(parameter));
    if (!isNew) {
        wrong(parameter, "expected each property once, found " + quoted(name) + " again, first at line " +
                             std::to_string(first->second.line));
        return;
    }
    std::vector<HBLIDOM_Element> values;
    forElements(parameter, "one qzn:value", [&](const HBLIDOM_Element& child) {
        if (isConfiguration(child, "value")) {
            values.push_back(child);
        } else {
            wrong(child, "expected qzn:value in the parameter " + quoted(name) + ", found " +
                             quoted(child.getTagName().toUtf8()));
        }
    });
    if (values.size() == 1) {
        readValue(name, values.front(), parameter);
    } else {
        wrong(parameter, "expected one qzn:value in the parameter " + quoted(name) + ", found " +
                             (values.empty() ? "none" : std::to_string(values.size())));
    }
}

void ConfigurationReader::readQueryResult(const HBLIDOM_Element& root) {
    forElements(root, "item elements", [&](const HBLIDOM_Element& item) {
        if (HBLIDOM_Helper::matchLocalName(item, "item") == 0) {
            wrong(item, "expected item in queryResult, found " + quoted(item.getTagName().toUtf8()));
            return;
        }
        forElements(item, "elements named for properties", [&](const HBLIDOM_Element& property) {
            const std::string name = property.getLocalName().empty() ? property.getTagName().toUtf8()
                                                                     : property.getLocalName().toUtf8();
            const HBLIDOM_Element value = HBLIDOM_Helper::findChildElement(property, "value");
            if (value.isNull() != 0) {
                wrong(property, "expected a value element in " + quoted(name) + ", found none");
            } else {
                readValue(name, value, property);
            }
        });
    });
}

void ConfigurationReader::readValue(const std::string& name, const HBLIDOM_Element& value,
                                    const HBLIDOM_Element& at) {
    const HBLConfigurationName* const known = HBLConfigurationNames::find(name);
    HBLConfigurationProperty property{name, !elementsIn(value).empty(), {}, placeOf(at)};
    if (property.isTree) {
        readTree(property, value, known);
    } else {
        property.value = trimmed(ownText(value));
        if (known != nullptr) {
            checkText(property, *known);
        }
    }
    m_into.m_properties.push_back(std::move(property));
}

void ConfigurationReader::readTree(HBLConfigurationProperty& property, const HBLIDOM_Element& value,
                                   const HBLConfigurationName* known) {
    forElements(value, "elements only", [](const HBLIDOM_Element&) {});
    try {
        property.value = TreeText(s_maximumDepth).write(value);
    } catch (const TreeText::Refusal& refusal) {
        wrong(value, "the property " + quoted(property.name) + ": " + refusal.words);
        return;
    }
    if (known != nullptr) {
        checkTree(value, *known);
    }
    readEntries(property, value, "");
}

void ConfigurationReader::readEntries(HBLConfigurationProperty& property, const HBLIDOM_Element& parent,
                                      const std::string& path) {
    unsigned number = 0;
    for (const HBLIDOM_Element& element : elementsIn(parent)) {
        const bool isItem = HBLIDOM_Helper::matchLocalName(element, "item") != 0;
        std::string name = isItem ? std::to_string(++number) : nameOf(element);
        if (name.empty()) { // a value of the entry above, or something without a name
            readEntries(property, element, path);
            continue;
        }
        if (!path.empty()) {
            name.insert(0, "/").insert(0, path);
        }
        const HBLIDOM_Element value = HBLIDOM_Helper::findChildElement(element, "value");
        const HBLIDOM_Element& holder = value.isNull() == 0 ? value : element;
        std::string text = elementsIn(holder).empty() ? ownText(holder) : std::string();
        property.entries.push_back({name, std::move(text), placeOf(element)});
        readEntries(property, element, name);
    }
}

void ConfigurationReader::checkText(const HBLConfigurationProperty& property,
                                    const HBLConfigurationName& known) {
    const std::string expected = "expected " + std::string(HBLConfigurationNames::describe(known.kind)) +
                                 " as the value of " + quoted(property.name) + ", found " +
                                 quoted(property.value);
    const auto add = [&](Finding::Weight weight) {
        m_into.m_findings.push_back({weight, property.place, expected});
    };
    if (property.value.empty()) {
        return;
    }
    switch (known.kind) {
    case HBLConfigurationKind::eFlag: // what asks for protection may not be lost to a slip
        return property.value == "true" || property.value == "false" ? void() : add(Finding::eWrong);
    case HBLConfigurationKind::eNumber:
        return isWholeNumber(property.value) ? void() : add(Finding::eDoubtful);
    case HBLConfigurationKind::eUri: return isHttpAddress(property.value) ? void() : add(Finding::eDoubtful);
    case HBLConfigurationKind::eUriList: return add(Finding::eWrong);
    case HBLConfigurationKind::eText:
    case HBLConfigurationKind::eParameters: // XML as a text
    case HBLConfigurationKind::eSettings: return;
    }
}

void ConfigurationReader::checkTree(const HBLIDOM_Element& value, const HBLConfigurationName& known) {
    const std::string name(known.name);
    const std::string expected = "expected " + std::string(HBLConfigurationNames::describe(known.kind)) +
                                 " as the value of " + quoted(name) + ", found ";
    for (const HBLIDOM_Element& child : elementsIn(value)) {
        const std::string found = expected + quoted(child.getTagName().toUtf8());
        switch (known.kind) {
        case HBLConfigurationKind::eText:
        case HBLConfigurationKind::eFlag:
        case HBLConfigurationKind::eNumber:
        case HBLConfigurationKind::eUri: wrong(child, found); return;
        case HBLConfigurationKind::eUriList: {
            const std::string text = ownText(child);
            if (!isConfiguration(child, "item")) {
                doubtful(placeOf(child), found);
            } else if (!isHttpAddress(trimmed(text))) {
                doubtful(placeOf(child), expected + quoted(trimmed(text)));
            }
            break;
        }
        case HBLConfigurationKind::eParameters:
        case HBLConfigurationKind::eSettings:
            if (nameOf(child).empty()) {
                doubtful(placeOf(child), found + " without a name");
            }
            break;
        }
    }
}

} // namespace mrl::detail
