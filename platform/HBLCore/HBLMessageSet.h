#pragma once

#include "HBLCore/HBLMessageBase.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// Messages in the order they were added. Copies share them: a message in a set never changes.
class MRL_EXPORT HBLMessageSet {
public:
    /// Adds a copy of `message`.
    /// @throws HBLOutOfMemoryError
    void addMessage(const HBLMessageBase& message);

    /// Appends the messages of `other` behind those of this set.
    void transferMessages(const HBLMessageSet& other);

    /// All texts in `language` (null is the default language), one a line, UTF-8.
    std::string format(const char* language = nullptr) const;

    std::size_t getMessageCount() const noexcept { return m_messages.size(); }

    /// Borrowed. @throws HBLAssertError when there is none at `index`.
    const HBLMessageBase& getMessageAt(std::size_t index) const;

private:
    std::vector<std::shared_ptr<const HBLMessageBase>> m_messages;
};
