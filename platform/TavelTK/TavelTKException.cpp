#include "TavelTK/TavelTKException.h"

#include <string>

namespace {

const char* textOf(int errorCode) {
    const TavelTKErrorInfo* const info = findTavelTKError(errorCode);
    return info ? info->text : "The bus toolkit failed.";
}

std::string_view words(TavelTKPhase phase) {
    switch (phase) {
    case TavelTKPhase::prepare: return "preparing the exchange";
    case TavelTKPhase::connect: return "connecting to";
    case TavelTKPhase::send: return "sending to";
    case TavelTKPhase::awaitReply: return "awaiting the reply of";
    case TavelTKPhase::readReply: return "reading the reply of";
    case TavelTKPhase::echo: return "writing the echo";
    }
    return {};
}

std::string compose(TavelTKError error, TavelTKPhase phase, std::string_view peer, std::string_view cause) {
    const bool isWithPeer = phase != TavelTKPhase::prepare && phase != TavelTKPhase::echo;
    std::string text = textOf(static_cast<int>(error));
    text.append(" (").append(words(phase));
    if (!peer.empty())
        text.append(isWithPeer ? " " : " with ").append(peer);
    return text.append(": ").append(cause).append(")");
}

} // namespace

TavelTKException::TavelTKException(TavelTKError error, TavelTKPhase phase, std::string_view peer,
                                   std::string_view cause)
    : HBLErrorOf(static_cast<int>(error), compose(error, phase, peer, cause).c_str(), s_name)
    , m_phase(phase) {}

TavelTKException::TavelTKException(int errorCode, const char* text)
    : HBLErrorOf(errorCode, text, textOf(errorCode)) {}

const char* TavelTKException::getErrorCodePrefix() const {
    return "HBL-BIT";
}
