#include "MRLVersion.h"

const char* mrlVersion() noexcept {
    return MRL_VERSION;
}
