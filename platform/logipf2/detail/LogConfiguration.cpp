#include "logipf2/detail/LogConfiguration.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmFile.h"
#include "logipf2/LogConfigurationError.h"
#include "logipf2/LogTypedLogger.h"
#include "logipf2/detail/ConfigurationTree.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <initializer_list>
#include <syslog.h>

namespace mrl::detail {

namespace {

constexpr std::int64_t MAX_FILE_SIZE = 1048576;
constexpr std::int64_t MAX_QUEUE_SIZE = 65536;
constexpr std::int64_t DEFAULT_QUEUE_SIZE = 1024;
constexpr std::int64_t MAX_OLD_FILES = 1000;
constexpr std::int64_t MAX_LOG_SIZE = std::int64_t{1} << 50;
constexpr const char* LEVELS = "10000, 20000, 30000, 40000, 50000 or \"off\"";

struct Facility {
    std::string_view name;
    int value;
};
constexpr std::array FACILITIES = {
    Facility{"user", LOG_USER},     Facility{"daemon", LOG_DAEMON}, Facility{"auth", LOG_AUTHPRIV},
    Facility{"local0", LOG_LOCAL0}, Facility{"local1", LOG_LOCAL1}, Facility{"local2", LOG_LOCAL2},
    Facility{"local3", LOG_LOCAL3}, Facility{"local4", LOG_LOCAL4}, Facility{"local5", LOG_LOCAL5},
    Facility{"local6", LOG_LOCAL6}, Facility{"local7", LOG_LOCAL7}};

std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces) {
        text += piece;
    }
    return text;
}

/// Turns the tree of one file into a configuration.
class Reader {
public:
    explicit Reader(const std::string& path)
        : m_path(path) {}

    LogConfiguration read(const ConfigurationTree& root) {
        expect(root, ConfigurationTree::eObject, "the configuration");
        for (const auto& [name, value] : root.members) {
            if (name == "asynchronous") {
                readAsynchronous(value);
            } else if (name == "sinks") {
                readSinks(value);
            } else if (name == "loggers") {
                readLoggers(value);
            } else {
                refuseName(value, name, {"asynchronous", "sinks", "loggers"});
            }
        }
        for (const auto& [name, value] : root.members) {
            if (name == "loggers") {
                checkLoggers(value);
            }
        }
        return std::move(m_result);
    }

private:
    void readAsynchronous(const ConfigurationTree& tree) {
        expect(tree, ConfigurationTree::eObject, "\"asynchronous\"");
        std::int64_t size = DEFAULT_QUEUE_SIZE;
        for (const auto& [name, value] : tree.members) {
            if (name != "queueSize") {
                refuseName(value, name, {"queueSize"});
            }
            size = number(value, name, 1, MAX_QUEUE_SIZE);
        }
        m_result.queueSize = static_cast<std::size_t>(size);
    }

    void readSinks(const ConfigurationTree& tree) {
        expect(tree, ConfigurationTree::eObject, "\"sinks\"");
        for (const auto& [name, value] : tree.members) {
            const SinkDefinition sink = readSink(name, value);
            for (const auto& [other, definition] : m_result.sinks) {
                if (sink.kind == SinkDefinition::eFile && definition.path == sink.path) {
                    refuse(value, joined({"sink \"", name, "\" writes the file of sink \"", other,
                                          "\"; give it another \"path\", or use one sink for both"}));
                }
            }
            m_result.sinks.emplace(name, sink);
        }
    }

    SinkDefinition readSink(const std::string& sinkName, const ConfigurationTree& tree) {
        expect(tree, ConfigurationTree::eObject, "sink \"" + sinkName + "\"");
        const auto type = std::find_if(tree.members.begin(), tree.members.end(),
                                       [](const auto& member) { return member.name == "type"; });
        if (type == tree.members.end()) {
            refuse(tree, "sink \"" + sinkName + R"(" has no "type"; write "file", "stderr" or "syslog")");
        }
        SinkDefinition sink;
        const std::string kind = text(type->value, "type");
        if (kind == "file") {
            sink.kind = SinkDefinition::eFile;
            readFile(sinkName, tree, sink);
        } else if (kind == "stderr") {
            sink.kind = SinkDefinition::eStandardError;
            onlyNames(tree, {"type"});
        } else if (kind == "syslog") {
            sink.kind = SinkDefinition::eSystemLog;
            readSystemLog(tree, sink);
        } else {
            refuse(type->value, "\"" + kind + R"(" is no type of sink; write "file", "stderr" or "syslog")");
        }
        return sink;
    }

