#pragma once

#include <memory>
#include <string>

class TavelTK;
class TavelTKMessageReader;
class TavelTKMessageWriter;
class TavelTKSession;

namespace mrl::detail {

/// What one call holds of the bus, and the order in which it goes back: writer, reader, session, factory.
/// A new attempt begins with `begin`, on the same factory.
class Exchange {
public:
    Exchange(std::string url, std::string configDoc, bool hasAttachments);
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    /// The factory of this exchange, given back last.
    void own(std::unique_ptr<TavelTK> factory);
    /// The same for a factory that somebody else owns.
    void borrow(TavelTK* factory);
    /// Whether the traffic is recorded by the factory.
    void setRecording(bool recording) { m_recording = recording; }
    bool isRecording() const { return m_recording; }

    const char* getURL() const { return m_url.c_str(); }

    /// Gets a session and sets its properties.
    /// @param echoFile where the bus toolkit echoes the traffic; null for nowhere.
    void begin(const char* echoFile);
    TavelTKMessageWriter& openRequest(int hasAttachments);
    TavelTKMessageWriter& openRequest() { return openRequest(m_hasAttachments ? 1 : 0); }
    void closeRequest();
    TavelTKMessageReader& openResponse();
    void closeResponse();
    void release();

    /// Makes ready for another `begin`: the reader and the session go back, a writer left over does not.
    void abandon();

    /// Gives back what is held, whatever fails on the way.
    void giveBack() noexcept;

private:
    std::string m_url;
    std::string m_configDoc;
    bool m_hasAttachments;
    bool m_recording = false;
    std::unique_ptr<TavelTK> m_ownedFactory;
    TavelTK* m_factory = nullptr;             // m_ownedFactory or borrowed
    TavelTKSession* m_session = nullptr;      // goes back by release()
    TavelTKMessageWriter* m_writer = nullptr; // of m_session
    TavelTKMessageReader* m_reader = nullptr; // of m_session
};

} // namespace mrl::detail
