// Checksums: CRC-32 of text in all its forms, and of XML as it is written.

#include "Common/HBLI18NBuffer.h"
#include "Session/MRLHelper.h"
#include "Session/MRLStringDomWriter.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLUtCrc32.h"
#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM_Helper.h"

#include <cstring>

unsigned int MRLHelper::getCrc(const I18NString& s) {
    return HBLUtCrc32::crc32(s, 0, 0);
}

unsigned int MRLHelper::getCrc(const I18NString& s, int mode) {
    return HBLUtCrc32::crc32(s, mode, 0);
}

unsigned int MRLHelper::getCrc(const HBLI18NBuffer& s, int) {
    return s.getCrc();
}

unsigned int MRLHelper::getCrc(unsigned int start, const I18NString& s) {
    return HBLUtCrc32::crc32(start, s.getExternalBuffer(), s.size());
}

unsigned int MRLHelper::getCrc(const char* strInput) {
    HBL_ASSERT(strInput != NULL);
    return HBLUtCrc32::crc32(0, strInput, std::strlen(strInput));
}

unsigned int MRLHelper::getCrc(unsigned int start, const char* strInput) {
    HBL_ASSERT(strInput != NULL);
    return HBLUtCrc32::crc32(start, strInput, std::strlen(strInput));
}

unsigned int MRLHelper::getCrc(const HBLIDOM_Node& node) {
    std::string text;
    MRLStringDomWriter writer(text, 1024);
    HBLIDOM_Helper::write(node, writer);
    return HBLUtCrc32::crc32(0, text.data(), text.size());
}

void MRLHelper::getCrc(const char* strInput, std::string& out) {
    out = std::to_string(getCrc(strInput));
}

void MRLHelper::getCrc(unsigned int start, const char* strInput, std::string& out) {
    out = std::to_string(getCrc(start, strInput));
}
