#include "serialization/MRLSOAPFaultSerializer.h"

#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailArray.h"
#include "Toolkit/MRLMessage.h"
#include "Toolkit/MRLMessageArray.h"
#include "Toolkit/MRLPromptInfo.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLUndocumentedFaultDetail.h"
#include "Toolkit/MRLUndocumentedFaultDetailArray.h"
#include "Toolkit/MRLZORException.h"
#include "serialization/detail/ElementWriter.h"
#include "serialization/detail/EnvelopeText.h"
#include "serialization/detail/GatheringOutputStream.h"

#include "HBLCore/HBLFailure.h"

#include <string_view>

namespace text = mrl::detail::text;
using mrl::detail::ElementWriter;
using mrl::detail::GatheringOutputStream;

namespace {

constexpr int DETAIL_LEVEL = 3; // of the items of a detail

/// One fault on its way out.
class FaultWriter {
public:
    FaultWriter(PLQOutputStream& out, bool prettyPrint)
        : m_out(out)
        , m_elements(m_out, false)
        , m_prettyPrint(prettyPrint) {}

    void write(const MRLTavelHeader* header, MRLSOAPFault& fault, bool writeProlog) {
        if (writeProlog) {
            put(text::prolog);
            endLine();
        }
        put(text::envelopeOpen);
        endLine();
        tabs(1);
        put(text::headerOpen);
        endLine();
        m_elements.write(const_cast<MRLTavelHeader*>(header), MRLSchemaTypeI::eMRLTavelHeader,
                         text::tavelHeader.data(), {.indentLevel = 1});
        line(1, text::headerClose);
        line(1, text::bodyOpen);
        line(2, "<SOAP-ENV:Fault>");
        writeText("faultcode", fault.getFaultCode());
        writeText("faultstring", fault.getFaultString());
        if (fault.getFaultActor() != nullptr) {
            writeText("faultactor", fault.getFaultActor());
        }
        line(3, "<SOAP-ENV:detail>");
        writeDetail(fault);
        line(3, "</SOAP-ENV:detail>");
        line(2, "</SOAP-ENV:Fault>");
        line(1, text::bodyClose);
        put(text::envelopeClose);
        endLine();
        m_out.finish();
    }

private:
    void put(std::string_view piece) { m_out.put(piece); }
    void endLine() {
        if (m_prettyPrint) {
            m_out.put('\n');
        }
    }
    void tabs(int count) {
        if (m_prettyPrint) {
            m_out.putTabs(count);
        }
    }
    void line(int level, std::string_view piece) {
        tabs(level);
        put(piece);
        endLine();
    }

    void writeText(std::string_view name, const char* value) {
        tabs(3);
        put("<SOAP-ENV:");
        put(name);
        put(">");
        if (value != nullptr) {
            put(value);
        }
        put("</SOAP-ENV:");
        put(name);
        put(">");
        endLine();
    }

    void writeDetail(MRLSOAPFault& fault) {
        const MRLFaultDetailArray* const documented = fault.getDetail();
        if (documented != nullptr && !documented->empty()) {
            for (MRLFaultDetail* const pFaultDetail : *documented) {
                HBL_ASSERT(pFaultDetail);
                m_elements.write(pFaultDetail, MRLSchemaTypeI::eMRLFaultDetail, "bus:exception",
                                 {.indentLevel = DETAIL_LEVEL});
            }
        } else if (const auto* const undocumented = fault.getUndocumentedDetail()) {
            for (MRLUndocumentedFaultDetail* const item : *undocumented) {
                writeUndocumented(item, fault.getZORException());
            }
        }
    }

    void writeUndocumented(MRLUndocumentedFaultDetail* pUndocumentedFaultDetail, MRLZORException* exception) {
        constexpr int level = DETAIL_LEVEL + 1;
        HBL_ASSERT(pUndocumentedFaultDetail);
        line(level, "<bus:exception>");
        writeChild(*pUndocumentedFaultDetail, "severity", "bus:severity", level);
        writeChild(*pUndocumentedFaultDetail, "errorCode", "bus:errorCode", level);
        for (MRLMessage* const message : pUndocumentedFaultDetail->getMessage()) {
            const bool carriesException = exception != nullptr && message != nullptr;
            m_elements.write(message, MRLSchemaTypeI::eMRLMessage, "bus:message",
                             {.indentLevel = level, .forceEmpty = true, .closeTag = !carriesException});
            if (carriesException) {
                put("<detail>");
                endLine();
                writeSecurityException(*exception, level + 1);
                line(level, "</detail>");
                line(level, "</bus:message>");
                exception = nullptr; // the first message only
            }
        }
        line(level, "</bus:exception>");
    }

    void writeSecurityException(MRLZORException& exception, int level) {
        line(level, "<exception>");
        for (const char* const name : {"severity", "errorCodeString", "messages"}) {
            writeChild(exception, name, name, level);
        }
        if (exception.getPromptInfo() != nullptr) {
            writeChild(exception, "promptInfo", "promptInfo", level);
        }
        line(level, "</exception>");
    }

    void writeChild(MRLSchemaTypeI& parent, const char* name, const char* qName, int level) {
        m_elements.write(parent.getChildObject(name, 0), parent.getChildType(name), qName,
                         {.indentLevel = level, .forceEmpty = true});
    }

    GatheringOutputStream m_out;
    ElementWriter m_elements;
    const bool m_prettyPrint;
};

} // namespace

MRLSOAPFaultSerializerI::~MRLSOAPFaultSerializerI() = default;
MRLSOAPFaultSerializer::~MRLSOAPFaultSerializer() = default;

void MRLSOAPFaultSerializer::serialize(const MRLTavelHeader* header, MRLSOAPFault& fault,
                                       PLQOutputStream& out, int writeProlog, int prettyPrint) {
    m_prettyPrint = prettyPrint;
    FaultWriter(out, m_prettyPrint != 0).write(header, fault, writeProlog != 0);
}
