#pragma once

#include "PLQStreams/PLQFilterOutputStream.h"

/// A filter that hands each write to its downstream and then, if that did not fail, to an echo target:
/// the recorder and the audit log see exactly what went out. Both streams are borrowed. Nothing is
/// copied or held back.
class PLQEchoOutputStream : public PLQFilterOutputStream {
public:
    PLQEchoOutputStream() = default;
    /// Without a target it is a plain filter.
    explicit PLQEchoOutputStream(PLQOutputStream& out);
    PLQEchoOutputStream(PLQOutputStream& out, PLQOutputStream& echoTarget);

    /// Flushes the target; a failure goes unnoticed here.
    ~PLQEchoOutputStream() override;

    /// @throws HBLAssertError when there is no downstream.
    void write(const char* data, std::size_t length) override;

    /// Closes both streams, the downstream first.
    /// @throws HBLAssertError when there is no downstream.
    void close() override;

    /// Exchanges the downstream and keeps the target.
    void wrap(PLQOutputStream& out) override;

    /// Lets go of both streams without touching them.
    void unWrap() override;

    virtual void wrap(PLQOutputStream& out, PLQOutputStream& echoTarget);

private:
    PLQOutputStream* m_pEchoTarget = nullptr; // borrowed
};
