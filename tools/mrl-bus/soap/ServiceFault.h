#pragma once

#include <string>

namespace mrl::bus {

/// A refusal as a client gets it: a SOAP fault with one documented detail.
struct ServiceFault {
    bool clientsFault = true; ///< SOAP-ENV:Client, else SOAP-ENV:Server
    std::string summary;      ///< one line of plain text without markup
    std::string code;         ///< such as "cmNoRead"; README.md lists them
    std::string message;      ///< what exactly, where, and what to do

    /// The whole envelope.
    std::string toEnvelope() const;
};

} // namespace mrl::bus
