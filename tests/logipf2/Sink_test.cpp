#include "support/LogHarness.h"

#include "logipf2/LogAuditIndication.h"
#include "logipf2/LogTypedLogger.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <syslog.h>
#include <thread>

using mrl::test::LogHarness;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

namespace {

/// What the system's log was given: priority and text.
std::vector<std::pair<int, std::string>> s_systemLog;

} // namespace

/// In front of the system's own.
extern "C" [[gnu::visibility("default")]] void syslog(int priority, const char* format, ...) {
    std::array<char, 200'000> text{};
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    s_systemLog.emplace_back(priority, text.data());
}

namespace {

std::string configuration(const std::string& sink, const std::string& more = "") {
    return "{" + more + R"("sinks": {"all": )" + sink +
           R"(}, "loggers": {"*": {"level": 10000, "sinks": ["all"]}}})";
}

void write(const std::string& data) {
    LogAuditIndication record("MRL", 7);
    record.setLogData(I18NString(data));
    LogTypedLogger::getInstance("Audit", "LogAuditIndication")->log(&record);
}

std::string lineOf(const std::string& data) {
    return LogHarness::head("Audit", "LogAuditIndication", 50000) +
           R"("component":"MRL","version":7,"sessionID":"","requestID":"","subRequestID":"","stepID":"",)"
           R"("operation":"","logData":")" +
           data + "\"}";
}

void inThreads(int count, const std::function<void(int)>& step) {
    std::vector<std::thread> threads;
    for (int number = 0; number < count; ++number) {
        threads.emplace_back(step, number);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// Runs `step` in a child process, which has to end soon.
pid_t inChild(const std::function<void()>& step) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(60);
        step();
        _exit(0);
    }
    return child;
}
void expectEnd(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(0, status);
}

TEST(FileSink, StartsAnewWhenItIsFullAndKeepsSomeOldFiles) {
    const std::size_t size = lineOf("1").size() + 1;
    LogHarness log(configuration(R"({"type": "file", "path": "deep/er/log", "maxFiles": 2, "maxSize": )" +
                                 std::to_string(2 * size) + "}"));
    for (const char* data : {"1", "2", "3", "4", "5", "6", "7"}) {
        write(data);
    }
    EXPECT_THAT(log.lines("deep/er/log"), ElementsAre(lineOf("7")));
    EXPECT_THAT(log.lines("deep/er/log.1"), ElementsAre(lineOf("5"), lineOf("6")));
    EXPECT_THAT(log.lines("deep/er/log.2"), ElementsAre(lineOf("3"), lineOf("4")));
    EXPECT_FALSE(std::filesystem::exists(log.path("deep/er/log.3")));
    struct stat rights = {};
    ASSERT_EQ(0, ::stat(log.path("deep/er/log").c_str(), &rights));
    EXPECT_EQ(0600u, rights.st_mode & 0777u) << "traffic is for the owner alone";

    write(std::string(1000, 'x')); // larger than a whole file
    EXPECT_THAT(log.lines("deep/er/log"), ElementsAre(lineOf(std::string(1000, 'x'))));
    std::filesystem::rename(log.path("deep/er/log"), log.path("moved")); // by somebody else
    write("8");
    EXPECT_THAT(log.lines("deep/er/log"), ElementsAre(lineOf("8")));
}

TEST(FileSink, ThatCannotBeWrittenCostsNoCallAndTellsOfTheGap) {
    LogHarness log(configuration(R"({"type": "file", "path": "folder/log"})"));
    std::ofstream(log.path("folder")) << "in the way";
    testing::internal::CaptureStderr();
    write("1");
    write("2");
    EXPECT_EQ("mrl logging: sink \"all\" (file " + log.path("folder/log") +
                  ") cannot open it: Not a directory; records are lost until that is mended\n",
              testing::internal::GetCapturedStderr());
    std::filesystem::remove(log.path("folder"));
    LogHarness::pass(1000);
    write("3");
    EXPECT_THAT(log.lines("folder/log"),
                ElementsAre(LogHarness::head("", "LogGap", 50000) +
                                R"("lost":2,"reason":"cannot open it: Not a directory"})",
                            lineOf("3")));
    log.replace(configuration(R"({"type": "file", "path": "/dev/full"})"));
    LogHarness::pass(1000);
    testing::internal::CaptureStderr();
    write("4");
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                HasSubstr("cannot write to it: No space left on device;"));
}

