#pragma once

// How failure is written, once for the whole toolkit: the throw macros, and with HBLBoundary.h the
// allocation rule.

#include "HBLCore/HBLAssertError.h"
#include "HBLCore/HBLBoundary.h"
#include "HBLCore/HBLException.h"
#include "HBLCore/HBLFileLocation.h"
#include "HBLCore/HBLIllegalStateError.h"
#include "HBLCore/HBLOutOfMemoryError.h"
#include "HBLCore/HBLStdExceptionError.h"
#include "HBLCore/HBLThrowable.h"
#include "HBLCore/HBLUnknownError.h"

#include <string>

#ifndef FALSE
/// For HBL_ASSERT_NAMED(FALSE, "...").
inline constexpr int FALSE = 0;
#endif

/// Throws HBLAssertError with `wholeText` as its text.
[[noreturn]] MRL_EXPORT void hblAssertFailed(std::string wholeText, const HBLFileLocation& where,
                                             const char* function = nullptr);
[[noreturn]] MRL_EXPORT void hblAssertFailed(const char* wholeText, const HBLFileLocation& where,
                                             const char* function = nullptr);

/// Checks a requirement, also in released code: throws HBLAssertError with the call as its text.
#define HBL_ASSERT(...)                                                                                      \
    do {                                                                                                     \
        if (!(__VA_ARGS__)) [[unlikely]]                                                                     \
            hblAssertFailed("HBL_ASSERT(" #__VA_ARGS__ ");", HBL_HERE, __func__);                            \
    } while (false)

/// The same; the text, a literal, is part of the text of the error.
#define HBL_ASSERT_NAMED(condition, text)                                                                    \
    do {                                                                                                     \
        if (!(condition)) [[unlikely]]                                                                       \
            hblAssertFailed("HBL_ASSERT_NAMED(" #condition ", " #text ");", HBL_HERE, __func__);             \
    } while (false)

/// Throws a copy of `object` with a back trace entry for this place; `function` may be nullptr.
#define HBL_THROW(object, function) (object).hurl(HBL_HERE, function, "HBL_THROW")

/// Inside `catch (HBLThrowable& e)`: adds a back trace entry and lets the same object go on.
#define HBL_RETHROW(function)                                                                                \
    do {                                                                                                     \
        e.addBackTrace(HBL_HERE, function, "HBL_RETHROW");                                                   \
        throw;                                                                                               \
    } while (false)
