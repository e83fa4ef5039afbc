// The crypto gateway over the real library and a store of its own.
#include "Session/MRLHelper.h"
#include "Session/MRLProperty.h"
#include "Session/MRLSOAPSession.h"
#include "Session/Replies.h"
#include "Session/detail/SpecSignature.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLQAF.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLXmlEncodedXML.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "support/Failure.h"
#include "support/FakeBus.h"
#include "support/KeyStore.h"
#include "support/Threads.h"

#include "HBLCore/HBLBase64.h"
#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLSmartPointer.h"
#include "ZORCrypto/ZORKeyStore.h"
#include "ZORCrypto/ZORTrustedReader.h"

namespace {

constexpr const char* SERVICE = "test"; // of all calls: handles stay with the service that opens them

class CryptoGateway : public WithStore {
protected:
    CryptoGateway() { writeStore(KNOWN_STORE); }
    HBLByteBuffer m_out{1, 64, 64};
};

TEST_F(CryptoGateway, AppendsWhatItEncryptsAndReplacesByWhatItSigns) {
    m_out.append("before ");
    MRLHelper::encrypt("hello", 5, SERVICE, m_out);
    ASSERT_TRUE(m_out.view().starts_with("before ZOR\1\1\4"));
    std::string clear;
    EXPECT_EQ(MRLHelper::decrypt(m_out.str() + 7, m_out.pcount() - 7, SERVICE, clear), 1);
    EXPECT_EQ(clear, "hello");
    EXPECT_EQ(MRLHelper::verifyTrusted(m_out.str() + 7, m_out.pcount() - 7, SERVICE), 1);
    EXPECT_EQ(MRLHelper::decrypt("hello", 5, SERVICE, clear), 0);
    EXPECT_EQ(clear, "hello") << "as it came";
    for (const auto protect :
         {&MRLHelper::encrypt, &MRLHelper::encryptTrusted, &MRLHelper::signSpecification}) {
        m_out.reset();
        m_out.append("kept");
        protect("x", 0, SERVICE, m_out);
        protect(nullptr, 5, SERVICE, m_out);
        EXPECT_EQ(m_out.view(), "kept");
    }
    MRLHelper::signSpecification("<report/>", 9, SERVICE, m_out);
    EXPECT_TRUE(m_out.view().starts_with("<report/><!--ZOR1 20650f4c25d0fabd ")) << m_out.view();
    m_out.reset();
    MRLHelper::encryptAndEncode("hello", 5, SERVICE, m_out);
    const std::string unterminated(m_out.str(), m_out.pcount());
    EXPECT_EQ(MRLHelper::decryptAndDecode(unterminated.data(), unterminated.size(), SERVICE, &clear), 1);
    EXPECT_EQ(MRLHelper::decryptAndDecode(unterminated.data(), unterminated.size() - 1, SERVICE, &clear), 0);
}

TEST_F(CryptoGateway, TellsWhereASignatureBegins) {
    const char* signature = "unset";
    EXPECT_EQ(MRLHelper::verifySpecSignature(nullptr, 0, SERVICE, signature), 1);
    EXPECT_EQ(signature, nullptr);
    MRLHelper::signSpecification("<report/>", 9, SERVICE, m_out);
    EXPECT_EQ(MRLHelper::verifySpecSignature(m_out.str(), m_out.pcount(), SERVICE, signature), 1);
    EXPECT_EQ(signature, m_out.str() + 9);
    m_out.str()[1] = 'R';
    EXPECT_EQ(MRLHelper::verifySpecSignature(m_out.str(), m_out.pcount(), SERVICE, signature), 0);
    EXPECT_EQ(signature, nullptr);
    EXPECT_EQ(MRLHelper::verifySpecSignature("<report/>", 9, SERVICE, signature), 0) << "not signed at all";
    expectAssert([] { mrl::detail::signatureIn("<report/>", 9, 9); },
                 "HBL_ASSERT_NAMED(veridataSize < (ZOR_UInt32)size, \"MRLHelper::verifySpecSignature - "
                 "size/signature location mismatch\");");
}

TEST_F(CryptoGateway, BelievesASecureStateThatWasIssuedForThePassport) {
    const HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistry::create());
    MRLTavelHeader header;
    const auto stateIs = [&](const std::string& state, const char* passport) {
        header.getZOR(registry.get())->getZORPassport(registry.get())->setId(passport);
        header.getQAF(registry.get())->setSecureState(state.c_str());
        return MRLHelper::getSecureStateExternal(&header, SERVICE);
    };
    EXPECT_EQ(MRLHelper::getSecureStateExternal(&header, SERVICE), 0) << "an empty header";
    const std::string external =
        Handle("dispatcher", "SecureStateSign", "<externalFlag>true</externalFlag>").protect("p1");
    const std::string internal = Handle("dispatcher", "SecureStateSign").protect("p1");
    EXPECT_EQ(stateIs(external, "p1"), 1);
    EXPECT_EQ(stateIs(external, "p2"), 0) << "of somebody else";
    EXPECT_EQ(stateIs(internal, "p1"), 0);
    EXPECT_EQ(stateIs("true", "p1"), 0);
    expectAssert([] { MRLHelper::getSecureStateExternal(nullptr, SERVICE); }, "HBL_ASSERT(pHeader);");