TEST(SystemLogSink, GetsEachRecordAsItIsUnderItsFacilityAndSeverity) {
    const LogHarness log(configuration(R"({"type": "syslog", "facility": "local3"})"));
    write("100 %s %n");
    EXPECT_THAT(s_systemLog, ElementsAre(std::pair(LOG_LOCAL3 | LOG_ERR, lineOf("100 %s %n"))));
    s_systemLog.clear();
    testing::internal::CaptureStderr();
    write(std::string(200'000, 'x'));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("bytes is more than it takes"));
    LogAuditIndication record("MRL", 7);
    record.setLevel(20000);
    LogTypedLogger::getInstance("Audit", "LogAuditIndication")->log(&record);
    ASSERT_THAT(s_systemLog, SizeIs(2));
    EXPECT_THAT(s_systemLog[0].second, HasSubstr("\"lost\":1"));
    EXPECT_EQ(LOG_LOCAL3 | LOG_INFO, s_systemLog[1].first);
    s_systemLog.clear();
}

TEST(StandardErrorSink, WritesLinesAndSurvivesAReaderThatHasGone) {
    const LogHarness log(configuration(R"({"type": "stderr"})"));
    testing::internal::CaptureStderr();
    write("1");
    EXPECT_EQ(lineOf("1") + "\n", testing::internal::GetCapturedStderr());
    expectEnd(inChild([] {
        int ends[2];
        if (pipe(ends) != 0 || dup2(ends[1], STDERR_FILENO) < 0) {
            _exit(1);
        }
        close(ends[0]);
        write("2"); // a signal would end the child
    }));
}

TEST(FileSink, IsSharedByProcessesAndThreadsWithoutATornOrLostLine) {
    constexpr int WRITERS = 4;
    constexpr int LINES = 300;
    LogHarness log(configuration(R"({"type": "file", "path": "log", "maxSize": 20000, "maxFiles": 1000})"));
    const auto writeAll = [](int writer) {
        for (int line = 0; line < LINES; ++line) {
            write("w" + std::to_string(writer) + "." + std::to_string(line) + std::string(line % 90, '-'));
        }
    };
    inThreads(WRITERS, [&](int thread) { // forks while the other threads write
        writeAll(thread);
        const pid_t child = inChild([&] { writeAll(WRITERS + thread); });
        writeAll(2 * WRITERS + thread);
        expectEnd(child);
    });
    std::vector<std::string> seen;
    for (const auto& file : std::filesystem::directory_iterator(log.path(""))) {
        if (file.path().filename().string().starts_with("log")) {
            for (const std::string& line : log.lines(file.path().filename().string())) {
                EXPECT_TRUE(line.starts_with("{\"time\"") && line.ends_with("\"}")) << line;
                const std::size_t data = line.find("\"logData\":\"w") + 11;
                seen.push_back(line.substr(data, line.find_first_of("-\"", data) - data));
            }
        }
    }
    std::sort(seen.begin(), seen.end());
    EXPECT_EQ(seen.end(), std::unique(seen.begin(), seen.end()));
    EXPECT_THAT(seen, SizeIs(3 * WRITERS * LINES));
}

TEST(Queue, BlocksRatherThanDropsAndIsEmptyAfterAStop) {
    LogHarness log(
        configuration(R"({"type": "file", "path": "log"})", R"("asynchronous": {"queueSize": 2},)"));
    inThreads(16, [&](int) {
        for (int line = 0; line < 100; ++line) {
            write("x");
        }
    });
    expectEnd(inChild([] { write("child"); })); // whose copy of the queue nobody serves
    log.replace(configuration(R"({"type": "file", "path": "log"})"));
    LogHarness::pass(1000);
    write("at once");
    EXPECT_THAT(log.lines(), SizeIs(1602));
    EXPECT_THAT(log.lines().back(), HasSubstr("at once"));
    log.replace(configuration(R"({"type": "file", "path": "log"})", R"("asynchronous": {},)"));
    LogHarness::pass(1000);
    write("queued");
    LogIPFControl::stop();
    EXPECT_THAT(log.lines().back(), HasSubstr("queued"));
}

TEST(Loggers, AreSafeWhileTheConfigurationChanges) {
    LogHarness log(configuration(R"({"type": "file", "path": "log"})"));
    std::atomic<int> running = 16;
    std::thread changer([&] {
        for (int change = 0; running > 0; ++change) {
            log.replace(configuration(R"({"type": "file", "path": "log", "maxFiles": )" +
                                          std::to_string(change % 7) + "}",
                                      change % 2 == 0 ? "" : R"("asynchronous": {"queueSize": 8},)"));
            LogHarness::pass(1000);
        }
    });
    inThreads(16, [&](int number) {
        for (int line = 0; line < 200; ++line) {
            write("x");
            LogTypedLogger::getInstance("L" + std::to_string((line + number) % 50), "LogTraceIndication")
                ->isEnabled(20000);
        }
        --running;
    });
    changer.join();
    LogIPFControl::stop();
    EXPECT_THAT(log.lines(), SizeIs(3200));
}

} // namespace
