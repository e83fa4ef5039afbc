#include "PLQStreams/detail/FileFailure.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQStreamError.h"

#include <system_error>

namespace mrl::detail {

void fileFailed(const char* done, const std::string& path, int error, const char* function) {
    HBL_THROW(PLQStreamError(ePLQStreamFile, "The file \"" + path + "\" cannot be " + done + ": " +
                                                 std::generic_category().message(error) + "."),
              function);
}

} // namespace mrl::detail
