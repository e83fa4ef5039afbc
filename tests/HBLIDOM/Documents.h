#pragma once

#include "support/Xml.h"

#include <string>

namespace mrl::test {

/// Expects `step` to end in the exception of the library with this code and a message that begins so.
template <class Step>
void expectDomFailure(Step&& step, int code, const std::string& beginning) {
    try {
        step();
        ADD_FAILURE() << "nothing was thrown, expected " << beginning;
    } catch (HBLIDOM_DOMException& e) {
        EXPECT_EQ(e.getErrorCode(), code);
        EXPECT_EQ(std::string(e.getMessage()).substr(0, beginning.size()), beginning);
    }
}

/// A document of elements within elements, made by hand since the parser would refuse it.
inline HBLIDOM_Document nested(int depth) {
    HBLIDOM_Document document = HBLIDOM_DOMImplementation::getInstance().createDocument("", "a");
    HBLIDOM_Node innermost = document.getDocumentElement();
    for (int level = 1; level < depth; ++level) {
        innermost = innermost.appendChild(document.createElementNS("", "a"));
    }
    return document;
}

constexpr int veryDeep = 50'000;

} // namespace mrl::test
