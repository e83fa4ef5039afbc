#include "HBLCore/HBLBoundary.h"

#include "HBLCore/HBLOutOfMemoryError.h"
#include "HBLCore/HBLStdExceptionError.h"

#include <limits>
#include <new>

void hblOutOfMemory(const HBLFileLocation& where, const char* function) {
    HBLOutOfMemoryError(0, nullptr).hurl(where, function, "HBL_THROW");
}

void hblRethrowCurrent(const char* function, const HBLFileLocation& where) {
    try {
        throw;
    } catch (HBLThrowable& e) {
        e.addBackTrace(where, function, "HBL_RETHROW");
        throw;
    } catch (const std::bad_alloc&) {
        hblOutOfMemory(where, function);
    } catch (const std::exception& e) {
        HBLStdExceptionError(e).hurl(where, function, "HBL_THROW");
    }
}

char* hblNewChars(const HBLFileLocation& where, std::size_t n) {
    if (n > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max())) // no object is larger
        hblOutOfMemory(where);
    try {
        return new char[n];
    } catch (...) {
        hblRethrowCurrent(nullptr, where);
    }
}
