#include "HBLCore/HBLFailure.h"

#include <new>

// Callers hand over a text that they made for it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void hblAssertFailed(std::string wholeText, const HBLFileLocation& where, const char* function) {
    HBLAssertError(0, wholeText.c_str()).hurl(where, function, "HBL_THROW");
}

void hblAssertFailed(const char* wholeText, const HBLFileLocation& where, const char* function) {
    HBLAssertError(0, wholeText).hurl(where, function, "HBL_THROW");
}
