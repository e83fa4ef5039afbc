// Logs on anonymously, runs a report, waits for it, and saves its outputs, which come as attachments. Then
// asks for a change that the anonymous may not make: it is refused, and goes out again encrypted.
#include "Session/MRL.h"
#include "Session/MRLDocIo.h"
#include "Session/MRLHelper.h"
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLAsynchDetailArray.h"
#include "Toolkit/MRLAsynchDetailMIMEAttachment.h"
#include "Toolkit/MRLAsynchOptionEncoding.h"
#include "Toolkit/MRLAsynchOptionEnum.h"
#include "Toolkit/MRLAsynchRelease_Request.h"
#include "Toolkit/MRLAsynchReply.h"
#include "Toolkit/MRLAsynchReplyStatusEnum.h"
#include "Toolkit/MRLAsynchRequest.h"
#include "Toolkit/MRLAsynchRun_Reply.h"
#include "Toolkit/MRLAsynchRun_Request.h"
#include "Toolkit/MRLAsynchWait_Reply.h"
#include "Toolkit/MRLAsynchWait_Request.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLContentUpdate_Request.h"
#include "Toolkit/MRLEncodingEnum.h"
#include "Toolkit/MRLOptionArray.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLReport.h"
#include "Toolkit/MRLReportGetOutput_Reply.h"
#include "Toolkit/MRLReportGetOutput_Request.h"
#include "Toolkit/MRLReportServicePortType.h"
#include "Toolkit/MRLRunOptionEnum.h"
#include "Toolkit/MRLRunOptionStringArray.h"
#include "Toolkit/MRLSearchPathSingleObject.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "Toolkit/MRL_Streamable.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLThrowable.h"
#include "PLQStreams/PLQOutputStream.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

constexpr const char* reportPath = "/content/folder[@name='Sales']/report[@name='Revenue']";

using Binding = HBLSmartPointer<MRLPortTypeBinding>;

/// A new object that the request owns.
template <class T>
T* make(MRLMessageI& request) {
    auto object = std::make_unique<T>();
    request.getObjectRegistry().registerPointer(object.get());
    return object.release();
}

/// One call of the report service; `Request` is filled by `fill`.
template <class Request, class Fill>
Binding ask(const MRLSOAPSession& session, MRLMessageI::MessageType type, Fill&& fill) {
    Binding call(MRLReportServicePortType::getInstance().createPortTypeBinding(type));
    fill(static_cast<Request&>(call->getInputMessage()));
    session.submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
    return call;
}

/// Asks for HTML, PDF and CSV, packed on their way.
void setOptions(MRLAsynchRun_Request& request) {
    MRLObjectRegistryI& registry = request.getObjectRegistry();
    auto* formats = make<MRLRunOptionStringArray>(request);
    formats->getName(&registry)->setValue("outputFormat");
    for (const char* format : {"HTML", "PDF", "CSV"})
        formats->getValue().push_back(format);
    auto* encoding = make<MRLAsynchOptionEncoding>(request);
    encoding->getName(&registry)->setValue("attachmentEncoding");
    encoding->getValue(&registry)->setValue("MIMECompressed");
    request.getOptions(&registry)->push_back(formats);
    request.getOptions(&registry)->push_back(encoding);
}

/// Where the toolkit writes a document to: anything that takes bytes.
class FileSink : public PLQOutputStream {
public:
    explicit FileSink(const std::filesystem::path& path)
        : m_file(path, std::ios::binary) {
        m_file.exceptions(std::ios::badbit | std::ios::failbit);
    }
    void write(const char* data, std::size_t length) override {
        m_file.write(data, static_cast<std::streamsize>(length));
    }
    void close() override { m_file.close(); }

private:
    std::ofstream m_file;
};

