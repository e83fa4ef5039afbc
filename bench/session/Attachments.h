#pragma once

#include <cstddef>
#include <memory>
#include <string>

class MRLSOAPSession;

namespace mrl::bench {

/// How fast one large attachment travelled, and what it took.
struct Transfer {
    double mebibytesPerSecond = 0;
    double peakMebibytes = 0; ///< resident memory over what there was before
};

/// A document of `size` bytes in a file, for as many calls as wanted, on both roads.
/// The bare road reads and writes a file of its own with the same buffers as the toolkit's.
class LargeDocument {
public:
    /// @param directory where the bare road's files lie.
    LargeDocument(std::string directory, std::size_t size);
    ~LargeDocument();
    LargeDocument(const LargeDocument&) = delete;
    LargeDocument& operator=(const LargeDocument&) = delete;

    /// Sends the document with a small query; the peer takes all of it and answers.
    Transfer up(const MRLSOAPSession& session) const;
    Transfer bareUp(unsigned port, const std::string& path) const;

    /// Receives a reply with a document of that size.
    Transfer down(const MRLSOAPSession& session) const;
    Transfer bareDown(unsigned port, const std::string& path) const;

private:
    struct Stored;
    std::string m_directory;
    std::size_t m_size;
    std::unique_ptr<Stored> m_stored;
};

} // namespace mrl::bench
