#pragma once

#include "Session/MRLProperty.h"
#include "Session/MRLPropertyFile.h"

#include <string>

namespace mrl::detail {

/// What tests need of the property store: a file of their own, and a store that they fill.
struct PropertyAccess {
    /// The next MRLProperty::getInstance() reads `path`; relative means as in MRLProperty.
    static void setConfigFile(const std::string& path) { MRLProperty::setConfigFile(path); }
    static constexpr const char* defaultConfigFile = MRLPropertyFile::s_location;

    /// Sets a property of the store that the process uses, which is read first if it is not there.
    static void setValue(const char* name, const I18NString& value, int isNumber) {
        const_cast<MRLProperty&>(MRLProperty::getInstance()).setValue(name, value, isNumber);
    }
    static unsigned int getKey(const char* name) { return MRLProperty::getKey(name); }
};

} // namespace mrl::detail
