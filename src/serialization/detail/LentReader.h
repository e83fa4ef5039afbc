#pragma once

#include "serialization/detail/EnvelopeReader.h"

#include <memory>

namespace mrl::detail {

/// A reader for one document, lent from the thread that reads: what a reader needs at its start costs as much
/// as a small reply. Each thread keeps one at most, and none that a failure or a large document has used.
/// Documents may be read inside each other.
class LentReader {
public:
    LentReader();
    ~LentReader();
    LentReader(const LentReader&) = delete;
    LentReader& operator=(const LentReader&) = delete;

    EnvelopeReader* operator->() const { return m_reader.get(); }

    /// The document was read to its end, and was small: the reader is as good as new.
    void giveBack() { m_isGood = true; }

private:
    std::unique_ptr<EnvelopeReader> m_reader;
    bool m_isGood = false;
};

} // namespace mrl::detail
