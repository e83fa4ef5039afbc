#pragma once

#include "TavelTK/detail/ByteSource.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace mrl::detail {

/// Throws the exception of what cannot be decoded. @param isTooLarge it is sound, but beyond a limit
using RefuseCoding = std::function<void(bool isTooLarge, const std::string& cause)>;

/// Takes a coding off bytes while they are read, in constant memory.
class PartDecoder : public ByteSource {
public:
    /// @param coding "base64" or "quoted-printable", in any case; null for others.
    static std::unique_ptr<PartDecoder>
    ofTransferEncoding(std::string_view coding, std::unique_ptr<ByteSource> raw, RefuseCoding refuse);

    PartDecoder(std::unique_ptr<ByteSource> raw, RefuseCoding refuse)
        : m_raw(std::move(raw))
        , m_refuse(std::move(refuse)) {}

    std::size_t read(char* buffer, std::size_t size) final;

protected:
    virtual void decode(std::string_view bytes, std::string& out) = 0;
    /// The bytes have ended.
    virtual void end() = 0;

    [[noreturn]] void refuse(const std::string& cause, bool isTooLarge = false) const;

private:
    std::unique_ptr<ByteSource> m_raw;
    RefuseCoding m_refuse;
    std::string m_out; // decoded and not yet handed out
    std::size_t m_begin = 0;
    bool m_isOver = false;
};

} // namespace mrl::detail
