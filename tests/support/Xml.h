#pragma once

#include "HBLIDOM/HBLIDOM.h"

#include <gtest/gtest.h>

#include <string_view>

namespace mrl::test {

/// The document of `xml`, which has to be good.
inline HBLIDOM_Document parsed(std::string_view xml) {
    HBLIDOM_Parser parser;
    HBLIDOM_Document document;
    EXPECT_EQ(parser.parse(xml.data(), xml.size(), document), 1) << parser.errorString().toUtf8();
    return document;
}

} // namespace mrl::test
