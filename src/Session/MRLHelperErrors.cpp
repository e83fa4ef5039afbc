// Failures as XML and as audit records.

#include "Common/MRLExceptionMessage.h"
#include "Session/MRLHelper.h"
#include "Session/MRLIPFLogger.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"

#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr int SHORT_FAILURES = 50000;
constexpr int FAILURES = 30000;

void append(HBLByteBuffer& out, std::string_view text) {
    out.appendChars(text.data(), text.size());
}

void appendEncoded(HBLByteBuffer& out, const I18NString& text) {
    const std::string narrow = text.toUtf8();
    MRLHelper::xmlEncode(narrow.data(), narrow.size(), out);
}

/// The frame of a message around the title that `title` writes.
template <class Title>
void appendMessage(HBLByteBuffer& out, const char* location, const Title& title) {
    append(out, "<message type=\"layout\" severity=\"error\" title=\"");
    title();
    append(out, "\" location=\"");
    if (location != nullptr) {
        append(out, location);
    }
    append(out, "\"/>");
}

void auditFailure(MRLIPFLogger& logger, const std::string& text) {
    I18NString error(text);
    logger.audit(SHORT_FAILURES, "Failure", nullptr, &error);
    if (logger.isAuditEnabled(FAILURES) != 0) {
        logger.audit(FAILURES, "Failure", nullptr, &error);
    }
}

} // namespace

void MRLHelper::writeErrorMessage(HBLByteBuffer& out, const I18NString& text, const char* location) {
    hblRethrowing("MRLHelper::writeErrorMessage",
                  [&] { appendMessage(out, location, [&] { appendEncoded(out, text); }); });
}

void MRLHelper::writeErrorMessage(HBLByteBuffer& out, MRLExceptionMessage& message,
                                  const I18NString& parameter1, const I18NString& parameter2,
                                  const I18NString& parameter3, const char* location,
                                  const char* formatArgument1, const char* formatArgument2) {
    hblRethrowing("MRLHelper::writeErrorMessage", [&] {
        for (const I18NString* const parameter : {&parameter1, &parameter2, &parameter3}) {
            if (!parameter->empty()) {
                HBLByteBuffer encoded(0, 256, 256);
                appendEncoded(encoded, *parameter);
                message.addParameter(std::string_view(encoded.str(), encoded.pcount()));
            }
        }
        std::string title;
        message.getMessage(formatArgument1 != nullptr ? formatArgument1 : formatArgument2,
                           message.getNumber(), title);
        appendMessage(out, location, [&] { append(out, title); });
    });
}

void MRLHelper::logException(HBLThrowable& error, MRLIPFLogger& logger) {
    if (logger.isAuditEnabled(SHORT_FAILURES) != 0) {
        hblRethrowing("MRLHelper::logException", [&] { auditFailure(logger, error.getMessage()); });
    }
}

void MRLHelper::logException(HBLException& error, MRLIPFLogger& logger) {
    if (logger.isAuditEnabled(SHORT_FAILURES) != 0) {
        hblRethrowing("MRLHelper::logException", [&] {
            const I18NString locale = HBLConfigurationFactory::getInstance().getProperty("serverLocale");
            auditFailure(logger, error.format(locale.empty() ? nullptr : locale.c_str()));
        });
    }
}
