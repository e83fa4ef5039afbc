#include "logipf2/detail/GuardedSink.h"

#include "logipf2/detail/Descriptor.h"
#include "logipf2/detail/JsonLine.h"
#include "logipf2/detail/LogClock.h"
#include "logipf2/detail/RotatingFile.h"
#include "logipf2/detail/StandardError.h"
#include "logipf2/detail/SystemLog.h"

namespace mrl::detail {

namespace {

constexpr std::int64_t SILENCE_MILLISECONDS = 60'000;

std::unique_ptr<LineWriterI> makeWriter(const SinkDefinition& definition) {
    switch (definition.kind) {
    case SinkDefinition::eFile:
        return std::make_unique<RotatingFile>(definition.path, definition.maxSize, definition.maxFiles);
    case SinkDefinition::eSystemLog: return std::make_unique<SystemLog>(definition.facility);
    case SinkDefinition::eStandardError: break;
    }
    return std::make_unique<StandardError>();
}

} // namespace

GuardedSink::GuardedSink(std::string name, const SinkDefinition& definition)
    : base_sink(nullptr) // lines come formatted
    , m_name(std::move(name))
    , m_definition(definition)
    , m_writer(makeWriter(definition)) {}

void GuardedSink::sink_it_(const spdlog::details::log_msg& message) {
    if (m_lost > 0 && attempt(spdlog::level::err, lineOfGap(m_lost, m_reason))) {
        m_lost = 0;
    }
    if (m_lost > 0 || !attempt(message.level, {message.payload.data(), message.payload.size()})) {
        ++m_lost;
    }
}

bool GuardedSink::attempt(spdlog::level::level_enum severity, std::string_view line) {
    const LineWriterI::Result result = m_writer->write(severity, line);
    if (!result.trouble.empty()) {
        m_reason = result.trouble;
        tell(result.written ? result.trouble : result.trouble + "; records are lost until that is mended");
    }
    return result.written;
}

void GuardedSink::tell(const std::string& trouble) {
    const std::int64_t now = logClock().monotonicMilliseconds();
    if (now < m_silentUntil) {
        return;
    }
    m_silentUntil = now + SILENCE_MILLISECONDS;
    tellOperator("sink \"" + m_name + "\" (" + m_writer->describe() + ") " + trouble);
}

} // namespace mrl::detail
