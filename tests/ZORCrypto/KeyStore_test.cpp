// The key store: made once, for its owner alone, refused when it cannot be trusted.
#include "support/KeyStore.h"
#include "support/Table.h"

#include "ZORCrypto/ZORKeyStore.h"

#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class KeyStore : public WithStore {
protected:
    /// Why the store is refused; empty when it is not.
    std::string refusal() const {
        try {
            ZORKeyStore::list(m_path);
            return {};
        } catch (const ZORError& e) {
            EXPECT_NE(std::string(e.getText()).find(m_path), std::string::npos)
                << "names the file: " << e.getText();
            return e.getText();
        }
    }
};

TEST_F(KeyStore, IsMadeByTheFirstUseForItsOwnerAlone) {
    const mode_t before = umask(0);
    Handle("RENQ", "CSKEncrypt").protect("x");
    umask(before);
    EXPECT_EQ(fs::status(m_path).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::status(m_directory / "store").permissions(), fs::perms(0700));
    EXPECT_FALSE(fs::exists(m_path + ".new"));
    EXPECT_FALSE(ZORKeyStore::create(m_path)) << "never in the place of another";
    EXPECT_EQ(refusal(), "");
}

TEST_F(KeyStore, IsTheSameForAllWhoStartAtOnce) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    constexpr int CHILDREN = 12;
    int start[2];
    ASSERT_EQ(pipe(start), 0);
    for (int i = 0; i < CHILDREN; ++i) {
        if (fork() == 0) {
            char go = 0;
            close(start[1]);
            (void)!read(start[0], &go, 1); // all wait for the pipe to close
            const std::string id = Handle("RENQ", "CSKEncrypt").protect("x").substr(6, 8);
            _exit(write(ends[1], id.data(), id.size()) == 8 ? 0 : 1);
        }
    }
    close(start[0]);
    close(start[1]);
    std::set<std::string> ids;
    for (int i = 0; i < CHILDREN; ++i) {
        int status = 0;
        wait(&status);
        EXPECT_EQ(status, 0);
        std::string id(8, '\0');
        ASSERT_EQ(read(ends[0], id.data(), 8), 8);
        ids.insert(id);
    }
    close(ends[0]);
    close(ends[1]);
    EXPECT_EQ(ids.size(), 1u);
    EXPECT_EQ(ZORKeyStore::list(m_path).size(), 1u);
}

TEST_F(KeyStore, IsRefusedWhenOthersMayReadOrReplaceIt) {
    for (const mode_t mode : {0640u, 0604u, 0660u, 0606u, 0644u}) {
        writeStore(KNOWN_STORE, mode);
        EXPECT_NE(refusal().find("is open to others (rights 0"), std::string::npos) << std::oct << mode;
        EXPECT_NE(refusal().find("chmod 600"), std::string::npos) << "the remedy: " << refusal();
    }
    writeStore(KNOWN_STORE, 0400);
    EXPECT_EQ(refusal(), "");
    fs::permissions(m_directory / "store", fs::perms(0777));
    EXPECT_NE(refusal().find("where others may replace it"), std::string::npos);
    EXPECT_THROW(ZORKeyStore::rotate(m_path), ZORError);
    fs::permissions(m_directory / "store", fs::perms(0755));
    fs::rename(m_path, m_path + ".real");
    fs::create_symlink(m_path + ".real", m_path);
    EXPECT_NE(refusal().find("is a symbolic link"), std::string::npos);
}

TEST_F(KeyStore, IsRefusedByTheLineThatIsDamaged) {
    const auto isRefused = [&](const std::string& text, const std::string& expected) {
        writeStore(text);
        EXPECT_NE(refusal().find(expected), std::string::npos) << refusal() << "\nexpected: " << expected;
        EXPECT_EQ(refusal().find("00010203"), std::string::npos) << "says nothing of a key";
    };
    for (const auto& row : mrl::test::table("damaged_stores.txt")) { // what becomes what, why it is refused
        std::string text = KNOWN_STORE;
        isRefused(text.replace(text.find(row[0]), row[0].size(), row[1]), row[2]);
    }
    isRefused(KNOWN_STORE.substr(0, 60), "line 2: the file ends before its sum");
    isRefused("", "line 1: expected \"mrl key store 1\"");
    isRefused(std::string(1 << 21, 'x'), "it is larger than any key store");
    char* details = nullptr;
    const char* const document = "<initializeDocument><serviceID>MRL</serviceID></initializeDocument>";
    EXPECT_EQ(ZOR_CryptoInitialize(document, 0, &details), eZORKeyStore) << "found when the library starts";
    EXPECT_NE(std::string(details).find("restore it from a backup"), std::string::npos) << details;
    ZOR_CryptoFree(details, 0);
}

} // namespace