void save(const MRLAsynchReply& reply, const std::filesystem::path& directory) {
    std::filesystem::create_directories(directory);
    for (const auto* detail : reply.getDetails()) {
        if (detail == nullptr || !detail->isa(MRLAsynchDetailMIMEAttachment::s_objectType))
            continue;
        const auto& output = static_cast<const MRLAsynchDetailMIMEAttachment&>(*detail);
        const MRLBase64Binary* data = output.getData();
        if (data == nullptr || data->streamable() == nullptr || output.getFileName() == nullptr)
            continue;
        // What a service calls a file is not trusted to be a plain name.
        const auto path = directory / std::filesystem::path(output.getFileName()).filename();
        FileSink file(path);
        *data->streamable() >> file;
        file.close();
        std::printf("  saved %s, %ju bytes\n", path.c_str(), std::filesystem::file_size(path));
    }
}

void runReport(const MRLSOAPSession& session, const std::filesystem::path& directory) {
    std::printf("run %s\n", reportPath);
    const Binding run = ask<MRLAsynchRun_Request>(
        session, MRLMessageI::eMRLAsynchRun_Request, [](MRLAsynchRun_Request& request) {
            request.getObjectPath(&request.getObjectRegistry())->setValue(reportPath);
            setOptions(request);
        });
    const MRLAsynchReply* reply = static_cast<MRLAsynchRun_Reply&>(run->getOutputMessage()).getResult();
    std::printf("  %s\n", reply->getStatus()->toString());

    // What the service needs to find the conversation again travels in the primary request.
    MRLAsynchRequest* const conversation = reply->getPrimaryRequest();
    Binding waiting; // keeps the reply
    while (reply->getStatus()->toString() != std::string("complete")) {
        waiting = ask<MRLAsynchWait_Request>(
            session, MRLMessageI::eMRLAsynchWait_Request,
            [&](MRLAsynchWait_Request& request) { request.setConversation(conversation); });
        reply = static_cast<MRLAsynchWait_Reply&>(waiting->getOutputMessage()).getResult();
        std::printf("  %s\n", reply->getStatus()->toString());
    }
    const Binding output = ask<MRLReportGetOutput_Request>(
        session, MRLMessageI::eMRLReportGetOutput_Request,
        [&](MRLReportGetOutput_Request& request) { request.setConversation(conversation); });
    save(*static_cast<MRLReportGetOutput_Reply&>(output->getOutputMessage()).getResult(), directory);
    ask<MRLAsynchRelease_Request>(
        session, MRLMessageI::eMRLAsynchRelease_Request,
        [&](MRLAsynchRelease_Request& request) { request.setConversation(conversation); });
}

void change(const MRLSOAPSession& session) {
    std::printf("update %s\n", reportPath);
    const Binding call(MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
        MRLMessageI::eMRLContentUpdate_Request));
    auto& request = static_cast<MRLContentUpdate_Request&>(call->getInputMessage());
    MRLObjectRegistryI& registry = request.getObjectRegistry();
    auto* report = make<MRLReport>(request);
    report->getSearchPath(&registry)->setValue(reportPath);
    report->getDefaultScreenTip(&registry)->setValue("Run by first_report");
    request.getObjects(&registry)->push_back(report);
    session.submit(*call, MRLSOAPSession::eMRLSOAPTrustedOnDenial, nullptr);
    std::printf("  refused to the anonymous, and done when it came encrypted\n");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: first_report DIRECTORY URL    (what mrl-bus prints when it listens)\n");
        return 2;
    }
    const std::filesystem::path directory(argv[1]);
    try {
        MRL::initialize();
        MRLDocIo::initialize(); // attachments are documents
        std::string passport;
        MRLHelper::logonAsAnonymous(passport, 0, argv[2]);
        std::printf("logged on anonymously, passport %s\n", passport.c_str());
        MRLZORPassport id;
        id.setId(passport.c_str());
        MRLZOR access;
        access.setZORPassport(&id);
        MRLTavelHeader header; // travels with every request
        header.setZOR(&access);
        MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "firstReport");
        session.setURI(argv[2]);

        runReport(session, directory);
        change(session);
        MRLDocIo::terminate();
        MRL::terminate();
        return 0;
    } catch (HBLThrowable& e) {
        std::fprintf(stderr, "first_report: %s\n", e.getMessage());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "first_report: %s\n", e.what());
    }
    return 1;
}
