#pragma once

#include <xercesc/sax2/DefaultHandler.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

class I18NConverter;
class MRLObjectRegistryI;

/// Base of the readers' handlers: the way from the parser's UTF-16 to the narrow names of the objects.
/// One thread, one parse.
class MRLContentHandler : public xercesc::DefaultHandler {
public:
    /// @param converter gives the narrow encoding, UTF-8 as it comes; borrowed.
    explicit MRLContentHandler(const I18NConverter* converter)
        : m_converter(converter) {}
    ~MRLContentHandler() override;

    MRLContentHandler(const MRLContentHandler&) = delete;
    MRLContentHandler& operator=(const MRLContentHandler&) = delete;

protected:
    /// `text` on the heap; for null an empty text.
    std::unique_ptr<char[]> convert(const XMLCh* text) const;

    /// `text` into `buffer`; false when it does not fit.
    bool convert(const XMLCh* text, char* buffer, std::size_t size) const;

    /// A text that the registry owns from now on, for names that must live as long as the objects.
    const char* convertInto(MRLObjectRegistryI& registry, const XMLCh* text) const;

    /// A name for as long as an event lasts: short ones need no memory.
    class NarrowName {
    public:
        NarrowName(const MRLContentHandler& handler, const XMLCh* text) {
            if (!handler.convert(text, m_buffer, sizeof m_buffer)) {
                m_long = handler.convert(text);
            }
        }
        const char* c_str() const { return m_long ? m_long.get() : m_buffer; }

    private:
        char m_buffer[256];
        std::unique_ptr<char[]> m_long;
    };

    const I18NConverter* m_converter;
};