    std::filesystem::create_directories(m_directory / "configuration");
    std::ofstream(m_directory / "configuration" / "renqproperties.xml")
        << "<properties><entry><property>disableSpecSignCheck</property><value "
           "type=\"long\">1</value></entry></properties>";
    setenv("MRL_HOME", m_directory.c_str(), 1);
    MRLProperty::deleteInstance();
    EXPECT_EQ(MRLHelper::getSecureStateExternal(nullptr, SERVICE), 0)
        << "switched off, before anything is looked at";
    unsetenv("MRL_HOME");
    MRLProperty::deleteInstance();
}

std::string encoded(const std::string& clear) {
    HBLByteBuffer out(1, 64, 64);
    MRLHelper::encryptAndEncode(clear.data(), clear.size(), SERVICE, out);
    return std::string(out.view());
}

TEST_F(CryptoGateway, ReadsThePasswordOfACredentialInEitherForm) {
    struct Row {
        std::string xml;
        int result;
        const char* password;
    };
    const std::string clear = "<credential><username>u</username><password>p&amp;w</password></credential>";
    const Row rows[] = {
        {clear, 1, "p&w"},
        {"<credential><encryptedValue>" + encoded(clear) + "</encryptedValue></credential>", 1, "p&w"},
        {"<credential><encryptedValue/></credential>", 1, ""},
        {"<credential/>", 1, ""},
        {"<credential><encryptedValue>" + encoded("no XML") + "</encryptedValue></credential>", 0, ""},
        {"<credential><encryptedValue>aGVsbG8=</encryptedValue></credential>", 0, ""},
        {"<credential><encryptedValue>?</encryptedValue></credential>", 0, ""},
        {"<credential>", 0, ""},
    };
    for (const Row& row : rows) {
        MRLXmlEncodedXML credential;
        credential.setValue(row.xml.c_str());
        std::string password = "before";
        EXPECT_EQ(MRLHelper::decodeCredentialPassword(credential, SERVICE, password), row.result) << row.xml;
        EXPECT_EQ(password, row.password) << row.xml;
    }
}

