#include "HBLIDOM/DomWriter.h"

#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/I18NConverter.h"
#include "HBLIDOM/HBLIDOM_DOMException.h"

#include <cstring>

DomWriter::DomWriter(const char* encoding) {
    if (encoding == nullptr || I18NConverter(encoding).getName() != getEncoding()) {
        HBL_THROW(HBLIDOM_DOMException(HBLIDOM_DOMException::NOT_SUPPORTED_ERR, "DomWriter::DomWriter",
                                       std::string("the encoding ") + (encoding ? encoding : "null"),
                                       "documents are written in UTF-8"),
                  "DomWriter::DomWriter");
    }
}

DomWriter::~DomWriter() = default;

void DomWriter::endline() {
    write("\n", 1);
}

void DomWriter::flush() {}

void DomWriter::write(const char* s) {
    if (s != nullptr && *s != '\0') {
        write(s, HBLDowncastSize::int32(std::strlen(s)));
    }
}
