// Recording and playback: where a call's files are, and the toolkits that write and read them.
#include "Common/EchoTavelTK.h"
#include "Session/MRLSOAPSession.h"
#include "Session/MRLTestInfo.h"
#include "Session/detail/AmbientTraffic.h"
#include "Session/detail/BusFactory.h"
#include "Session/detail/Exchange.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLPortTypeI.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmDir.h"
#include "TavelTK/TavelTK.h"

#include <stdexcept>
#include <tuple>

using mrl::detail::Exchange;
using mrl::detail::RecordedFiles;

namespace {

std::string asPrefix(const char* baseDir) {
    std::string prefix(baseDir);
    if (prefix.empty()) {
        throw std::out_of_range("invalid string position"); // callers know the empty directory by this
    }
    if (prefix.back() != '/') {
        prefix += '/';
    }
    return prefix;
}

} // namespace

void MRLSOAPSession::createFileFullPaths(MRLPortTypeBinding& binding, const char* baseDir,
                                         std::string& requestFile, std::string& requestAttachmentFile,
                                         std::string& responseFile, int playback) const {
    HBL_ASSERT_NAMED(baseDir, "This parameter cannot be NULL.");
    const std::string name = binding.getBoundPortType().getName();
    const auto counter = m_fileCounters.find(name);
    const int count = counter == m_fileCounters.end() ? 0 : counter->second;
    const std::string prefix = asPrefix(baseDir);
    const std::string call = prefix + name + "." + std::to_string(count) + "-";
    const std::string request = call + binding.getInputMessage().getGeneratedMessageName();
    requestFile = request + ".xml";
    requestAttachmentFile = request + ".attachment";
    responseFile = call + binding.getOutputMessage().getGeneratedMessageName() + ".xml";
    if (playback == 0 || HBLFmDir::exists(requestFile.c_str(), HBLFmDir::eReadableFile) != 0) {
        m_fileCounters[name] = count + 1;
        return;
    }
    createFileFullPaths(binding, (prefix + "../").c_str(), requestFile, requestAttachmentFile, responseFile,
                        0);
    m_fileCounters.clear();
}

RecordedFiles MRLSOAPSession::nextFiles(MRLPortTypeBinding& binding, const char* baseDir,
                                        int playback) const {
    std::unique_lock<std::mutex> lock;
    if (m_ambientTraffic != nullptr) {
        lock = std::unique_lock<std::mutex>(m_ambientTraffic->lock());
    }
    RecordedFiles files;
    createFileFullPaths(binding, baseDir, files.request, files.requestAttachment, files.response, playback);
    return files;
}

bool MRLSOAPSession::playsBackForTheEnvironment() const {
    return m_ambientTraffic != nullptr && m_playbackBaseDir == m_ambientTraffic->playbackDir();
}

void MRLSOAPSession::chooseToolkit(Exchange& exchange, MRLPortTypeBinding& binding) const {
    if (m_playbackBaseDir == nullptr) {
        chooseBus(exchange, binding);
        return;
    }
    if (playsBackForTheEnvironment()) {
        exchange.own(m_ambientTraffic->playBack(nextFiles(binding, m_playbackBaseDir, 0)));
        return;
    }
    HBL_ASSERT_NAMED(m_testInfo, "Playback is enabled, but the MRLTestInfo object is NULL.");
    const RecordedFiles files = nextFiles(binding, m_playbackBaseDir, 1);
    exchange.borrow(&m_testInfo->getRecordedFilesAsSessionFactory(files.request, files.requestAttachment,
                                                                  files.response));
}

void MRLSOAPSession::chooseBus(Exchange& exchange, MRLPortTypeBinding& binding) const {
    if (!isRecording()) {
        exchange.own(mrl::detail::createBusFactory());
        return;
    }
    const RecordedFiles files = nextFiles(binding, m_recordingBaseDir, 0);
    std::unique_ptr<TavelTK> bus = mrl::detail::createBusFactory();
    std::unique_ptr<TavelTK> echo(
        hblNew<EchoTavelTK>(HBL_HERE, bus.get(), files.request, files.requestAttachment, files.response));
    std::ignore = bus.release();
    exchange.own(std::move(echo));
    exchange.setRecording(true);
}
