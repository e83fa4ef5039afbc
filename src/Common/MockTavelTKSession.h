#pragma once

#include "TavelTK/TavelTKSession.h"

#include <memory>

class MockTavelTKMessageReader;
class MockTavelTKMessageWriter;

/// The exchange of a MockTavelTK. It survives its release, so that what was sent can be looked at.
class MRL_EXPORT MockTavelTKSession : public TavelTKSession {
public:
    /// Owns both once the object is made.
    /// @throws HBLAssertError when either is null.
    MockTavelTKSession(MockTavelTKMessageReader* reader, MockTavelTKMessageWriter* writer);
    /// Ends the reader, then the writer.
    ~MockTavelTKSession() override;

    const MockTavelTKMessageReader& getMockTavelTKMessageReader() const { return *m_pReader; }
    const MockTavelTKMessageWriter& getMockTavelTKMessageWriter() const { return *m_pWriter; }

    /// Properties of a connection, which there is none of.
    void setProperty(const std::string& name, int value) override;
    TavelTKMessageWriter& openRequest(int hasAttachments) override;
    void closeRequest(TavelTKMessageWriter& writer) override;
    TavelTKMessageReader& openResponse() override;
    void closeResponse(TavelTKMessageReader& reader) override;
    void release() override;

    /// Not supported, like all that follow: an assertion.
    void setProperty(const std::string& name, const std::string& value) override;
    void doRequest(HBLIDOM_Element& request, HBLIDOM_Node& response) override;
    void sendRequest(HBLIDOM_Element& request) override;
    void getResponse(HBLIDOM_Node& response) override;

private:
    std::unique_ptr<MockTavelTKMessageWriter> m_pWriter;
    std::unique_ptr<MockTavelTKMessageReader> m_pReader;
};