TEST_F(CryptoGateway, BindsACredentialToItsPassport) {
    m_out.append("before");
    MRLHelper::encryptCredential("secret", "p1", 0, m_out);
    const auto size = static_cast<unsigned>(m_out.pcount());
    std::string clear;
    MRLHelper::decryptCredential(m_out.str(), size, "p1", clear);
    EXPECT_EQ(clear, "secret");
    expectAssert([&] { MRLHelper::decryptCredential(m_out.str(), size, "p2", clear); },
                 "HBL_ASSERT_NAMED(ZOR_SUCCEEDED(status), \"MRLHelper::decryptCredential\");");
    expectAssert([&] { MRLHelper::encryptCredential("secret", "p1", 1, m_out); },
                 "HBL_ASSERT_NAMED(ZOR_SUCCEEDED(status), \"MRLHelper::encryptCredential\");");
    expectAssert([&] { MRLHelper::encryptCredential("secret", nullptr, 0, m_out); }, "HBL_ASSERT(passport);");
}

TEST_F(CryptoGateway, SaysInTheBackTraceWhyItCannotProtect) {
    writeStore(KNOWN_STORE, 0644);
    EXPECT_EQ(MRLHelper::initCrypto("MRL"), 0);
    try {
        MRLHelper::encrypt("x", 1, SERVICE, m_out);
        ADD_FAILURE() << "encrypted with keys that others may have read";
    } catch (HBLAssertError& e) {
        EXPECT_STREQ(e.getText(), "HBL_ASSERT(ZOR_SUCCEEDED(status));");
        EXPECT_NE(e.getBackTrace().at(0).find("is open to others"), std::string::npos) << e.toString();
    }
    EXPECT_TRUE(m_out.empty());
    expectAssert([] { MRLHelper::initCrypto(nullptr); }, "HBL_ASSERT(service);");
}

TEST_F(CryptoGateway, ServesSixteenThreadsWithOneHandleForEachPurposeWhileKeysRotate) {
    mrl::test::inThreads(16, [](int t) {
        const std::string text(static_cast<std::size_t>(100 * t + 1), static_cast<char>('a' + t));
        for (int i = 0; i < 10; ++i) {
            HBLByteBuffer out(1, 64, 64);
            MRLHelper::encrypt(text.data(), text.size(), SERVICE, out);
            std::string clear;
            EXPECT_EQ(MRLHelper::decrypt(out.str(), out.pcount(), SERVICE, clear), 1);
            EXPECT_EQ(clear, text);
            MRLHelper::signSpecification(text.data(), text.size(), SERVICE, out);
            const char* signature = nullptr;
            EXPECT_EQ(MRLHelper::verifySpecSignature(out.str(), out.pcount(), SERVICE, signature), 1);
            MRLHelper::encryptTrusted(text.data(), text.size(), SERVICE, out);
            if (t + i == 8)
                ZORKeyStore::rotate(ZORKeyStore::location());
        }
    });
}

std::string submit(const mrl::test::TextCall& call, MRLSOAPSession::MRLSOAPTrusted trusted) {
    MRLTavelHeader header;
    MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, SERVICE);
    session.setURI("http://bus.example/service");
    session.submit(*call.binding, trusted, nullptr);
    return call.result();
}

TEST_F(CryptoGateway, ProtectsTrustedRequestsSoThatTheBusReadsTheSameBytes) {
    mrl::test::FakeBus bus;
    bus.answer(mrl::test::fault("cmNoPermission"));
    bus.answer(mrl::test::answer("cm1"));
    bus.answer(mrl::test::answer("cm1"));
    ZORTrustedReader reader;
    const mrl::test::TextCall call;
    EXPECT_EQ(submit(call, MRLSOAPSession::eMRLSOAPTrustedOnDenial), "cm1");
    EXPECT_EQ(submit(call, MRLSOAPSession::eMRLSOAPTrusted), "cm1");
    ASSERT_EQ(bus.requests.size(), 3u);
    for (const std::size_t sent : {1u, 2u}) {
        ASSERT_TRUE(ZORTrustedReader::isProtected(bus.requests[sent])) << bus.requests[sent];
        const ZORTrustedReader::Request request = reader.open(bus.requests[sent]);
        EXPECT_EQ(request.text, bus.requests[0]) << "what was denied in clear";
        EXPECT_EQ(request.service, SERVICE);
    }
}

} // namespace
