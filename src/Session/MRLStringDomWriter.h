#pragma once

#include "HBLCore/MRLExport.h"
#include "HBLIDOM/DomWriter.h"

#include <cstddef>
#include <string>

/// Collects written XML, UTF-8, at the end of a caller's string.
class MRL_EXPORT MRLStringDomWriter : public DomWriter {
public:
    /// @param target borrowed; it has to live as long as the writer.
    /// @param reserve the bytes that `target` is to have room for; 0 leaves it.
    explicit MRLStringDomWriter(std::string& target, std::size_t reserve = 0);
    ~MRLStringDomWriter() override;

    /// Appends `length` bytes. @throws HBLAssertError for null and for a negative length.
    void write(const char* s, int length) override;
    /// Appends a line feed.
    void endline() override;
    /// Appends a terminated text; null is empty.
    void write(const char* s) override;

private:
    std::string& m_target; // borrowed
};
