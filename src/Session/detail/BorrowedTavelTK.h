#pragma once

#include "TavelTK/TavelTK.h"

namespace mrl::detail {

/// Passes everything on to a factory that somebody else owns, for those who own what they pass on to.
class BorrowedTavelTK : public TavelTK {
public:
    explicit BorrowedTavelTK(TavelTK& borrowed)
        : m_borrowed(borrowed) {}

    void setProperty(const std::string& name, int value) override { m_borrowed.setProperty(name, value); }
    void setProperty(const std::string& name, const std::string& value) override {
        m_borrowed.setProperty(name, value);
    }
    TavelTKSession* getSession(char* url, char* sessionConfig, int timeLimit) override {
        return m_borrowed.getSession(url, sessionConfig, timeLimit);
    }
    TavelTKSession* getSession(HBLIDOM_Element& endpoint, char* sessionConfig, int timeLimit) override {
        return m_borrowed.getSession(endpoint, sessionConfig, timeLimit);
    }
    TavelTKSession* getSession(const char* host, int port, const char* path, char* sessionConfig,
                               int timeLimit) override {
        return m_borrowed.getSession(host, port, path, sessionConfig, timeLimit);
    }
    TavelTKServerSocket* getServerSocket(char* host, int port, char* config) override {
        return m_borrowed.getServerSocket(host, port, config);
    }
    TavelTKServerSocket* getServerSocket(int port, char* config) override {
        return m_borrowed.getServerSocket(port, config);
    }
    TavelTKServerSession* getServerSession(TavelTKSocket* socket) override {
        return m_borrowed.getServerSession(socket);
    }
    TavelTKSocket* getSocket() override { return m_borrowed.getSocket(); }

private:
    TavelTK& m_borrowed;
};

} // namespace mrl::detail
