#include "traffic/Secrets.h"

#include "traffic/XmlBytes.h"

#include "HBLCore/HBLBase64.h"
#include "HBLCore/I18NString.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <span>

namespace mrl::tool {

namespace {

/// Shorter values are masked where they stand, but not searched for: they may well be words.
constexpr std::size_t SHORTEST_SEARCHED = 8;

bool namesASecret(std::string_view name) {
    std::string lower(name);
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
    constexpr std::array<std::string_view, 7> words = {"password", "passwd",     "secret",       "token",
                                                       "passport", "credential", "authorization"};
    return std::ranges::any_of(words, [&](std::string_view word) { return lower.find(word) != lower.npos; });
}

std::string percentEncoded(std::string_view text) {
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 || std::string_view("-._~").find(c) != std::string_view::npos) {
            out += c;
        } else {
            char code[4];
            std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned>(byte));
            out += code;
        }
    }
    return out;
}

std::string utf16(std::string_view text, bool bigEndian) {
    const I18NString wide{text};
    std::string out;
    for (std::size_t i = 0; i < wide.length(); ++i) {
        const auto unit = static_cast<unsigned>(wide.getExternalBuffer()[i]);
        const auto high = static_cast<char>(unit >> 8U);
        const auto low = static_cast<char>(unit & 0xFFU);
        out += bigEndian ? high : low;
        out += bigEndian ? low : high;
    }
    return out;
}

} // namespace

bool Secrets::isSecret(const XmlValue& value) const {
    if (!value.attribute.empty())
        return m_places.matchAttribute(value.path, value.attribute);
    for (std::size_t depth = value.path.size(); depth > 0; --depth) // all below a secret place is secret
        if (m_places.matchElement(std::span(value.path).first(depth)))
            return true;
    return value.path.back() == "value" && namesASecret(value.siblingName);
}

void Secrets::learn(std::string_view xml) {
    walkXml(xml, [&](const XmlValue& value) {
        if (isSecret(value))
            maskOf(value.text);
    });
}

void Secrets::addValue(const std::string& value) {
    const std::string& mask = maskOf(value);
    if (value.size() < SHORTEST_SEARCHED)
        addForms(value, mask);
}

const std::string& Secrets::maskOf(const std::string& value) {
    const auto [entry, isNew] = m_masks.try_emplace(value);
    if (isNew) {
        char mask[24];
        std::snprintf(mask, sizeof mask, "MASKED%06zu", m_masks.size());
        entry->second = mask;
        if (value.size() >= SHORTEST_SEARCHED)
            addForms(value, entry->second);
    }
    return entry->second;
}

void Secrets::addForms(const std::string& value, const std::string& mask) {
    const auto add = [&](const std::string& secret, const std::string& replacement) {
        if (std::ranges::any_of(m_forms, [&](const Form& form) { return form.secret == secret; }))
            return;
        std::string longMask;
        while (longMask.size() < secret.size())
            longMask += replacement;
        longMask.resize(secret.size());
        m_forms.push_back({secret, replacement, longMask});
    };
    add(value, mask);
    add(xmlEscaped(value), mask);
    add(percentEncoded(value), mask);
    add(HBLBase64Encoded(value), HBLBase64Encoded(mask));
    add(utf16(value, false), utf16(mask, false));
    add(utf16(value, true), utf16(mask, true));
    std::ranges::stable_sort(m_forms, std::greater<>(), [](const Form& form) { return form.secret.size(); });
}

std::string Secrets::maskText(std::string_view text, bool keepsLength) {
    std::string out(text);
    for (const Form& form : m_forms) {
        const std::string& mask = keepsLength ? form.longMask : form.mask;
        for (std::size_t at = out.find(form.secret); at != out.npos;
             at = out.find(form.secret, at + mask.size())) {
            out.replace(at, form.secret.size(), mask);
            ++m_masked;
        }
    }
    return out;
}

std::string Secrets::maskXml(std::string_view xml) {
    std::string out;
    std::size_t copied = 0;
    walkXml(xml, [&](const XmlValue& value) {
        out += xml.substr(copied, value.begin - copied);
        copied = value.end;
        const std::string_view bytes = xml.substr(value.begin, value.end - value.begin);
        const bool isMarkup = value.attribute == "type" || value.attribute == "arrayType";
        if (isSecret(value)) {
            out += maskOf(value.text);
            ++m_masked;
        } else {
            out += isMarkup ? std::string(bytes) : maskText(bytes, false);
        }
    });
    return out += xml.substr(copied);
}

} // namespace mrl::tool