    void readFile(const std::string& sinkName, const ConfigurationTree& tree, SinkDefinition& sink) {
        for (const auto& [name, value] : tree.members) {
            if (name == "path") {
                // Seen from the configuration, so that it does not depend on where a host was started.
                const std::filesystem::path folder = std::filesystem::path(m_path).parent_path();
                sink.path = (folder / text(value, name)).lexically_normal().string();
            } else if (name == "maxSize") {
                sink.maxSize = number(value, name, 0, MAX_LOG_SIZE);
            } else if (name == "maxFiles") {
                sink.maxFiles = static_cast<int>(number(value, name, 0, MAX_OLD_FILES));
            } else if (name != "type") {
                refuseName(value, name, {"type", "path", "maxSize", "maxFiles"});
            }
        }
        if (sink.path.empty()) {
            refuse(tree, "sink \"" + sinkName + R"(" has no "path"; name the file that it writes)");
        }
    }

    void readSystemLog(const ConfigurationTree& tree, SinkDefinition& sink) {
        sink.facility = LOG_USER;
        onlyNames(tree, {"type", "facility"});
        for (const auto& [name, value] : tree.members) {
            if (name == "facility") {
                const std::string wanted = text(value, name);
                const auto* const found =
                    std::find_if(FACILITIES.begin(), FACILITIES.end(),
                                 [&](const Facility& row) { return row.name == wanted; });
                if (found == FACILITIES.end()) {
                    refuse(value,
                           "\"" + wanted +
                               R"(" is no facility; write "user", "daemon", "auth" or "local0" to "local7")");
                }
                sink.facility = found->value;
            }
        }
    }

    void readLoggers(const ConfigurationTree& tree) {
        expect(tree, ConfigurationTree::eObject, "\"loggers\"");
        for (const auto& [name, value] : tree.members) {
            expect(value, ConfigurationTree::eObject, "logger \"" + name + "\"");
            if (name.empty() || name.front() == '.' || name.back() == '.' ||
                name.find("..") != std::string::npos) {
                refuse(value,
                       "\"" + name + R"(" names no logger; write a name such as "Perf.MRL", or "*" for all)");
            }
            LogConfiguration::Logger& logger = m_result.loggers[name == "*" ? "" : name];
            for (const auto& [property, setting] : value.members) {
                if (property == "level") {
                    logger.threshold = level(setting);
                } else if (property == "sinks") {
                    logger.sinks = sinkNames(setting);
                } else {
                    refuseName(setting, property, {"level", "sinks"});
                }
            }
        }
    }

    std::int64_t level(const ConfigurationTree& tree) {
        if (tree.kind == ConfigurationTree::eText && tree.text == "off") {
            return LOG_OFF;
        }
        const bool known = tree.kind == ConfigurationTree::eNumber && tree.number >= 10000 &&
                           tree.number <= 50000 && tree.number % 10000 == 0;
        if (!known) {
            refuse(tree, std::string("not a level; write ") + LEVELS);
        }
        return tree.number;
    }

    std::vector<std::string> sinkNames(const ConfigurationTree& tree) {
        expect(tree, ConfigurationTree::eList, "\"sinks\" of a logger");
        std::vector<std::string> names;
        for (const ConfigurationTree& item : tree.items) {
            names.push_back(text(item, "sinks"));
        }
        return names;
    }

    /// What only shows when all sinks and loggers are known.
    void checkLoggers(const ConfigurationTree& tree) {
        for (const auto& [name, value] : tree.members) {
            const LogConfiguration::Effective logger = m_result.effective(name == "*" ? "" : name);
            for (const std::string& sink : logger.sinks) {
                if (m_result.sinks.count(sink) == 0) {
                    refuse(value,
                           joined({"logger \"", name, "\" writes to sink \"", sink,
                                   "\", which \"sinks\" does not have; add it there or name another"}));
                }
            }
            if (logger.threshold != LOG_OFF && logger.sinks.empty()) {
                refuse(value, "logger \"" + name +
                                  R"(" has a level but no sink; add "sinks", here or at a name above it)");
            }
        }
    }

