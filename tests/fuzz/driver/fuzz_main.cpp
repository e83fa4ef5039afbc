// One program for each target: MRL_FUZZ_TARGET is its function.
#include "fuzz/Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    mrl::fuzz::MRL_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
    return 0;
}
