#pragma once

#include "support/Environment.h"
#include "support/TemporaryDirectory.h"

#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/ZOR_Crypto_Interface.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>

/// A store of one known key, worked out as README.md tells.
inline const std::string KNOWN_STORE =
    "mrl key store 1\n"
    "key 20650f4c25d0fabd 2026-11-21T06:00:00Z "
    "000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f\n"
    "sum a8caa2577e9b00e9b9f478b01655cb0d3de47d72f28b80df25dc31dd8fc26cad\n";

/// An empty directory in which the key store is looked for.
class WithStore : public testing::Test {
protected:
    void writeStore(const std::string& text, mode_t mode = 0600) const {
        std::filesystem::create_directories(m_directory / "store");
        std::filesystem::remove(m_path);
        std::ofstream(m_path, std::ios::binary) << text;
        chmod(m_path.c_str(), mode);
    }

    const mrl::test::TemporaryDirectory m_temporary;
    const std::filesystem::path m_directory = m_temporary.path();
    const std::string m_path = m_directory / "store" / "mrl.keys";
    const mrl::test::Variable m_variable{"MRL_KEY_STORE", m_path};
};

/// An open handle.
class Handle {
public:
    Handle(const std::string& service, const std::string& action, const std::string& more = "") {
        const std::string config =
            "<sessionConfigDocument><serviceID>" + service + "</serviceID></sessionConfigDocument>";
        const std::string info =
            "<setInfoDocument><action>" + action + "</action>" + more + "</setInfoDocument>";
        EXPECT_EQ(ZOR_PersistentInitialize(&m_handle, config.c_str(), 0, nullptr), 0);
        EXPECT_EQ(ZOR_SetInfo(m_handle, info.c_str(), 0), 0) << details();
    }

    std::string protect(const std::string& data) {
        char* result = nullptr;
        ZOR_UInt32 size = 0;
        EXPECT_EQ(
            ZOR_ProtectData(m_handle, data.data(), static_cast<ZOR_UInt32>(data.size()), &result, &size, 0),
            0)
            << details();
        return take(result, size);
    }
    int unprotect(const std::string& data, std::string& out) {
        char* result = nullptr;
        ZOR_UInt32 size = 0;
        const int status =
            ZOR_UnprotectData(m_handle, data.data(), static_cast<ZOR_UInt32>(data.size()), &result, &size, 0);
        out = result != nullptr ? take(result, size) : std::to_string(size);
        return status;
    }
    int acceptState(const std::string& passport, std::string state) {
        char* at = state.data();
        auto size = static_cast<ZOR_UInt32>(state.size());
        return ZOR_UnprotectData(m_handle, passport.data(), static_cast<ZOR_UInt32>(passport.size()), &at,
                                 &size, 0);
    }
    std::string info() {
        char* result = nullptr;
        EXPECT_EQ(ZOR_GetInfo(m_handle, "<getInfoDocument><externalFlag/><validationFlag/></getInfoDocument>",
                              &result, 0),
                  0);
        return take(result, static_cast<ZOR_UInt32>(std::char_traits<char>::length(result)));
    }
    std::string details() {
        char* text = nullptr;
        ZOR_CryptoGetLastErrorDetails(m_handle, 0, &text);
        const std::string copy = text != nullptr ? text : "";
        ZOR_CryptoFree(text, 0);
        return copy;
    }

    static std::string take(char* result, ZOR_UInt32 size) {
        std::string text(result != nullptr ? result : "", result != nullptr ? size : 0);
        ZOR_CryptoFree(result, 0);
        return text;
    }

private:
    ZOR_Handle m_handle = nullptr; // lives as long as the process
};
