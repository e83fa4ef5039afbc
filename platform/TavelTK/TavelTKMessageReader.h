#pragma once

#include "HBLCore/MRLExport.h"

class HBLIDOM_Node;
class PLQInputStream;
class TavelTKAttachmentReader;

/// Reads one message: its envelope, then its attachments one after the other. The streams and attachment
/// readers that it hands out belong to it and are valid until they are closed. closeEnvelope takes any
/// stream: what is closed is what is open.
class MRL_EXPORT TavelTKMessageReader {
public:
    /// @param exchange the number of the exchange within its session, from 1; a session carries one.
    explicit TavelTKMessageReader(int exchange);
    virtual ~TavelTKMessageReader();
    TavelTKMessageReader(const TavelTKMessageReader&) = delete;
    TavelTKMessageReader& operator=(const TavelTKMessageReader&) = delete;

    virtual void getEnvelope(HBLIDOM_Node& envelope) = 0;
    /// Waits for the reply and opens its envelope, once a message. A SOAP fault is an envelope like any.
    virtual PLQInputStream& openEnvelope() = 0;
    virtual void closeEnvelope(PLQInputStream& envelope) = 0;

    /// Not 0 if the message is of a kind that can hold attachments.
    virtual int canHaveAttachments() = 0;
    /// Not 0 while one more attachment can be opened. Skips what is left of the part before it.
    virtual int hasMoreAttachments() = 0;
    virtual TavelTKAttachmentReader& openNextAttachment() = 0;
    virtual void closeAttachment(TavelTKAttachmentReader& attachment) = 0;

    /// A header of the reply by its name, in any case; null if there is none. Valid as long as the reader.
    virtual const char* getHeader(const char* name) = 0;

    int exchange() const { return m_exchange; }

private:
    int m_exchange;
};
