#pragma once

#include "TavelTK/detail/PartDecoder.h"

#include <cstdint>
#include <memory>
#include <string>

namespace mrl::detail {

/// Unpacks gzip: one member or several in a row.
class Inflater : public ByteSource {
public:
    /// @param maxBytes unpacked, 0: any number.
    /// @param maxRatio of unpacked to packed bytes, looked at beyond the first mebibyte; 0: any.
    Inflater(std::unique_ptr<ByteSource> raw, std::int64_t maxBytes, std::int64_t maxRatio,
             RefuseCoding refuse);
    ~Inflater() override;

    std::size_t read(char* buffer, std::size_t size) override;

private:
    struct State;
    [[noreturn]] void refuse(const std::string& cause, bool isTooLarge = false) const;
    bool fill();
    void checkSize() const;

    std::unique_ptr<ByteSource> m_raw;
    const std::int64_t m_maxBytes;
    const std::int64_t m_maxRatio;
    RefuseCoding m_refuse;
    std::unique_ptr<State> m_state;
};

} // namespace mrl::detail
