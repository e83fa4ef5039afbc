#pragma once

#include "Session/MRLAttachmentList.h"
#include "Session/MRLDocumentOutput.h"

#include "HBLCore/HBLSmartPointer.h"

#include <list>
#include <string>
#include <vector>

namespace mrl::tool {

/// A file that is to go out with a request.
struct AttachedFile {
    std::string id;
    std::string path;
    std::string mimeType = "application/octet-stream";

    /// "ID=FILE" or "ID=FILE;TYPE".
    /// @throws std::runtime_error
    static AttachedFile parse(const std::string& argument);
};

/// The documents of a request, and what keeps them alive.
class AttachedFiles {
public:
    /// Reads the files.
    /// @param compress packs them with gzip.
    /// @throws JsonError when `contentIds`, what the request refers to, and the files do not match;
    /// std::runtime_error for a file that cannot be read.
    AttachedFiles(const std::vector<AttachedFile>& files, const std::vector<std::string>& contentIds,
                  bool compress);

    const MRLAttachmentList& list() const { return m_list; }

private:
    std::vector<AttachedFile> m_files; // own the ids
    std::list<MRLDocumentOutput> m_documents;
    MRLAttachmentList m_list;
};

} // namespace mrl::tool