    void expect(const ConfigurationTree& tree, ConfigurationTree::Kind kind, const std::string& what) {
        if (tree.kind != kind) {
            refuse(tree, what + (kind == ConfigurationTree::eObject ? " is not an object; write { ... }"
                                                                    : " is not a list; write [ ... ]"));
        }
    }
    std::string text(const ConfigurationTree& tree, const std::string& name) {
        if (tree.kind != ConfigurationTree::eText || tree.text.empty()) {
            refuse(tree, "\"" + name + "\" is not a text; write it in double quotes");
        }
        return tree.text;
    }
    std::int64_t number(const ConfigurationTree& tree, const std::string& name, std::int64_t least,
                        std::int64_t most) {
        if (tree.kind != ConfigurationTree::eNumber || tree.number < least || tree.number > most) {
            refuse(tree, "\"" + name + "\" is out of range; write a whole number from " +
                             std::to_string(least) + " to " + std::to_string(most));
        }
        return tree.number;
    }
    void onlyNames(const ConfigurationTree& tree, std::initializer_list<const char*> known) {
        for (const auto& [name, value] : tree.members) {
            if (std::find(known.begin(), known.end(), name) == known.end()) {
                refuseName(value, name, known);
            }
        }
    }
    [[noreturn]] void refuseName(const ConfigurationTree& tree, const std::string& name,
                                 std::initializer_list<const char*> known) {
        std::string all;
        for (const char* one : known) {
            all += (all.empty() ? "\"" : ", \"") + std::string(one) + "\"";
        }
        refuse(tree, "\"" + name + "\" is not known here; known are " + all);
    }
    [[noreturn]] void refuse(const ConfigurationTree& tree, const std::string& what) {
        refuseConfiguration(m_path, tree.line, what);
    }

    const std::string& m_path;
    LogConfiguration m_result;
};

std::string bytesOf(const std::string& path) {
    const auto refused = [&](const char* reason) {
        HBL_THROW(LogConfigurationError(path + ": " + reason), "readLogConfiguration");
    };
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) {
        refused("there is no such file; create it or name another one");
    }
    HBLFmFile file;
    if (file.open(path.c_str(), HBLFmFile::eOpenExisting, HBLFmFile::eReadOnly) == 0) {
        refused("cannot be opened; check who may read it");
    }
    const std::int64_t length = file.getLength();
    if (length < 0 || length > MAX_FILE_SIZE) {
        refused("is larger than 1 MiB; name a log configuration");
    }
    std::string bytes(static_cast<std::size_t>(length), '\0');
    const std::int64_t got = file.read(bytes.data(), bytes.size());
    if (got < 0) {
        refused("cannot be read; check the disk");
    }
    bytes.resize(static_cast<std::size_t>(got));
    return bytes;
}

} // namespace

LogConfiguration::Effective LogConfiguration::effective(std::string_view loggerName) const {
    std::optional<std::int64_t> threshold;
    const std::vector<std::string>* foundSinks = nullptr;
    for (std::string_view name = loggerName;;) {
        if (const auto found = loggers.find(name); found != loggers.end()) {
            if (!threshold) {
                threshold = found->second.threshold;
            }
            if (foundSinks == nullptr && found->second.sinks) {
                foundSinks = &*found->second.sinks;
            }
        }
        if (name.empty()) {
            break;
        }
        const std::size_t dot = name.rfind('.');
        name = dot == std::string_view::npos ? std::string_view() : name.substr(0, dot);
    }
    return {threshold.value_or(LOG_OFF), foundSinks == nullptr ? std::vector<std::string>() : *foundSinks};
}

LogConfiguration readLogConfiguration(const std::string& path) {
    return Reader(path).read(readConfigurationTree(bytesOf(path), path));
}

} // namespace mrl::detail
