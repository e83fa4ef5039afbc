#include "soap/ReportService.h"

#include "Toolkit/MRLAsynchCancel_Request.h"
#include "Toolkit/MRLAsynchDetailArray.h"
#include "Toolkit/MRLAsynchDetailMIMEAttachment.h"
#include "Toolkit/MRLAsynchDetailReportStatus.h"
#include "Toolkit/MRLAsynchRelease_Request.h"
#include "Toolkit/MRLAsynchReply.h"
#include "Toolkit/MRLAsynchRequest.h"
#include "Toolkit/MRLAsynchRun_Reply.h"
#include "Toolkit/MRLAsynchRun_Request.h"
#include "Toolkit/MRLAsynchSecondaryRequest.h"
#include "Toolkit/MRLAsynchSecondaryRequestArray.h"
#include "Toolkit/MRLAsynchWait_Reply.h"
#include "Toolkit/MRLAsynchWait_Request.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLOptionArray.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLReportGetOutput_Reply.h"
#include "Toolkit/MRLReportGetOutput_Request.h"
#include "Toolkit/MRLSearchPathSingleObject.h"
#include "soap/SchemaAccess.h"
#include "store/SearchPath.h"
#include "store/StoreError.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>

namespace mrl::bus {

namespace {

constexpr std::int64_t longestWait = 30; // seconds: a wait holds a thread of the bus
constexpr std::int64_t usualWait = 5;
constexpr std::int64_t mostRows = 1000;

template <class T>
T* make(MRLObjectRegistryI& registry) {
    return static_cast<T*>(SchemaAccess::create(T::s_objectType, registry));
}

MRLSchemaTypeI* findOption(MRLOptionArray* options, std::string_view name) {
    for (MRLSchemaTypeI* option : SchemaAccess::elements(options))
        if (SchemaAccess::text(option, "name") == name)
            return option;
    return nullptr;
}

std::chrono::milliseconds waitLimit(MRLOptionArray* options, std::string_view name, std::int64_t usual) {
    const std::int64_t asked = SchemaAccess::number(findOption(options, name), "value").value_or(usual);
    return std::chrono::seconds(std::clamp<std::int64_t>(asked, 0, longestWait));
}

std::vector<const OutputFormat*> askedFormats(MRLOptionArray* options) {
    std::vector<const OutputFormat*> formats;
    for (const std::string& name : SchemaAccess::texts(findOption(options, "outputFormat"), "value")) {
        const OutputFormat* format = findOutputFormat(name);
        if (format == nullptr)
            throw StoreError(StoreErrorCode::badOption, "There is no output format '" + name.substr(0, 40) +
                                                            "'; ask for HTML, PDF or CSV.");
        if (std::ranges::find(formats, format) == formats.end())
            formats.push_back(format);
    }
    if (formats.empty())
        formats.push_back(&outputFormats().front());
    return formats;
}

std::string conversationId(MRLAsynchRequest* conversation) {
    return SchemaAccess::text(conversation, "stateData").value_or("");
}

void fill(MRLAsynchReply& reply, const ReportJob& job, const std::string& id, const char* status,
          std::initializer_list<const char*> next, MRLObjectRegistryI& registry) {
    SchemaAccess::setText(reply, "status", status, registry);
    MRLAsynchRequest& primary = *reply.getPrimaryRequest(&registry);
    primary.setName("run");
    SchemaAccess::setText(primary, "objectPath", job.objectPath, registry);
    SchemaAccess::setText(primary, "stateData", id, registry);
    for (const char* name : next) {
        auto* request = make<MRLAsynchSecondaryRequest>(registry);
        request->setName(name);
        reply.getSecondaryRequests().push_back(request);
    }
}

void tellProgress(MRLAsynchReply& reply, const Conversations::View& view, const std::string& id, bool first,
                  MRLObjectRegistryI& registry) {
    if (!view.complete) {
        fill(reply, view.job, id, first ? "working" : "stillWorking", {"wait", "cancel"}, registry);
        return;
    }
    fill(reply, view.job, id, "complete", {"getOutput", "release"}, registry);
    auto* ready = make<MRLAsynchDetailReportStatus>(registry);
    SchemaAccess::setText(*ready, "status", "responseReady", registry);
    reply.getDetails().push_back(ready);
}

/// "/content/folder[@name='Sales']/report[@name='Revenue']" without its last step.
std::string containerOf(const StoreObject& object) {
    const auto* parent = object.get<References>("parent");
    return parent == nullptr || parent->empty() ? "/" : parent->front().searchPath();
}

std::string cell(const StoreObject& object, const char* property) {
    const auto* text = object.get<std::string>(property);
    return text == nullptr ? std::string() : *text;
}

} // namespace

bool ReportService::perform(Call& call) {
    MRLMessageI& in = call.binding.getInputMessage();
    MRLMessageI& out = call.binding.getOutputMessage();
    MRLObjectRegistryI& registry = out.getObjectRegistry();
    switch (in.getMessageType()) {
    case MRLMessageI::eMRLAsynchRun_Request: {
        const auto& request = static_cast<MRLAsynchRun_Request&>(in);
        run(call, request.getObjectPath(), request.getOptions(),
            *static_cast<MRLAsynchRun_Reply&>(out).getResult(&registry));
        return true;
    }
    case MRLMessageI::eMRLAsynchWait_Request: {
        const auto& request = static_cast<MRLAsynchWait_Request&>(in);
        wait(call, request.getConversation(), request.getOptions(),
             *static_cast<MRLAsynchWait_Reply&>(out).getResult(&registry));
        return true;
    }
    case MRLMessageI::eMRLReportGetOutput_Request:
        output(call, static_cast<MRLReportGetOutput_Request&>(in).getConversation(),
               *static_cast<MRLReportGetOutput_Reply&>(out).getResult(&registry));
        return true;
    case MRLMessageI::eMRLAsynchCancel_Request:
        m_conversations.end(call.caller.passport,
                            conversationId(static_cast<MRLAsynchCancel_Request&>(in).getConversation()));
        return true;
    case MRLMessageI::eMRLAsynchRelease_Request:
        m_conversations.end(call.caller.passport,
                            conversationId(static_cast<MRLAsynchRelease_Request&>(in).getConversation()));
        return true;
    default: return false;
    }
}

void ReportService::run(Call& call, MRLSearchPathSingleObject* objectPath, MRLOptionArray* options,
                        MRLAsynchReply& reply) {
    const DataForm form =
        dataFormFrom(SchemaAccess::text(findOption(options, "attachmentEncoding"), "value").value_or("MIME"));
    ReportJob job;
    job.objectPath = runnable(SchemaAccess::text(objectPath).value_or(""));
    job.formats = askedFormats(options);
    job.attached = form != DataForm::base64;
    job.compressed = form == DataForm::attachedCompressed;
    const std::string id = m_conversations.start(call.caller.passport, job,
                                                 [this, path = job.objectPath] { return read(path); });
    const auto view =
        m_conversations.wait(call.caller.passport, id, waitLimit(options, "primaryWaitThreshold", 0));
    tellProgress(reply, view, id, true, call.binding.getOutputMessage().getObjectRegistry());
}

void ReportService::wait(Call& call, MRLAsynchRequest* conversation, MRLOptionArray* options,
                         MRLAsynchReply& reply) {
    const std::string id = conversationId(conversation);
    const auto view = m_conversations.wait(call.caller.passport, id,
                                           waitLimit(options, "secondaryWaitThreshold", usualWait));
    tellProgress(reply, view, id, false, call.binding.getOutputMessage().getObjectRegistry());
}

void ReportService::output(Call& call, MRLAsynchRequest* conversation, MRLAsynchReply& reply) {
    const std::string id = conversationId(conversation);
    const auto view = m_conversations.wait(call.caller.passport, id, std::chrono::milliseconds(0));
    MRLObjectRegistryI& registry = call.binding.getOutputMessage().getObjectRegistry();
    if (!view.complete) {
        tellProgress(reply, view, id, false, registry);
        return;
    }
    fill(reply, view.job, id, "conversationComplete", {"getOutput", "release"}, registry);
    for (const ReportOutput& made : view.outputs) {
        auto* detail = make<MRLAsynchDetailMIMEAttachment>(registry);
        SchemaAccess::setText(*detail, "contentType", made.format->contentType, registry);
        SchemaAccess::setText(*detail, "fileName", "report." + std::string(made.format->ending), registry);
        MRLBase64Binary& data = *detail->getData(&registry);
        if (view.job.attached) {
            const std::string contentId =
                call.attachments.add(std::string(made.format->contentType), made.bytes,
                                     view.job.compressed ? DataForm::attachedCompressed : DataForm::attached);
            data.append(contentId.data(), contentId.size());
            data.setIsContentId(1);
        } else {
            data.append(made.bytes.data(), made.bytes.size());
        }
        reply.getDetails().push_back(detail);
    }
}

/// The path of a report that exists and may be run.
std::string ReportService::runnable(const std::string& path) {
    static constexpr std::array<std::string_view, 4> classes{"analysis", "dashboard", "query", "report"};
    QueryRequest query;
    query.searchPath = path;
    query.properties = {"searchPath", "permissions"};
    query.maxObjects = 2;
    const auto found = m_store.query(query);
    if (found.empty())
        throw StoreError(StoreErrorCode::notFound,
                         "There is no object " + path.substr(0, 1000) + "; give the path of a report.");
    if (found.size() > 1)
        throw StoreError(StoreErrorCode::ambiguousPath, "The search path " + path.substr(0, 1000) +
                                                            " selects several objects; run them one by one.");
    const auto* rights = found.front().get<std::vector<std::string>>("permissions");
    if (std::ranges::find(classes, found.front().objectClass) == classes.end())
        throw StoreError(StoreErrorCode::badClass, "An object of the class " + found.front().objectClass +
                                                       " cannot be run; give a report.");
    if (rights == nullptr || std::ranges::find(*rights, "execute") == rights->end())
        throw StoreError(StoreErrorCode::noPermission, "You have no right to run " +
                                                           found.front().searchPath() +
                                                           "; ask its owner for execute permission.");
    return found.front().searchPath();
}

Table ReportService::read(const std::string& path) {
    QueryRequest self;
    self.searchPath = path;
    self.properties = {"defaultName", "defaultDescription", "parent"};
    const auto report = m_store.query(self);
    if (report.empty())
        throw StoreError(StoreErrorCode::notFound, "The report " + path + " has gone meanwhile.");
    QueryRequest beside;
    const std::string container = containerOf(report.front());
    beside.searchPath = container == "/" ? "/*" : container + "/*";
    beside.properties = {"defaultName", "objectClass", "modificationTime", "defaultDescription"};
    beside.sortBy = {{"defaultName", false}};
    beside.maxObjects = mostRows;

    Table table;
    table.title = cell(report.front(), "defaultName");
    table.subtitle = cell(report.front(), "defaultDescription");
    table.columns = {"Name", "Class", "Changed", "Description"};
    for (const StoreObject& object : m_store.query(beside))
        table.rows.push_back({cell(object, "defaultName"), object.objectClass,
                              cell(object, "modificationTime"), cell(object, "defaultDescription")});
    return table;
}

} // namespace mrl::bus
