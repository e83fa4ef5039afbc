#pragma once

#include "report/Conversations.h"
#include "soap/Answer.h"
#include "soap/Call.h"
#include "soap/ContentManager.h"
#include "soap/Logon.h"
#include "soap/Passports.h"
#include "soap/ReportService.h"

#include "ZORCrypto/ZORTrustedReader.h"

#include <cstdint>
#include <string>

class MRLTavelHeader;
class TavelTKMessageReader;

namespace mrl::bus {

/// What the services keep between two requests, and for how long.
struct ServiceSettings {
    Passports::Settings passports{};
    Conversations::Settings conversations{};
    std::uint64_t maxAttachmentBytes = 64U << 20U; ///< of one request, unpacked
};

/// From the message of a request to the message of its answer. Whatever comes in, something sensible
/// goes out. Any thread may call.
class RequestProcessor {
public:
    explicit RequestProcessor(ContentStore& store, ServiceSettings settings = {});

    /// Reads the request to its end, the attachments included.
    Answer process(TavelTKMessageReader& request);

    /// The answer to a request of which not even the message can be read.
    static Answer unreadable(const std::string& reason);

private:
    Answer perform(TavelTKMessageReader& request);
    Caller callerOf(MRLTavelHeader* header, bool trusted);

    const std::uint64_t m_maxAttachmentBytes;
    ZORTrustedReader m_trustedReader;
    Passports m_passports;
    Conversations m_conversations;
    ContentManager m_contentManager;
    Logon m_logon;
    ReportService m_reportService;
};

} // namespace mrl::bus
