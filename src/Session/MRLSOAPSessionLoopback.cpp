// Calls of a service of the own process: the callback's reply is read as if it had come over the bus.
#include "Common/MRLPLQMemoryOutputStream.h"
#include "Common/PLQEchoOutputStream.h"
#include "Session/MRLSOAPSession.h"
#include "Session/MRLServiceCallbackI.h"
#include "Session/detail/AmbientTraffic.h"
#include "Session/detail/LentHeader.h"
#include "Session/detail/Wire.h"
#include "Toolkit/MRLPortTypeBinding.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQFileOutputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"

namespace {

constexpr int REPLY_SIZE = 30720;

/// What the bus would have carried.
void recordRequest(MRLPortTypeBinding& binding, const std::string& path) {
    PLQFileOutputStream file(path, 0);
    mrl::detail::createSerializer()->serialize(binding, binding.getInputMessage(), file, nullptr, 1, 0);
    file.close();
}

/// The file holds what was written so far when the callback throws.
void answerRecorded(MRLPortTypeBinding& binding, const MRLServiceCallbackI& callback,
                    MRLPLQMemoryOutputStream& memory, const std::string& path) {
    PLQFileOutputStream file(path, 0);
    PLQEchoOutputStream tee;
    tee.wrap(memory, file);
    callback.handleRequest(binding, tee);
    tee.unWrap();
    file.close();
}

} // namespace

int MRLSOAPSession::submitLoopback(MRLPortTypeBinding& binding, const MRLServiceCallbackI& callback) const {
    if (m_playbackBaseDir != nullptr) {
        return 0;
    }
    mrl::detail::LentHeader header;
    header.lend(binding.getInputMessage(), m_tavelHeader);
    MRLPLQMemoryOutputStream memory(REPLY_SIZE);
    if (isRecording()) {
        const mrl::detail::RecordedFiles files = nextFiles(binding, m_recordingBaseDir, 0);
        recordRequest(binding, files.request);
        answerRecorded(binding, callback, memory, files.response);
    } else {
        callback.handleRequest(binding, memory);
    }
    PLQMemoryInputStream in(memory.bytes(), static_cast<std::size_t>(memory.length()));
    mrl::detail::createDeserializer()->parse(in, binding, binding.getOutputMessage());
    return 1;
}
