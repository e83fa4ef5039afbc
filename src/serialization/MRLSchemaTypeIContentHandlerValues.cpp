// How the reader turns the text of an element into its value.
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "serialization/MRLSchemaTypeIContentHandler.h"
#include "serialization/MRL_AttachmentHandler.h"
#include "serialization/detail/Adopt.h"
#include "serialization/detail/Boolean.h"
#include "serialization/detail/Throw.h"

#include "HBLCore/HBLArena.h"
#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQBase64InputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"

#include <array>
#include <clocale>
#include <cstdlib>
#include <locale.h> // strtod_l
#include <memory>
#include <string_view>
#include <utility>

using mrl::detail::adopted;
using mrl::detail::throwFailure;
using mrl::detail::toBoolean;

namespace {

/// @param name the element, for the failure.
/// @throws MRLException when `text` holds anything but digits and `others`.
void requireOnly(std::string_view text, std::string_view others, const char* name, const char* type) {
    for (const char c : text) {
        if ((c < '0' || c > '9') && others.find(c) == std::string_view::npos) {
            throwFailure(HBL_HERE, "MRLSchemaTypeIContentHandler::characters", msg::invalidNumber, name,
                         type);
        }
    }
}

/// Whatever the locale of the host. What follows the number is passed over; no number is 0.
float toFloat(const char* text) {
    static const locale_t s_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return static_cast<float>(strtod_l(text, nullptr, s_locale));
}

int toInt(const char* text) {
    return static_cast<int>(std::strtol(text, nullptr, 10));
}

void decodeBase64(std::string_view text, MRLBase64Binary& value) {
    PLQMemoryInputStream characters(text.data(), text.size());
    PLQBase64InputStream decoded(characters);
    std::array<char, 1024> piece;
    for (;;) {
        const std::size_t n = decoded.read(piece.data(), piece.size());
        if (PLQInputStream::isEnd(n)) {
            return;
        }
        value.append(piece.data(), n);
    }
}

} // namespace

void* MRLSchemaTypeIContentHandler::newValue(ObjectType type) {
    HBL_ASSERT_NAMED(type != MRLSchemaTypeI::e_Unknown, "Received invalid objType.");
    const HBLArena::Scope together;
    switch (type) {
    case MRLSchemaTypeI::eString:
    case MRLSchemaTypeI::eDateTime:
    case MRLSchemaTypeI::eQName:
    case MRLSchemaTypeI::eAnyType: return nullptr; // the text becomes the value
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger:
        return adopted(*m_objectRegistry, hblNew<int>(HBL_HERE, 0), MRLObjectRegistryI::eRSDeleteScalar1);
    case MRLSchemaTypeI::eBoolean:
        return adopted(*m_objectRegistry, hblNew<int>(HBL_HERE, 0), MRLObjectRegistryI::eRSDeleteScalar1);
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eFloat:
        return adopted(*m_objectRegistry, hblNew<float>(HBL_HERE, 0.0F),
                       MRLObjectRegistryI::eRSDeleteScalar2);
    case MRLSchemaTypeI::eBase64Binary: return adopted(*m_objectRegistry, hblNew<MRLBase64Binary>(HBL_HERE));
    default: return adopted(*m_objectRegistry, MRLSchemaTypesFactory::getInstance().create(type));
    }
}

void MRLSchemaTypeIContentHandler::setCurrentCharacterData(ElementEntry& entry) {
    if (!m_hasText) {
        return;
    }
    const char* const name = entry.nameText();
    void* const currentObj = entry.getParamValue();
    switch (entry.getParamType()) {
    case MRLSchemaTypeI::eString:
    case MRLSchemaTypeI::eDateTime:
    case MRLSchemaTypeI::eQName:
    case MRLSchemaTypeI::eAnyType:
        HBL_ASSERT(!currentObj);
        entry.setParamValue(takeText());
        return;
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger:
        m_currentText.trim();
        requireOnly(m_currentText.view(), " +-", name, "int");
        *static_cast<int*>(currentObj) = toInt(m_currentText.str());
        break;
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eFloat:
        m_currentText.trim();
        requireOnly(m_currentText.view(), " +-.DEde", name, "float");
        *static_cast<float*>(currentObj) = toFloat(m_currentText.str());
        break;
    case MRLSchemaTypeI::eBoolean:
        m_currentText.trim();
        *static_cast<int*>(currentObj) = toBoolean(m_currentText.view(), name);
        break;
    case MRLSchemaTypeI::eBase64Binary:
        m_currentText.trim();
        decodeBase64(m_currentText.view(), *static_cast<MRLBase64Binary*>(currentObj));
        break;
    default:
        HBL_ASSERT(currentObj);
        setOwnText(entry);
        break;
    }
    m_currentText.reset();
}

/// The text as a value of its own, which the registry owns. A short one gets the room it needs and no more,
/// since most of a reply is short texts.
MRL_String* MRLSchemaTypeIContentHandler::takeText() {
    constexpr std::size_t shortText = 4096;
    const HBLArena::Scope together;
    std::unique_ptr<MRL_String> text(hblNew<MRL_String>(HBL_HERE));
    if (m_currentText.pcount() < shortText) {
        text->assignExactly(m_currentText.view());
    } else {
        std::swap(*text, m_currentText);
    }
    m_objectRegistry->registerPointer(text.get());
    m_hasText = false;
    return text.release();
}

/// Gives the text to an object that has a text of its own. Most have none, and then the text, white
/// space between elements, need not be kept.
void MRLSchemaTypeIContentHandler::setOwnText(ElementEntry& entry) {
    if (!entry.takesText && !m_contentId) {
        return;
    }
    MRLSchemaTypeI& object = *entry.object();
    if (!m_contentId && entry.plan == nullptr) {
        const ObjectType type = entry.getParamType();
        const bool isHandWritten =
            type > MRLSchemaTypeI::eAnyType && type <= MRLSchemaTypeI::eMRLZOR_Unsupported;
        if (isHandWritten || MRLSchemaTypesFactory::isString(object.getChildType("")) == 0) {
            return;
        }
    }
    MRL_String* const text = takeText();
    const std::size_t index = object.setChildObject("", text, MRLSchemaTypeI::eString, nullptr);
    if (m_contentId) {
        // The text is interface, and stands in one piece.
        // clang-format off
        HBL_ASSERT_NAMED(m_attachmentHandler, "MRLSchemaTypeIContentHandler::setCurrentCharacterData - Handler not configured to process href attachments. ");
        // clang-format on
        m_attachmentHandler->registerHref(m_contentId->c_str(), &object, "", MRLSchemaTypeI::eString, index);
    }
}

void MRLSchemaTypeIContentHandler::setInParent(const ElementEntry& entry, MRLSchemaTypeI& parent) {
    const ObjectType type = entry.getParamType();
    const std::size_t index = parent.setChildObject(entry.nameText(), entry.getParamValue(), type, nullptr);
    const bool mayBeAttached = MRLSchemaTypesFactory::isString(type) != 0 ||
                               MRLSchemaTypesFactory::isBase64(type) != 0 || type == MRLSchemaTypeI::eBoolean;
    if (m_contentId && mayBeAttached) {
        // The text is interface, and stands in one piece.
        // clang-format off
        HBL_ASSERT_NAMED(m_attachmentHandler, "MRLSchemaTypeIContentHandler::endElement - Handler not configured to process href attachments. ");
        // clang-format on
        m_attachmentHandler->registerHref(m_contentId->c_str(), &parent, entry.nameText(), type, index);
    }
}
