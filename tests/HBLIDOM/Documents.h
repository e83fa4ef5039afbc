#pragma once

#include "HBLIDOM/HBLIDOM.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace mrl::test {

/// The document of `xml`, which has to be good.
inline HBLIDOM_Document parsed(std::string_view xml) {
    HBLIDOM_Parser parser;
    HBLIDOM_Document document;
    EXPECT_EQ(parser.parse(xml.data(), xml.size(), document), 1) << parser.errorString().toUtf8();
    return document;
}

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
