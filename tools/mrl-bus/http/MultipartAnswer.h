#pragma once

#include "soap/Answer.h"

#include <iosfwd>
#include <string>

namespace mrl::bus {

/// An answer with attachments as a multipart/related body: the envelope first, then the attachments.
class MultipartAnswer {
public:
    /// @param answer borrowed
    /// @param boundary occurs nowhere in the answer.
    MultipartAnswer(const Answer& answer, std::string boundary)
        : m_answer(answer)
        , m_boundary(std::move(boundary)) {}

    std::string contentType() const;
    void write(std::ostream& out) const;

private:
    void startPart(std::ostream& out, const std::string& contentType, const std::string& id,
                   bool compressed) const;

    const Answer& m_answer;
    std::string m_boundary;
};

} // namespace mrl::bus
