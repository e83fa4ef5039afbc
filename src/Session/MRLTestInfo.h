#pragma once

#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/MRLExport.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class MockTavelTK;
class TavelTK;

/// Settings of a host under test, and the maker and owner of the session factories that answer from recorded
/// files. The toolkit itself only asks for those factories; all else is kept for the host. It must outlive
/// every session that uses it. One thread at a time, but for the reference count.
class MRL_EXPORT MRLTestInfo : public HBLReferenceCount {
public:
    using SessionFactories = std::vector<MockTavelTK*>;

    /// A new object without a reference.
    static MRLTestInfo* create();
    /// Ends the session factories.
    ~MRLTestInfo() override;
    MRLTestInfo(const MRLTestInfo&) = delete;
    MRLTestInfo& operator=(const MRLTestInfo&) = delete;

    /// Makes the process's configuration name exactly one content manager, the first that it names now; a
    /// warning on standard error says so when there are more.
    /// @throws HBLAssertError when the configuration names none.
    static void setContentManager();

    /// A factory that answers with the bytes of `responseFile`, whatever is sent. Owned by this object, and
    /// kept until it ends.
    /// @throws PLQStreamError when the file cannot be read; nothing is kept then.
    TavelTK& getRecordedFilesAsSessionFactory(const std::string& requestFile,
                                              const std::string& requestAttachmentFile,
                                              const std::string& responseFile);
    /// What getRecordedFilesAsSessionFactory() made, in that order; owned by this object.
    const SessionFactories& getSessionFactoriesCreatedFromRecordedFiles() const { return m_factories; }

    /// The name of a file for the output of a report: its name, "_" and the suffix (when there is one), "_"
    /// and the locale (when multi locale is on and a locale is set), "_mt" and the thread (when multi
    /// threaded is on), with "_" in place of blanks, slashes, backslashes and colons.
    void generateOutputName(const char* reportName, const char* suffix, std::string& outName) const;

    /// The fixed time in seconds for output that is to be compared; `t` once activeDateTime() was called.
    std::int64_t getDateTime(std::int64_t t) const { return m_dateTime != 0 ? m_dateTime : t; }
    /// Lets the caller's time pass from now on.
    void activeDateTime() { m_dateTime = 0; }

    /// Null while none is set.
    const char* getLocale() const { return m_locale.empty() ? nullptr : m_locale.c_str(); }
    /// Null for none.
    void setLocale(const char* locale) { m_locale = locale == nullptr ? "" : locale; }
    /// Whether the locale goes into the names of output files.
    int getMultiLocale() const { return m_multiLocale; }
    void setMultiLocale(int flag) { m_multiLocale = flag; }

    /// Whether output names tell the thread that asked for it.
    int getMultiThreaded() const { return m_threadId != 0 ? 1 : 0; }
    /// Not 0: the calling thread from now on. 0: none.
    void setMultiThreaded(int flag);

    /// The text set last; null when there was none.
    const char* getConcurrentQueryJobStateDump() const;
    /// @throws HBLAssertError for null.
    void setConcurrentQueryJobStateDump(const char* pDump);

    // Kept for the host as they are.
    const std::string& getHtmlXsltScript() const { return m_htmlXsltScript; }
    void setHtmlXsltScript(const std::string& script) { m_htmlXsltScript = script; }
    int getIsPromptPageNavigation() const { return m_isPromptPageNavigation; }
    void setIsPromptPageNavigation(int flag) { m_isPromptPageNavigation = flag; }
    int getCompliantSOAPFaults() const { return m_compliantSOAPFaults; }
    void setCompliantSOAPFaults(int flag) { m_compliantSOAPFaults = flag; }
    int getRecordingInState() const { return m_recordingInState; }
    void setRecordingInState(int flag) { m_recordingInState = flag; }
    const std::string& getCSIFilename() const { return m_csiFilename; }
    void setCSIFilename(const std::string& name) { m_csiFilename = name; }
    int getCSIFileCreated() const { return m_csiFileCreated; }
    void setCSIFileCreated(int flag) { m_csiFileCreated = flag; }
    const std::string& getCGSLogFilename() const { return m_cgsLogFilename; }
    void setCGSLogFilename(const std::string& name) { m_cgsLogFilename = name; }
    int getUseTestCssFile() const { return m_useTestCssFile; }
    void setUseTestCssFile(int flag) { m_useTestCssFile = flag; }
    int getUseDispositionTestObjs() const { return m_useDispositionTestObjs; }
    void setUseDispositionTestObjs(int flag) { m_useDispositionTestObjs = flag; }
    std::uint32_t getDisabledCapabilities() const { return m_disabledCapabilities; }
    void setDisabledCapabilities(std::uint32_t bits) { m_disabledCapabilities = bits; }
    int getVmdOption() const { return m_vmdOption; }
    void setVmdOption(int option) { m_vmdOption = option; }
    int getGenerateContextMetadata() const { return m_generateContextMetadata; }
    void setGenerateContextMetadata(int flag) { m_generateContextMetadata = flag; }
    int getUseFrameRowCount() const { return m_useFrameRowCount; }
    void setUseFrameRowCount(int flag) { m_useFrameRowCount = flag; }
    int getDumpXls2007data() const { return m_dumpXls2007data; }
    void setDumpXls2007data(int flag) { m_dumpXls2007data = flag; }
    int getWaitForConcurrentQueryResults() const { return m_waitForConcurrentQueryResults; }
    void setWaitForConcurrentQueryResults(int flag) { m_waitForConcurrentQueryResults = flag; }
    int getDumpConcurrentQueryJobState() const { return m_dumpConcurrentQueryJobState; }
    void setDumpConcurrentQueryJobState(int flag) { m_dumpConcurrentQueryJobState = flag; }
    int getSerializeCallStack() const { return m_serializeCallStack; }
    void setSerializeCallStack(int flag) { m_serializeCallStack = flag; }

protected:
    MRLTestInfo() = default;

private:
    std::int64_t m_dateTime = 1060180744;
    std::string m_htmlXsltScript;
    std::string m_locale;
    std::int32_t m_multiLocale = 0;
    std::int32_t m_isPromptPageNavigation = 0;
    std::uint64_t m_threadId = 0;
    SessionFactories m_factories; // owned, each deleted by the destructor
    std::int32_t m_compliantSOAPFaults = 0;
    std::int32_t m_recordingInState = 1;
    std::string m_csiFilename;
    std::int32_t m_csiFileCreated = 0;
    std::string m_cgsLogFilename;
    std::int32_t m_useTestCssFile = 1;
    std::int32_t m_useDispositionTestObjs = 0;
    std::uint32_t m_disabledCapabilities = 0;
    std::int32_t m_vmdOption = 0;
    std::int32_t m_generateContextMetadata = 0;
    std::int32_t m_useFrameRowCount = 0;
    std::int32_t m_dumpXls2007data = 0;
    std::int32_t m_waitForConcurrentQueryResults = 0;
    std::unique_ptr<std::string> m_concurrentQueryJobStateDump; // null until it is set
    std::int32_t m_dumpConcurrentQueryJobState = 0;
    std::int32_t m_serializeCallStack = 1;
};
