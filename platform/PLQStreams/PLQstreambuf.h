#pragma once

#include "HBLCore/MRLExport.h"

#include <memory>
#include <streambuf>

class PLQInputStream;
class PLQOutputStream;

/// Lets std::istream and std::ostream work on byte streams, which it borrows.
///
/// An std::ostream turns the exceptions of a stream into badbit; with `exceptions(std::ios::badbit)` the
/// original exception goes on to the caller instead.
class MRL_EXPORT PLQstreambuf : public std::streambuf {
public:
    PLQstreambuf();
    explicit PLQstreambuf(PLQOutputStream& out);
    explicit PLQstreambuf(PLQInputStream& in);
    PLQstreambuf(PLQInputStream& in, PLQOutputStream& out);

    /// Hands on what is buffered; a failure goes unnoticed here: use pubsync() or std::flush.
    ~PLQstreambuf() override;

    PLQstreambuf(const PLQstreambuf&) = delete;
    PLQstreambuf& operator=(const PLQstreambuf&) = delete;

    /// Hands on what is buffered for the output so far, then writes to `out`.
    void wrap(PLQOutputStream& out);

    /// Reads from `in` from now on; what was read ahead is dropped.
    void wrap(PLQInputStream& in);

    /// Hands on what is buffered and lets go of both streams.
    void unWrap();

protected:
    int_type underflow() override;
    std::streamsize xsgetn(char* buffer, std::streamsize count) override;
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* data, std::streamsize length) override;

    /// Hands on what is buffered and flushes the output stream.
    int sync() override;

private:
    void drain();

    PLQInputStream* m_in = nullptr;   // borrowed
    PLQOutputStream* m_out = nullptr; // borrowed
    std::unique_ptr<char[]> m_inBuffer;
    std::unique_ptr<char[]> m_outBuffer;
};
