#include "Session/PLQDocIoOutputStream.h"

#include "Session/MRLDocIo.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQStreamError.h"

#include <cstring>

PLQDocIoOutputStream::~PLQDocIoOutputStream() = default;

void PLQDocIoOutputStream::write(const char* text, std::size_t size) {
    if (m_docIo != nullptr && size > 0 && m_docIo->write(text, size) < 0) {
        HBL_THROW(PLQStreamError(ePLQStreamFile, "The store of a document took no more than " +
                                                     std::to_string(m_docIo->pcount()) + " bytes."),
                  "PLQDocIoOutputStream::write");
    }
}

PLQDocIoOutputStream& PLQDocIoOutputStream::operator<<(const char* text) {
    if (text != nullptr) {
        write(text, std::strlen(text));
    }
    return *this;
}
