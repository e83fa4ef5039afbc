#pragma once

#include "HBLCore/HBLFailure.h"
#include "HBLCore/MRLExport.h"
#include "TavelTK/TavelTKError.h"

#include <string_view>

/// What an exchange was doing when it failed.
enum class TavelTKPhase { prepare, connect, send, awaitReply, readReply, echo };

/// A failure of the bus toolkit. The error code is one of TavelTKError; the message names the peer, the
/// phase and the cause: "The connection was refused. (connecting to 10.0.0.7:9300: Connection refused)".
/// A SOAP fault is no such failure.
class MRL_EXPORT TavelTKException : public HBLErrorOf<TavelTKException> {
public:
    static constexpr const char* s_name = "TavelTKException";

    /// @param peer "host:port"; empty while no endpoint is known.
    /// @param cause what happened, in the words of whoever found it, without a full stop.
    TavelTKException(TavelTKError error, TavelTKPhase phase, std::string_view peer, std::string_view cause);

    /// For doubles of the bus. A null `text` is the text of the list for that code.
    explicit TavelTKException(int errorCode, const char* text = nullptr);

    TavelTKPhase getPhase() const noexcept { return m_phase; }

protected:
    const char* getErrorCodePrefix() const override;

private:
    TavelTKPhase m_phase = TavelTKPhase::prepare;
};
