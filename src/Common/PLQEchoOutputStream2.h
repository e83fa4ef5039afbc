#pragma once

#include "PLQStreams/PLQOutputStream.h"

/// Hands everything to two streams of equal rank, the first one first. Each operation ends at the first
/// failure.
class MRL_EXPORT PLQEchoOutputStream2 : public PLQOutputStream {
public:
    /// Takes ownership of both, also when it fails.
    /// @throws HBLAssertError when either is null.
    PLQEchoOutputStream2(PLQOutputStream* target1, PLQOutputStream* target2);

    /// Borrows both.
    PLQEchoOutputStream2(PLQOutputStream& target1, PLQOutputStream& target2);

    /// Flushes both targets, then deletes those it owns; failures go unnoticed here.
    ~PLQEchoOutputStream2() override;

    void write(const char* data, std::size_t length) override;
    void flush() override;
    void close() override;

private:
    PLQOutputStream* m_pEchoTarget1; // owned or borrowed, as m_ownsTargets says
    PLQOutputStream* m_pEchoTarget2;
    bool m_ownsTargets;
};
