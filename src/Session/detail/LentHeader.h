#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/HBLFailure.h"

namespace mrl::detail {

/// Gives a message without a header the session's own for a while.
class LentHeader {
public:
    LentHeader() = default;
    ~LentHeader() { takeBack(); }
    LentHeader(const LentHeader&) = delete;
    LentHeader& operator=(const LentHeader&) = delete;

    void lend(MRLMessageI& message, const MRLTavelHeader* m_tavelHeader) {
        if (message.getTavelHeader(nullptr) == nullptr) {
            HBL_ASSERT_NAMED(m_tavelHeader, "A Tavel header is required.");
            // Only read while it is lent: the message's interface knows no constant header.
            message.setTavelHeader(const_cast<MRLTavelHeader*>(m_tavelHeader));
            m_message = &message;
        }
    }
    void takeBack() {
        if (m_message != nullptr) {
            m_message->setTavelHeader(nullptr);
            m_message = nullptr;
        }
    }

private:
    MRLMessageI* m_message = nullptr; // set while it holds the lent header
};

} // namespace mrl::detail
