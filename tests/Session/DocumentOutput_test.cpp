// A document on each of its stores, copied to each of its targets; and each file operation failing once.
#include "DocumentFixture.h"
#include "Session/MRLDocumentOutput.h"
#include "support/Bytes.h"
#include "support/Files.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFmFile.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQStreamError.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using mrl::test::bytesOf;
using mrl::test::bytesOfFile;
using mrl::test::Documents;
using mrl::test::FailingStep;
using mrl::test::FullDisk;
using mrl::test::unpacked;
using mrl::test::written;

namespace {

/// Copies to a stream, and checks that every other way out gives the same.
std::string copied(MRLDocumentOutput& document, const std::string& directory) {
    const std::string bytes = written([&](PLQOutputStream& out) { document >> out; });
    HBLByteBuffer buffer;
    buffer.append("older");
    document >> buffer;
    EXPECT_EQ(buffer.view(), bytes);
    std::ostringstream text;
    document >> static_cast<std::ostream&>(text);
    EXPECT_EQ(text.str(), bytes);
    const std::string path = directory + "/copy";
    HBLFmFile file;
    file.open(path.c_str(), HBLFmFile::eCreateAlways, 0);
    document >> file;
    EXPECT_EQ(bytesOfFile(path), bytes);
    std::FILE* const f = std::fopen(path.c_str(), "wb");
    document >> f;
    std::fclose(f);
    EXPECT_EQ(bytesOfFile(path), bytes);
    document.close();
    HBLByteBuffer read;
    document.read(read, bytes.size() + 10);
    EXPECT_EQ(read.view(), bytes);
    EXPECT_EQ(document.read(), -1);
    EXPECT_EQ(document.pcount(), bytes.size());
    return bytes;
}

struct Form {
    const char* name;
    bool encrypted;
    int ostream;
    int compress;
    std::size_t size;
};

class Output : public testing::TestWithParam<Form> {};
INSTANTIATE_TEST_SUITE_P(
    Document, Output,
    testing::Values(Form{"memory", false, 0, 0, 900}, Form{"file", false, 0, 0, 20000},
                    Form{"encrypted_file", true, 0, 0, 50000}, Form{"packed", false, 0, 1, 5000},
                    Form{"packed_file", false, 0, 1, 60000}, Form{"stream", false, 1, 0, 900},
                    Form{"stream_file", true, 1, 0, 20000}, Form{"packed_stream", false, 1, 1, 5000},
                    Form{"packed_stream_file", true, 1, 1, 60000}, Form{"empty", false, 0, 0, 0},
                    Form{"empty_packed", false, 0, 1, 0}, Form{"empty_packed_stream", false, 1, 1, 0}),
    [](const auto& row) { return std::string(row.param.name); });

void fill(MRLDocumentOutput& document, const std::string& bytes) {
    for (std::size_t at = 0; at < bytes.size(); at += 700) {
        document.write(bytes.substr(at, 700));
    }
}

TEST_P(Output, ComesOutAsItWentInWhereverItGoes) {
    const Documents documents(GetParam().encrypted);
    const HBLSmartPointer<MRLDocumentOutput> document(new MRLDocumentOutput);
    document->init(GetParam().ostream, GetParam().compress);
    const std::string bytes = bytesOf(GetParam().size);
    fill(*document, bytes);
    EXPECT_EQ(document->getCompressed(), GetParam().compress);
    const std::string stored = copied(*document, documents.temp());
    EXPECT_EQ(GetParam().compress != 0 ? unpacked(stored) : stored, bytes);
    const bool inFile = stored.size() > 1000;
    const char* const name = document->availableFileName();
    EXPECT_EQ(name != nullptr, inFile && !GetParam().encrypted);
    EXPECT_EQ(name != nullptr ? bytesOfFile(name) : stored, stored);
}

TEST_P(Output, IsWholeOrFailsHoweverItsFileFails) {
    const Documents documents(GetParam().encrypted);
    const std::string bytes = bytesOf(GetParam().size);
    for (int n = 1;; ++n) {
        std::string outcome;
        bool failed = false;
        {
            const FailingStep step(n);
            try {
                MRLDocumentOutput document;
                document.init(GetParam().ostream, GetParam().compress);
                fill(document, bytes);
                outcome = written([&](PLQOutputStream& out) { document >> out; });
                outcome = GetParam().compress != 0 ? unpacked(outcome) : outcome;
            } catch (PLQStreamError&) {
                failed = true;
            } catch (HBLAssertError&) { // no directory, no file
                failed = true;
            }
            if (!step.happened()) {
                EXPECT_FALSE(failed);
                break;
            }
        }
        EXPECT_TRUE(failed || outcome == bytes) << "step " << n << " lost something";
        ASSERT_EQ(documents.files(), 0U) << "step " << n << " left its file";
    }
}

TEST(Document, OnAByteBufferBelongsToWhoeverTheCallerSays) {
    const Documents documents;
    HBLByteBuffer buffer;
    buffer.append("0123456789");
    MRLDocumentOutput document;
    document.init(0, 1);
    document.init(buffer);
    EXPECT_EQ(document.getCompressed(), 0);
    EXPECT_EQ(copied(document, documents.temp()), "0123456789");
    EXPECT_EQ(document.seek(10, eMRL_Streamable_SeekBegin), -1);
    EXPECT_EQ(document.seek(0, eMRL_Streamable_SeekEnd), 9);
    EXPECT_EQ(document.seek(-11, eMRL_Streamable_SeekCurrent), -1);
    expectAssert([&] { document.write("x"); }, "HBL_ASSERT(pDocIo);");
    document.init(new HBLByteBuffer(buffer));
    document.init(0, 0);
    EXPECT_STREQ(buffer.str(), "0123456789");
    document << "a" << std::string("b") << I18NString("\xC3\xA4");
    EXPECT_STREQ(document.str(), "ab\xC3\xA4");
}

TEST(Document, IsPackedWhereAskedAndAllowed) {
    const Documents documents;
    MRLDocumentOutput document;
    const auto packed = [&](auto... how) {
        document.init(how...);
        return document.getCompressed();
    };
    const MRLTestInfo* const none = nullptr;
    EXPECT_EQ(packed(0, 1, MRLEncodingEnum::eMIMECompressed), 1);
    EXPECT_EQ(packed(0, 1, MRLEncodingEnum::eMIME), 0);
    EXPECT_EQ(packed(1, 0, MRLEncodingEnum::eMIMECompressed), 0);
    EXPECT_EQ(packed(0, 1, none, 0, MRLEncodingEnum::eMIME), 1);
    EXPECT_EQ(packed(0, 1, none, 1, MRLEncodingEnum::eMIME), 0);
    mrl::detail::PropertyAccess::setValue("DocumentOutputCompression", I18NString("0"), 1);
    EXPECT_EQ(packed(0, 1), 0);
}

TEST(Document, ThatLostSomethingOnAFullDiskIsNotPassedOn) {
    const Documents documents;
    for (const int ostream : {0, 1}) {
        MRLDocumentOutput document;
        document.init(ostream, 0);
        const FullDisk disk(20000);
        fill(document, bytesOf(50000));
        EXPECT_LT(document.pcount(), 50000U);
        PLQMemoryOutputStream out(1, 1);
        EXPECT_THROW(document >> out, PLQStreamError);
        EXPECT_THROW(document.availableFileName(), PLQStreamError);
    }
    MRLDocumentOutput whole;
    whole.init(0, 0);
    whole << "text";
    HBLFmFile full;
    full.open("/dev/full", HBLFmFile::eOpenExisting, 0);
    EXPECT_THROW(whole >> full, PLQStreamError);
}

} // namespace
