#pragma once

#include <utility>
#include <vector>

class MRLDocumentOutputI;

/// The documents that travel with a request: content id and document. The caller owns the list, the ids
/// and the documents, and keeps them until the call has ended.
using MRLAttachmentList = std::vector<std::pair<const char*, MRLDocumentOutputI*>>;
