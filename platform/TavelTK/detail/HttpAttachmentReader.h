#pragma once

#include "TavelTK/TavelTKAttachmentReader.h"
#include "TavelTK/detail/MultipartReader.h"
#include "TavelTK/detail/SourceStream.h"

#include <string>

namespace mrl::detail {

/// The current part of a multipart reply.
class HttpAttachmentReader : public TavelTKAttachmentReader {
public:
    explicit HttpAttachmentReader(ByteSource& part, Headers headers);

    const char* getContentID() override;
    const char* getContentType() override;
    int getContentLength() override;
    const char* getHeader(const char* name) override;
    int isGzipped() override;
    PLQInputStream& getInputStream() override { return m_stream; }

private:
    const char* textOf(const char* name) const;

    const Headers m_headers;
    SourceStream m_stream;
};

} // namespace mrl::detail
