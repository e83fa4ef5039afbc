#pragma once

#include "HBLCore/MRLExport.h"

/// A place in the source: file name and line, by value. The name is borrowed and must outlive the
/// object (a literal).
class MRL_EXPORT HBLFileLocation {
public:
    constexpr HBLFileLocation(const char* file, int line) noexcept
        : m_file(file)
        , m_line(line) {}

    /// The place of the call; as a default argument, the place of the outermost call.
    static constexpr HBLFileLocation current(const char* file = __builtin_FILE(),
                                             int line = __builtin_LINE()) noexcept {
        return {file, line};
    }

    constexpr const char* getFile() const noexcept { return m_file; }
    constexpr int getLine() const noexcept { return m_line; }

private:
    const char* m_file;
    int m_line;
};

/// The current place.
#define HBL_HERE HBLFileLocation(__FILE__, __LINE__)
