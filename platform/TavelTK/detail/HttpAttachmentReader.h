#pragma once

#include "TavelTK/TavelTKAttachmentReader.h"
#include "TavelTK/detail/ReplyParts.h"
#include "TavelTK/detail/SourceStream.h"

#include <string>

namespace mrl::detail {

/// The current part of a multipart reply.
class HttpAttachmentReader : public TavelTKAttachmentReader {
public:
    /// Takes the part at which `parts` stands.
    explicit HttpAttachmentReader(ReplyParts& parts);

    const char* getContentID() override;
    const char* getContentType() override;
    int getContentLength() override;
    const char* getHeader(const char* name) override;
    int isGzipped() override;
    PLQInputStream& getInputStream() override { return m_stream; }

private:
    const char* textOf(const char* name) const;

    const Headers m_headers;
    const bool m_isDecoded;
    const bool m_isInflated;
    SourceStream m_stream;
};

} // namespace mrl::detail
