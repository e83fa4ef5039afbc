#pragma once

#include "HBLCore/MRLExport.h"

#include <string>

/// Operations on directories and paths, UTF-8. Failure is a result of 0. Thread-safe.
class MRL_EXPORT HBLFmDir {
public:
    /// A readable regular file, for exists().
    static constexpr int eReadableFile = 0x8100;

    /// Makes a relative path absolute, taken from the installation's directory for programs: "bin" in
    /// the directory that the environment variable MRL_HOME names when it is set, else the directory of
    /// the running program. "." and ".." are resolved without looking at links. An empty path stays.
    static void resolveEffectivePath(std::string& path);

    /// Makes a directory and those above it, for the owner alone where they are new.
    /// @return 1 when it is there in the end, else 0.
    static int createRecursiveDir(const char* path);

    /// Tests for what stands at `path`: with the kind bits of `mode` (0170000) for that kind of file, with
    /// its owner bits (0400, 0200, 0100) for this process being allowed to read, write, execute. Mode 0
    /// tests for anything.
    /// @return 1 or 0.
    static int exists(const char* path, int mode);

    /// Creates an empty file with a new name, `prefix` and random letters, for the owner alone.
    /// @param name receives its path.
    /// @return 1, or 0 on failure.
    static int createTempFile(const char* directory, const char* prefix, std::string& name);

    /// Splits at the last "/". Without one the directory is "."; a "/" at the front is kept ("/", "file").
    /// Either target may be null.
    static void splitPath(const std::string& path, std::string* directory, std::string* file);
};
