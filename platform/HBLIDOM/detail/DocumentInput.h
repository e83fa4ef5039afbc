#pragma once

#include "HBLIDOM/HBLIDOM_ParserLimits.h"
#include "PLQStreams/PLQInputStream.h"

#include <cstdint>
#include <exception>

namespace mrl::detail {

/// The bytes of a document on their way to the parser, counted. No exception goes through the parser's
/// own code: the document ends there for the parser, and who drives it asks here for the reason.
class DocumentInput final : public PLQInputStream {
public:
    /// Both are borrowed.
    DocumentInput(PLQInputStream& in, const HBLIDOM_ParserLimits& limits)
        : m_in(in)
        , m_limits(limits) {}
    ~DocumentInput() override;

    using PLQInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override;

    /// Throws what the stream threw, if it did.
    void rethrowFailure() const;
    /// The document has more bytes than it may have.
    bool isTooLong() const { return m_isTooLong; }

private:
    PLQInputStream& m_in;
    const HBLIDOM_ParserLimits& m_limits;
    std::uint64_t m_bytes = 0;
    bool m_isTooLong = false;
    std::exception_ptr m_failure;
};

} // namespace mrl::detail
