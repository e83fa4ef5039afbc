#include "HBLIDOM/DomStreamWriter.h"

#include "HBLCore/HBLDowncastSize.h"
#include "PLQStreams/PLQOutputStream.h"

DomStreamWriter::DomStreamWriter(PLQOutputStream& out)
    : DomWriter("UTF-8")
    , m_out(out) {}

DomStreamWriter::~DomStreamWriter() = default;

void DomStreamWriter::write(const char* s, int length) {
    m_out.write(s, HBLDowncastSize::size(length));
}

void DomStreamWriter::flush() {
    m_out.flush();
}
