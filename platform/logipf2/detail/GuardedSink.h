#pragma once

#include "logipf2/detail/LineWriterI.h"
#include "logipf2/detail/LogConfiguration.h"

#include <spdlog/sinks/base_sink.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>

namespace mrl::detail {

/// A sink that fails for nobody: what cannot be written is counted, the operator is told once, and the sink
/// says in a record of its own how many are missing as soon as it can.
class GuardedSink final : public spdlog::sinks::base_sink<std::mutex> {
public:
    GuardedSink(std::string name, const SinkDefinition& definition);

    const SinkDefinition& getDefinition() const { return m_definition; }

    /// Around a fork, so that the child finds no line half written and no lock taken for ever.
    void lock() { mutex_.lock(); }
    void unlock() { mutex_.unlock(); }
    /// In the child, while locked.
    void forked() { m_writer->forked(); }

protected:
    void sink_it_(const spdlog::details::log_msg& message) override;
    void flush_() override {} // nothing is held back

private:
    bool attempt(spdlog::level::level_enum severity, std::string_view line);
    void tell(const std::string& trouble);

    const std::string m_name;
    const SinkDefinition m_definition;
    std::unique_ptr<LineWriterI> m_writer;
    std::int64_t m_lost = 0; // since the last line that was written
    std::string m_reason;    // of the last loss
    std::int64_t m_silentUntil =
        std::numeric_limits<std::int64_t>::min(); // the operator is told nothing before
};

} // namespace mrl::detail
