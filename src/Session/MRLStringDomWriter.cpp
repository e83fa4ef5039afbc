#include "Session/MRLStringDomWriter.h"

#include "HBLCore/HBLFailure.h"

MRLStringDomWriter::MRLStringDomWriter(std::string& target, std::size_t reserve)
    : DomWriter("UTF-8")
    , m_target(target) {
    if (reserve != 0 && m_target.capacity() < reserve) {
        hblRethrowing("MRLStringDomWriter", [&] { m_target.reserve(reserve); });
    }
}

MRLStringDomWriter::~MRLStringDomWriter() = default;

void MRLStringDomWriter::write(const char* s, int length) {
    if (length == 0) {
        return;
    }
    HBL_ASSERT(s && length > 0);
    hblRethrowing("MRLStringDomWriter::write", [&] { m_target.append(s, static_cast<std::size_t>(length)); });
}

void MRLStringDomWriter::endline() {
    hblRethrowing("MRLStringDomWriter::endline", [&] { m_target += '\n'; });
}

void MRLStringDomWriter::write(const char* s) {
    if (s != nullptr) {
        hblRethrowing("MRLStringDomWriter::write", [&] { m_target += s; });
    }
}
