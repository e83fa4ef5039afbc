#pragma once

#include "Toolkit/MRL_AttachmentContainerI.h"
#include "Toolkit/MRL_Streamable.h"

#include <cstdint>
#include <string>

namespace mrl::bus {

/// The bytes of an attachment of a request, in memory, as a value that can be read again and again.
class AttachedBytes : public MRL_AttachmentContainerI {
public:
    /// How much the attachments of one request may have when they are unpacked. Made on the thread that reads
    /// the request, before its attachments are.
    class Budget {
    public:
        explicit Budget(std::uint64_t bytes);
        ~Budget();
        Budget(const Budget&) = delete;
        Budget& operator=(const Budget&) = delete;
    };

    /// A factory for MRL_AttachmentHandler.
    static MRL_AttachmentContainerI* create();

    /// @throws Unreadable beyond the budget.
    void write(const char* data, std::size_t size) override;
    const char* c_str() override { return nullptr; }
    MRL_Streamable* getStreamable() override { return &m_content; }

private:
    class Content : public MRL_Streamable {
    public:
        void append(const char* data, std::size_t size) { m_bytes.append(data, size); }

        using PLQInputStream::read;
        std::size_t read(char* buffer, std::size_t count) override;
        void operator>>(PLQOutputStream& out) const override;
        std::int64_t seek(std::int64_t position, eMRL_Streamable_Seek origin) override;

    private:
        std::string m_bytes;
        std::size_t m_position = 0;
    };

    static thread_local std::uint64_t s_left;

    Content m_content;
};

} // namespace mrl::bus
