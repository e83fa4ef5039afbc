#include "HBLIDOM/detail/XmlLibrary.h"

#include "HBLCore/HBLBoundary.h"

#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace mrl::detail {

void startXmlLibrary() {
    static const bool s_isStarted = (xercesc::XMLPlatformUtils::Initialize(), true);
    static_cast<void>(s_isStarted);
}

void xmlRethrowCurrent(const char* function, const HBLFileLocation& where) {
    try {
        throw;
    } catch (const xercesc::OutOfMemoryException&) {
        hblOutOfMemory(where, function);
    } catch (...) {
        hblRethrowCurrent(function, where);
    }
}

} // namespace mrl::detail
