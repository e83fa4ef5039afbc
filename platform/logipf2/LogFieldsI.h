#pragma once

#include "HBLCore/MRLExport.h"

#include <cstdint>

class I18NString;

/// Takes the fields of a record one by one, in the order in which the record's line has them. The names are
/// written as they are given: letters and digits.
class MRL_EXPORT LogFieldsI {
public:
    virtual ~LogFieldsI();

    /// Any text: what would break the line, or could be taken for a field of its own, is escaped.
    virtual void text(const char* name, const I18NString& value) = 0;
    virtual void number(const char* name, std::int64_t value) = 0;
    /// The fields up to the matching endGroup() stand in a group of this name.
    virtual void beginGroup(const char* name) = 0;
    virtual void endGroup() = 0;
};
