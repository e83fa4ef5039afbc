// Files, paths and commands: the operations of MRLHelper that name, find and start something.

#include "Common/MRLException.h"
#include "Common/MRLHBLMessage.h"
#include "Common/MRLMessageNumbers.h"
#include "Session/MRLDocumentOutput.h"
#include "Session/MRLHelper.h"
#include "Session/detail/CommandPipe.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmDir.h"
#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM_Document.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string_view>
#include <sys/timeb.h>
#include <system_error>

using mrl::detail::CommandPipe;

namespace {

I18NString property(const char* name) {
    return HBLConfigurationFactory::getInstance().getProperty(I18NString(name));
}

/// Appends a segment of a command's path, in quotes when it has a blank.
void appendSegment(std::u16string& path, std::u16string_view segment) {
    const bool hasBlank = segment.find(u' ') != std::u16string_view::npos;
    path.append(hasBlank ? u"\"" : u"").append(segment).append(hasBlank ? u"\"" : u"");
}

const char* directoryOf(MRLOutputTestType type) {
    switch (type) {
    case eMRLOutputTestNAO: return "v5DebugNAO";
    case eMRLOutputTestPromptNAO: return "v5DebugPromptNAO";
    case eMRLOutputTestROM: return "v5DebugROM";
    case eMRLOutputTestCGS: return "v5DebugCGS";
    default: return nullptr;
    }
}

} // namespace

int MRLHelper::runCommand(const I18NString& command, MRLDocumentOutput* pDocumentOutput,
                          I18NString* pOutput) {
    HBL_ASSERT(!(pDocumentOutput && pOutput));
    const std::string text = command.toUtf8();
    CommandPipe pipe(text.c_str(), pOutput != nullptr);
    if (!pipe.isOpen()) {
        const int error = errno;
        HBL_THROW(MRLException(0) << (MRLHBLMessage(msg::commandNotStarted)
                                      << command << error << std::generic_category().message(error)),
                  "MRLHelper::runCommand");
    }
    if (pDocumentOutput != nullptr) {
        hblRethrowing("MRLHelper::runCommand", [&] { *pDocumentOutput >> pipe.getFile(); });
    }
    if (pOutput != nullptr) {
        *pOutput += I18NString(pipe.readAll());
    }
    return pipe.close();
}

void MRLHelper::fixCommandPath(I18NString& path) {
    std::u16string fixed;
    std::u16string_view rest = path.view();
    for (std::size_t end; (end = rest.find_first_of(u"/\\")) != std::u16string_view::npos;) {
        appendSegment(fixed, rest.substr(0, end));
        fixed += u'\\';
        rest.remove_prefix(end + 1);
    }
    appendSegment(fixed, rest);
    path = I18NString(fixed);
}

void MRLHelper::getBasePath(I18NString& path, int stripLastSegment) {
    path = property("gateway");
    if (stripLastSegment != 0) {
        const std::size_t slash = path.rfind(u'/');
        if (slash != 0 && slash != I18NString::npos) {
            path.erase(slash + 1);
        }
    }
}

void MRLHelper::fileBasename(const std::string& name, std::string& base, std::string& extension) {
    const std::size_t dot = name.rfind('.');
    std::string before = name.substr(0, dot); // either target may be `name`
    if (dot != std::string::npos) {
        extension = name.substr(dot + 1);
    }
    base = std::move(before);
}

void MRLHelper::shortenFileName(std::string& name) {
    constexpr std::size_t limit = 130;
    constexpr std::size_t kept = 111;
    if (name.size() <= limit) {
        return;
    }
    const std::size_t dot = name.rfind('.');
    std::string shortened = name.substr(0, kept) + "...." + std::to_string(getCrc(name.c_str()));
    if (dot != std::string::npos) {
        // A dot within the new name stands for what the new name holds from there on.
        shortened += dot > shortened.size() ? name.substr(dot) : shortened.substr(dot);
    }
    name = std::move(shortened);
}

void MRLHelper::stripBackSlash(I18NString& text) {
    text.replaceAll("\\", "");
}

int MRLHelper::createTestOutputPath(MRLOutputTestType type, std::string& path) {
    const char* const directory = directoryOf(type);
    if (directory == nullptr) {
        return 0;
    }
    std::string made = std::string("../webcontent/") + directory;
    HBLFmDir::resolveEffectivePath(made);
    if (HBLFmDir::createRecursiveDir(made.c_str()) == 0) {
        return 0;
    }
    path = made + "/";
    return 1;
}

std::string MRLHelper::findOrCreateRenqTempDir() {
    std::string tempPath = property("temp").toUtf8() + "/renq";
    HBLFmDir::resolveEffectivePath(tempPath);
    hblRethrowing(("MRLHelper::findOrCreateRenqTempDir - \"" + tempPath + "\"").c_str(), [&] {
        HBL_ASSERT_NAMED(HBLFmDir::createRecursiveDir(tempPath.c_str()),
                         "[MRLHelper::findOrCreateTempDir] temporary directory creation failure.");
    });
    return tempPath;
}

void MRLHelper::getCurrentTime(std::string& out, const timeb* when) {
    std::timespec now{};
    if (when != nullptr) {
        now.tv_sec = when->time;
        now.tv_nsec = when->millitm * 1'000'000L;
    } else {
        ::clock_gettime(CLOCK_REALTIME, &now);
    }
    std::tm utc{};
    HBL_ASSERT(::gmtime_r(&now.tv_sec, &utc));
    std::array<char, 96> text{};
    const int length = std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ",
                                     utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min,
                                     utc.tm_sec, static_cast<int>(now.tv_nsec / 1'000'000));
    out.assign(text.data(), static_cast<std::size_t>(length));
}

void MRLHelper::initializeHBLConfiguration(const std::string& configuration) {
    IHBLConfiguration& service = HBLConfigurationFactory::getInstance();
    if (configuration.empty()) {
        service.load();
        return;
    }
    HBLIDOM_Document document;
    parseXML(configuration.c_str(), document);
    service.configure(document.getDocumentElement());
}

void MRLHelper::resolveGetParametersConnection(HBLIDOM_Element& element, MRLGetParametersMode mode,
                                               int flag) {
    const char* value = nullptr;
    switch (mode) {
    case eMRLGetParametersResolve: value = "true"; break;
    case eMRLGetParametersDoNotResolve: value = "false"; break;
    case eMRLGetParametersByFlag: value = flag != 0 ? "true" : "false"; break;
    default: return;
    }
    element.setAttribute("resolveConnection", value);
}
