#pragma once

#include "Session/MRLSOAPSessionI.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

class I18NString;
class MRLIPFLogger;
class MRLMessageI;
class MRLSOAPFaultException;
class MRLTestInfo;
class PLQMemoryOutputStream;
class TavelTK;
class TavelTKMessageReader;
class TavelTKMessageWriter;

namespace mrl::detail {
class AmbientTraffic;
class Exchange;
struct RecordedFiles;
} // namespace mrl::detail

/// Carries one typed call at a time over the bus: chooses endpoint and toolkit, sends, receives, and gives
/// everything back on every way out.
///
/// No connection state lives between calls. Without recording and playback nothing in the session changes
/// during `submit`, so one session may serve several threads; a session that records or plays back belongs
/// to one.
class MRL_EXPORT MRLSOAPSession : public MRLSOAPSessionI {
public:
    /// Limit of one exchange in seconds.
    static constexpr int TIME_LIMIT = 1000;
    static const char* const SESSION_CONFIG_DOC_START;
    static const char* const SESSION_CONFIG_DOC_END;

    /// All pointers are borrowed and must outlive the session; texts are not copied.
    /// @param header lent to requests without a header; may be null when every request has its own.
    /// @param logger null makes the session own one.
    /// @param testInfo needed for playback only.
    /// @param recordingBaseDir where to record the traffic; null for no recording.
    /// @param playbackBaseDir where to answer from; null for no playback.
    /// @param clientID service id of the calling component.
    /// With neither directory, the environment may ask for recording or playback (docs/recording.md).
    /// @throws MRLException when it does and the directory cannot be made.
    MRLSOAPSession(const MRLTavelHeader* header, MRLIPFLogger* logger, MRLTestInfo* testInfo,
                   const char* recordingBaseDir, const char* playbackBaseDir, const char* clientID);
    ~MRLSOAPSession() override;
    MRLSOAPSession(const MRLSOAPSession&) = delete;
    MRLSOAPSession& operator=(const MRLSOAPSession&) = delete;

    void setURI(const char* uri) override;
    void setURI(const std::string& uri) override;
    void submit(MRLPortTypeBinding& binding, const MRLAttachmentList& attachments, MRLSOAPTrusted trusted,
                const MRLServiceCallbackI* callback) const override;
    void submit(MRLPortTypeBinding& binding, MRLSOAPTrusted trusted,
                const MRLServiceCallbackI* callback) const override;
    const MRLTavelHeader* getTavelHeader() const override { return m_tavelHeader; }

    /// The explicit endpoint, null when there is none.
    const char* getURI() const { return m_uri.get(); }
    void setTavelHeader(const MRLTavelHeader* header) { m_tavelHeader = header; }
    /// Borrows `logger` from now on; frees the one that the session made itself.
    void setLogger(MRLIPFLogger* logger);
    void setTestInfo(MRLTestInfo* testInfo) { m_testInfo = testInfo; }
    const char* getClientID() const { return m_clientID; }
    /// Both start the numbering of the recorded files anew, and replace what the environment asked for
    /// (docs/recording.md). The directory must exist; files of the same name are overwritten.
    void setRecordingBaseDir(const char* directory);
    void setPlaybackBaseDir(const char* directory);

private:
    void initialize();
    void getSessionConfigDoc(std::string& out) const;
    void resolveEndpoint(const char* soapAction, const MRLServiceCallbackI* pLoopback, I18NString& url) const;
    void chooseToolkit(mrl::detail::Exchange& exchange, MRLPortTypeBinding& binding) const;
    /// The bus itself, or the one that records.
    void chooseBus(mrl::detail::Exchange& exchange, MRLPortTypeBinding& binding) const;
    /// The paths of the next call's files, which takes a number of its port type. While playing back, with no
    /// request file there, those in the directory above, and all counting starts anew.
    void createFileFullPaths(MRLPortTypeBinding& binding, const char* baseDir, std::string& requestFile,
                             std::string& requestAttachmentFile, std::string& responseFile,
                             int playback) const;
    mrl::detail::RecordedFiles nextFiles(MRLPortTypeBinding& binding, const char* baseDir,
                                         int playback) const;
    bool playsBackForTheEnvironment() const;
    bool isRecording() const { return m_recordingBaseDir != nullptr && m_recordingMode == 1; }

    void exchangeMessages(mrl::detail::Exchange& exchange, MRLPortTypeBinding& binding,
                          const MRLAttachmentList& attachments, MRLSOAPTrusted trusted,
                          std::unique_ptr<PLQMemoryOutputStream>& requestCopy) const;
    void sendOnce(mrl::detail::Exchange& exchange, MRLPortTypeBinding& binding,
                  const MRLAttachmentList& attachments, MRLSOAPTrusted trusted,
                  std::unique_ptr<PLQMemoryOutputStream>& requestCopy) const;
    void retry(mrl::detail::Exchange& exchange, MRLPortTypeBinding& binding,
               const MRLAttachmentList& attachments, MRLSOAPTrusted trusted,
               std::unique_ptr<PLQMemoryOutputStream>& requestCopy) const;
    void resendTrusted(mrl::detail::Exchange& exchange, MRLPortTypeBinding& binding,
                       const MRLAttachmentList& attachments, PLQMemoryOutputStream& requestCopy) const;
    int submitLoopback(MRLPortTypeBinding& binding, const MRLServiceCallbackI& callback) const;

    void send(TavelTKMessageWriter& writer, MRLPortTypeBinding& binding, MRLMessageI& message,
              const MRLAttachmentList& attachments, PLQMemoryOutputStream* outputStream, int bTrusted,
              const char* uri) const;
    void sendAttachments(TavelTKMessageWriter& writer, const MRLAttachmentList& attachments) const;
    void receive(TavelTKMessageReader& reader, MRLPortTypeBinding& binding, MRLMessageI& message,
                 int bRecording, const char* uri) const;

    void audit(int level, const char* operation, const char* status, std::string_view text,
               std::string_view context) const;
    bool isAuditEnabled(int level) const;
    /// Serializes the request anew for the audit log, since nothing kept it. Only when the full traffic is
    /// not logged already.
    void auditRequest(MRLPortTypeBinding& binding, const char* uri, bool isFailure) const;
    void auditFailedExchange(const char* fullText, const char* shortText) const;
    std::string requestContext(const MRLPortTypeBinding& binding, const char* uri) const;
    std::string clientText() const { return m_clientID == nullptr ? std::string() : m_clientID; }

    const MRLTavelHeader* m_tavelHeader; // borrowed
    MRLTestInfo* m_testInfo;             // borrowed
    MRLIPFLogger* m_logger;              // owned only while m_ownsLogger
    bool m_ownsLogger = false;
    const char* m_clientID;                            // borrowed
    const char* m_recordingBaseDir;                    // borrowed
    const char* m_playbackBaseDir;                     // borrowed
    mutable std::map<std::string, int> m_fileCounters; // next recorded file of each port type
    int m_recordingMode = 0;
    std::unique_ptr<char[]> m_uri;
    int m_requestRetries = 0;
    std::unique_ptr<mrl::detail::AmbientTraffic> m_ambientTraffic; // null, unless the environment asks
};
