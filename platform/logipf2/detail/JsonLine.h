#pragma once

#include "logipf2/LogFieldsI.h"

#include <string>
#include <string_view>

class LOGObject;

namespace mrl::detail {

/// One record as one line of JSON. Whatever a text holds, it stays inside its quotes and on its line: control
/// characters, line and paragraph separators and marks of direction are escaped, what is not valid Unicode
/// becomes U+FFFD.
class JsonLine final : public LogFieldsI {
public:
    JsonLine();

    void text(const char* name, const I18NString& value) override;
    void utf8(const char* name, std::string_view value);
    void number(const char* name, std::int64_t value) override;
    void beginGroup(const char* name) override;
    void endGroup() override;

    /// The finished line, its line feed at the end. Nothing may be added behind it.
    std::string finish();

private:
    void name(const char* name);
    template <class Unit>
    void quoted(std::basic_string_view<Unit> text);

    std::string m_line = "{";
    bool m_first = true; // no field in the open group yet
};

/// The line of a record: time, logger, kind, level, process and thread, then the record's own fields.
std::string lineOf(std::string_view loggerName, const LOGObject& record);

/// The same for a record that says that `lost` records could not be written.
std::string lineOfGap(std::int64_t lost, std::string_view reason);

} // namespace mrl::detail
