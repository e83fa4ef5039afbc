#include "soap/Call.h"

#include "store/StoreError.h"

#include "PLQStreams/PLQGZIPOutputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

namespace mrl::bus {

namespace {

std::string packed(const std::string& bytes) {
    constexpr std::size_t room = 16384;
    PLQMemoryOutputStream memory(room, room);
    {
        PLQGZIPOutputStream gzip(memory);
        gzip.write(bytes.data(), bytes.size());
        gzip.unWrap();
    }
    return {memory.bytes(), memory.length()};
}

} // namespace

std::string OutgoingAttachments::add(const std::string& contentType, std::string bytes, DataForm form) {
    const bool compressed = form == DataForm::attachedCompressed && !bytes.empty();
    m_list.push_back({"part" + std::to_string(m_list.size() + 1) + "@mrl-bus", contentType,
                      compressed ? packed(bytes) : std::move(bytes), compressed});
    return m_list.back().id;
}

DataForm dataFormFrom(const std::string& text) {
    if (text == "base64")
        return DataForm::base64;
    return text == "MIMECompressed" ? DataForm::attachedCompressed : DataForm::attached;
}

void requireChange(const Caller& caller) {
    if (!caller.mayChange)
        throw StoreError(
            StoreErrorCode::noPermission,
            "Your passport gives no right to change anything; log on with a credential, or send the "
            "request encrypted.");
}

} // namespace mrl::bus
