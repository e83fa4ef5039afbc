#include "Session/MRLTestInfo.h"

#include "Common/MockTavelTK.h"
#include "Common/MockTavelTKMessageReader.h"
#include "Common/MockTavelTKMessageWriter.h"
#include "Common/MockTavelTKSession.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCFGAPI/HBLConfigurationNames.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLThread.h"
#include "HBLIDOM/HBLIDOM_DOMImplementation.h"
#include "HBLIDOM/HBLIDOM_Helper.h"
#include "PLQStreams/PLQFileInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <tuple>

namespace {

constexpr std::size_t REQUEST_SIZE = 30720;
constexpr std::size_t REQUEST_GROWTH = 10240;

/// `new T(parts..., others...)`, where T owns the parts once it is made, and not before.
template <class T, class Part, class... Others>
std::unique_ptr<T> made(std::unique_ptr<Part> part, Others&&... others) {
    std::unique_ptr<T> whole(hblNew<T>(HBL_HERE, part.get(), std::forward<Others>(others)...));
    std::ignore = part.release();
    return whole;
}

std::vector<HBLIDOM_Node> itemsOf(const HBLIDOM_Node& contentManagers) {
    std::vector<HBLIDOM_Node> items;
    for (HBLIDOM_Node node = contentManagers.getFirstChild(); node.isNull() == 0;
         node = node.getNextSibling()) {
        if (HBLIDOM_Helper::matchLocalName(node, "item") != 0 &&
            HBLIDOM_Helper::matchNamespaceURI(node, HBLConfigurationNames::s_namespace) != 0) {
            items.push_back(node);
        }
    }
    return items;
}

/// What a content manager would answer that is asked for its address.
HBLIDOM_Element answerNaming(HBLIDOM_Document& document, const I18NString& contentManagerURI) {
    HBLIDOM_Element root = document.createElementNS("qzn", "qzn:queryResult");
    HBLIDOM_Node inner = root;
    for (const char* name : {"item", "contentManager", "value"}) {
        inner = inner.appendChild(document.createElementNS("", name));
    }
    HBLIDOM_Element(inner).setAttribute("xsi:type", "xsd:string");
    inner.appendChild(document.createTextNode(contentManagerURI));
    document.getDocumentElement().appendChild(root);
    return root;
}

} // namespace

MRLTestInfo* MRLTestInfo::create() {
    try {
        return new MRLTestInfo;
    } catch (...) {
        hblRethrowCurrent("MRLTestInfo::create", HBL_HERE);
    }
}

MRLTestInfo::~MRLTestInfo() {
    for (const MockTavelTK* factory : m_factories) {
        delete factory;
    }
}

void MRLTestInfo::setContentManager() {
    IHBLConfiguration& config = HBLConfigurationFactory::getInstance();
    const HBLIDOM_Node contentManagers = config.getPropertyElement("contentManagers");
    HBL_ASSERT(contentManagers.isNull() == FALSE);
    const std::vector<HBLIDOM_Node> items = itemsOf(contentManagers);
    HBL_ASSERT_NAMED(!items.empty(), "No contents managers found in IHBLConfiguration.");
    const I18NString uri = HBLIDOM_Helper::getElementText(items.front());
    const std::string contentManagerURI = uri.toUtf8();
    if (items.size() > 1) {
        std::fprintf(stderr, "WARNING: Multiple content manager entries detected, defaulting to \"%s\"\n",
                     contentManagerURI.c_str());
    }
    HBL_ASSERT(!contentManagerURI.empty());
    HBLIDOM_Document document = HBLIDOM_DOMImplementation::getInstance().createDocument("", "ConfigDocument");
    config.configure(answerNaming(document, uri));
    const std::string sContentManagerURI = config.getProperty("contentManager").toUtf8();
    HBL_ASSERT(sContentManagerURI == contentManagerURI);
}

TavelTK& MRLTestInfo::getRecordedFilesAsSessionFactory(const std::string& requestFile,
                                                       const std::string& requestAttachmentFile,
                                                       const std::string& responseFile) {
    std::unique_ptr<PLQInputStream> in(hblNew<PLQFileInputStream>(HBL_HERE, responseFile));
    auto reader = made<MockTavelTKMessageReader>(std::move(in));
    std::unique_ptr<PLQOutputStream> memory(
        hblNew<PLQMemoryOutputStream>(HBL_HERE, REQUEST_SIZE, REQUEST_GROWTH));
    auto writer = made<MockTavelTKMessageWriter>(std::move(memory));
    auto session = made<MockTavelTKSession>(std::move(reader), writer.get());
    std::ignore = writer.release();
    auto factory = made<MockTavelTK>(std::move(session), requestFile, requestAttachmentFile, responseFile);
    hblRethrowing("MRLTestInfo::getRecordedFilesAsSessionFactory",
                  [&] { m_factories.push_back(factory.get()); });
    return *factory.release();
}

void MRLTestInfo::generateOutputName(const char* reportName, const char* suffix, std::string& outName) const {
    HBL_ASSERT(reportName);
    outName = reportName;
    if (suffix != nullptr && *suffix != '\0') {
        outName.append("_").append(suffix);
    }
    if (m_multiLocale != 0 && !m_locale.empty()) {
        outName.append("_").append(m_locale);
    }
    if (m_threadId != 0) {
        char text[32];
        std::snprintf(text, sizeof text, "_mt%p",
                      reinterpret_cast<const void*>(m_threadId)); // NOLINT(performance-no-int-to-ptr)
        outName.append(text);
    }
    constexpr std::string_view unwanted = " /\\:";
    std::replace_if(
        outName.begin(), outName.end(), [&](char c) { return unwanted.find(c) != unwanted.npos; }, '_');
}

void MRLTestInfo::setMultiThreaded(int flag) {
    m_threadId = flag == 0 ? 0 : HBLThread::currentThreadId();
}

const char* MRLTestInfo::getConcurrentQueryJobStateDump() const {
    return m_concurrentQueryJobStateDump == nullptr ? nullptr : m_concurrentQueryJobStateDump->c_str();
}

void MRLTestInfo::setConcurrentQueryJobStateDump(const char* pDump) {
    HBL_ASSERT(pDump);
    if (m_concurrentQueryJobStateDump == nullptr) {
        m_concurrentQueryJobStateDump.reset(hblNew<std::string>(HBL_HERE));
    }
    *m_concurrentQueryJobStateDump = pDump;
}
