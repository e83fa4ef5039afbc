#pragma once

#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

#include <cstdint>
#include <map>

/// The toolkit's tuning values, by name. A value that is absent keeps the caller's default, so an empty store
/// is a normal one. Reading is safe from any thread.
class MRL_EXPORT MRLProperty {
public:
    static const MRLProperty& getInstance();

    /// @return 1 and the text when there is such a value; else 0, and `value` stays as it was.
    int getValue(const char* name, I18NString& value) const;
    /// The same for values that are numbers.
    int getValue(const char* name, int& value) const;
    int getValue(const char* name, unsigned int& value) const;

private:
    struct PropertyValue {
        int isNumber = 0;
        I18NString value;
    };

    MRLProperty() = default;
    const PropertyValue* find(const char* name) const;
    const PropertyValue* findNumber(const char* name) const;
    static std::uint32_t getKey(const char* name);

    std::map<std::uint32_t, PropertyValue> m_values; // by CRC-32 of the name
};
