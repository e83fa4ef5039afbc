#include "serialization/MRLContentHandler.h"

#include "Toolkit/MRLObjectRegistryI.h"

#include "HBLCore/I18NConverter.h"

namespace {

std::u16string_view viewed(const XMLCh* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

} // namespace

MRLContentHandler::~MRLContentHandler() = default;

std::unique_ptr<char[]> MRLContentHandler::convert(const XMLCh* text) const {
    return std::unique_ptr<char[]>(m_converter->fromUnicodeNew(viewed(text)));
}

bool MRLContentHandler::convert(const XMLCh* text, char* buffer, std::size_t size) const {
    return m_converter->fromUnicode(viewed(text), buffer, size) != 0;
}

const char* MRLContentHandler::convertInto(MRLObjectRegistryI& registry, const XMLCh* text) const {
    std::unique_ptr<char[]> narrow = convert(text);
    registry.registerPointer(narrow.get(), MRLObjectRegistryI::eRSDeleteArray);
    return narrow.release();
}
