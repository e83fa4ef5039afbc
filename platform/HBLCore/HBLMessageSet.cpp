#include "HBLCore/HBLMessageSet.h"

#include "HBLCore/HBLFailure.h"

void HBLMessageSet::addMessage(const HBLMessageBase& message) {
    hblRethrowing("HBLMessageSet::addMessage",
                  [&] { m_messages.push_back(std::shared_ptr<const HBLMessageBase>(message.clone())); });
}

void HBLMessageSet::transferMessages(const HBLMessageSet& other) {
    hblRethrowing("HBLMessageSet::transferMessages", [&] {
        const auto theirs = other.m_messages; // a copy, since `other` may be this set
        m_messages.insert(m_messages.end(), theirs.begin(), theirs.end());
    });
}

std::string HBLMessageSet::format(const char* language) const {
    std::string all;
    std::string one;
    for (const auto& message : m_messages) {
        message->format(language, one);
        if (&message != &m_messages.front())
            all += '\n';
        all += one;
    }
    return all;
}

const HBLMessageBase& HBLMessageSet::getMessageAt(std::size_t index) const {
    HBL_ASSERT(index < m_messages.size());
    return *m_messages[index];
}
