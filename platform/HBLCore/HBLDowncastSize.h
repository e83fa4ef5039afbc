#pragma once

#include "HBLCore/HBLFailure.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <utility>

/// Narrowing that is checked: a value that does not fit throws HBLAssertError naming the value, it is
/// never cut.
class HBLDowncastSize {
public:
    template <std::integral T>
    static std::int32_t int32(T value, const HBLFileLocation& where = HBLFileLocation::current()) {
        return to<std::int32_t>(value, "int32", where);
    }
    template <std::integral T>
    static std::uint32_t uint32(T value, const HBLFileLocation& where = HBLFileLocation::current()) {
        return to<std::uint32_t>(value, "uint32", where);
    }
    template <std::integral T>
    static std::int64_t int64(T value, const HBLFileLocation& where = HBLFileLocation::current()) {
        return to<std::int64_t>(value, "int64", where);
    }
    template <std::integral T>
    static std::size_t size(T value, const HBLFileLocation& where = HBLFileLocation::current()) {
        return to<std::size_t>(value, "size", where);
    }

private:
    template <class To, class From>
    static To to(From value, const char* name, const HBLFileLocation& where) {
        if (!std::in_range<To>(value)) [[unlikely]]
            hblAssertFailed("HBLDowncastSize::" + std::string(name) + "(" + std::to_string(value) +
                                ") does not fit",
                            where);
        return static_cast<To>(value);
    }
};
