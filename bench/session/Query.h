#pragma once

#include "Toolkit/MRLPortTypeBinding.h"

#include "HBLCore/HBLSmartPointer.h"

#include <string>

class MRLSOAPSession;

namespace mrl::bench {

using Binding = HBLSmartPointer<MRLPortTypeBinding>;

inline constexpr const char* s_searchPath = "/content/folder[@name='Sales']/report[@name='Quarterly']";
inline constexpr const char* s_reportName = "Quarterly revenue & margin";

/// The request that every client sends: four properties of the reports below a path, sorted.
Binding smallQuery(const char* searchPath = s_searchPath);

/// One whole call, from nothing to the name of the first object of the reply.
std::string query(const MRLSOAPSession& session, const char* searchPath = s_searchPath);

/// A reply with `count` reports of four properties each, made by hand.
Binding replyOf(long count);

/// The envelope that answers: `count` reports, and `blanks` bytes of white space between them.
std::string envelopeOf(long count, std::size_t blanks = 0);

/// The envelope of a reply whose only object has its value in the attachment `contentId`.
std::string envelopeWithAttachment(const std::string& contentId);

} // namespace mrl::bench
