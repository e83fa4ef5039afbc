#pragma once

#include "serialization/MRLReaderLimits.h"

#include "PLQStreams/PLQInputStream.h"

#include <cstdint>
#include <exception>

namespace mrl::detail {

/// The bytes of a document on their way to the parser, counted. No exception goes through the parser's
/// own code: a failure is kept, the document ends there for the parser, and who drives the parser
/// asks for the failure.
class GuardedInput final : public PLQInputStream {
public:
    /// Both are borrowed.
    GuardedInput(PLQInputStream& in, const MRLReaderLimits& limits)
        : m_in(in)
        , m_limits(limits) {}
    ~GuardedInput() override;

    using PLQInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override;

    /// The parser has made something of the bytes so far.
    void noteProgress() { m_bytesAtProgress = m_bytes; }

    std::uint64_t bytes() const { return m_bytes; }

    /// Throws the failure that ended the document, if one did.
    void rethrowFailure() const {
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
    }

private:
    PLQInputStream& m_in;
    const MRLReaderLimits& m_limits;
    std::uint64_t m_bytes = 0;
    std::uint64_t m_bytesAtProgress = 0;
    std::exception_ptr m_failure;
};

/// @throws MRLException always: a document exceeds a limit of the reader.
[[noreturn]] void limitExceeded(const char* what, const char* limit, std::uint64_t value);

} // namespace mrl::detail
