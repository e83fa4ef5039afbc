#include "HBLIDOM/detail/XmlLibrary.h"

#include <xercesc/util/PlatformUtils.hpp>

namespace mrl::detail {

void startXmlLibrary() {
    static const bool s_isStarted = (xercesc::XMLPlatformUtils::Initialize(), true);
    static_cast<void>(s_isStarted);
}

} // namespace mrl::detail
