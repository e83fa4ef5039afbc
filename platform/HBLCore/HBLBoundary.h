#pragma once

// The boundary rule: no standard exception passes a boundary of the toolkit, and every throwable that
// passes one gets a back trace entry.

#include "HBLCore/HBLFileLocation.h"

#include <cstddef>
#include <new>
#include <utility>

/// Throws HBLOutOfMemoryError.
[[noreturn]] MRL_EXPORT void hblOutOfMemory(const HBLFileLocation& where, const char* function = nullptr);

/// The boundary rule, for use inside `catch (...)`: a throwable of the toolkit gets a back trace entry
/// "HBL_RETHROW" and goes on as the same object, std::bad_alloc becomes HBLOutOfMemoryError, another
/// std::exception becomes HBLStdExceptionError, anything else goes on unchanged.
[[noreturn]] MRL_EXPORT void hblRethrowCurrent(const char* function, const HBLFileLocation& where);

/// Runs `step` under the boundary rule and returns its result. For outward calls.
template <class F>
decltype(auto) hblRethrowing(const char* function, F&& step,
                             const HBLFileLocation& where = HBLFileLocation::current()) {
    try {
        return std::forward<F>(step)();
    } catch (...) {
        hblRethrowCurrent(function, where);
    }
}

/// `new T(args...)` under the boundary rule. Never null.
template <class T, class... Args>
T* hblNew(const HBLFileLocation& where, Args&&... args) {
    try {
        if (T* made = new T(std::forward<Args>(args)...))
            return made;
    } catch (...) {
        hblRethrowCurrent(nullptr, where);
    }
    hblOutOfMemory(where);
}

/// `new char[n]` under the same rule; the bytes are not initialized. Give back with delete[].
MRL_EXPORT char* hblNewChars(const HBLFileLocation& where, std::size_t n);

/// Throws a copy of `thrown`, which is of its own type T; HBLOutOfMemoryError when there is no memory for
/// the copy. What every hurl() ends with.
template <class T>
[[noreturn]] void hblThrowCopy(const T& thrown, const HBLFileLocation& where, const char* function) {
    try {
        throw T(thrown);
    } catch (const std::bad_alloc&) {
        hblOutOfMemory(where, function);
    }
}
