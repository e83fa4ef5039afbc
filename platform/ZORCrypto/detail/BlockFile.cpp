#include "ZORCrypto/detail/BlockFile.h"

#include "ZORCrypto/detail/Random.h"

#include <openssl/crypto.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace mrl::detail {

namespace {

using Number = std::array<unsigned char, 12>;

/// `value` in the last eight bytes, highest first.
Number bigEndian(std::uint64_t value) noexcept {
    Number bytes{};
    for (std::size_t i = bytes.size(); value != 0; value >>= 8)
        bytes[--i] = static_cast<unsigned char>(value);
    return bytes;
}

off_t offsetOf(std::uint64_t index) noexcept {
    return static_cast<off_t>(index * BlockFile::c_blockSize);
}

constexpr std::uint64_t c_mostAhead = 63; // blocks that room is taken for before they come

constexpr int c_block = static_cast<int>(BlockFile::c_blockSize);
constexpr int c_tag = static_cast<int>(BlockFile::c_tagSize);

} // namespace

int BlockFile::start() {
    std::array<unsigned char, 32> key{};
    m_sealing.reset(EVP_CIPHER_CTX_new());
    m_opening.reset(EVP_CIPHER_CTX_new());
    m_stored.resize(c_blockSize);
    m_forks = forkCount();
    const bool ready =
        m_sealing && m_opening && fillRandom(key.data(), key.size()) &&
        EVP_EncryptInit_ex2(m_sealing.get(), EVP_aes_256_gcm(), key.data(), nullptr, nullptr) == 1 &&
        EVP_DecryptInit_ex2(m_opening.get(), EVP_aes_256_gcm(), key.data(), nullptr, nullptr) == 1;
    OPENSSL_cleanse(key.data(), key.size());
    return ready ? 0 : EIO;
}

int BlockFile::seal(std::uint64_t index, Seal& with, const unsigned char* block) {
    EVP_CIPHER_CTX* const context = m_sealing.get();
    const Number place = bigEndian(index);
    int size = 0;
    const bool sealed =
        EVP_EncryptInit_ex2(context, nullptr, nullptr, bigEndian(with.number).data(), nullptr) == 1 &&
        EVP_EncryptUpdate(context, nullptr, &size, place.data(), static_cast<int>(place.size())) == 1 &&
        EVP_EncryptUpdate(context, m_stored.data(), &size, block, c_block) == 1 &&
        EVP_EncryptFinal_ex(context, m_stored.data() + size, &size) == 1 &&
        EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_GET_TAG, c_tag, with.tag.data()) == 1;
    return sealed ? 0 : EIO;
}

int BlockFile::unseal(std::uint64_t index, Seal with, unsigned char* block) {
    EVP_CIPHER_CTX* const context = m_opening.get();
    const Number place = bigEndian(index);
    int size = 0;
    const bool good =
        EVP_DecryptInit_ex2(context, nullptr, nullptr, bigEndian(with.number).data(), nullptr) == 1 &&
        EVP_DecryptUpdate(context, nullptr, &size, place.data(), static_cast<int>(place.size())) == 1 &&
        EVP_DecryptUpdate(context, block, &size, m_stored.data(), c_block) == 1 &&
        EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_SET_TAG, c_tag, with.tag.data()) == 1 &&
        EVP_DecryptFinal_ex(context, block + size, &size) == 1;
    return good ? 0 : EBADMSG;
}

int BlockFile::read(std::uint64_t index, unsigned char* block) {
    if (m_forks != forkCount())
        return EPERM;
    const Seal with = index < m_seals.size() ? m_seals[index] : Seal();
    if (with.number == 0) {
        std::fill_n(block, c_blockSize, static_cast<unsigned char>(0));
        return 0;
    }
    std::size_t done = 0;
    int error = 0;
    while (done < c_blockSize && error == 0) {
        const ssize_t got = ::pread(m_descriptor, m_stored.data() + done, c_blockSize - done,
                                    offsetOf(index) + static_cast<off_t>(done));
        if (got > 0)
            done += static_cast<std::size_t>(got);
        else if (got == 0)
            error = EBADMSG; // the file was cut off
        else if (errno != EINTR)
            error = errno;
    }
    if (error == 0)
        error = unseal(index, with, block);
    if (error != 0)
        OPENSSL_cleanse(block, c_blockSize); // nothing unproven leaves
    return error;
}

int BlockFile::reserve(std::uint64_t index) {
    if (m_forks != forkCount())
        return EPERM;
    const bool grows = index >= m_seals.size();
    if (grows)
        m_seals.resize(index + 1);
    if (m_seals[index].number != 0 || (index >= m_roomFrom && index < m_roomTo))
        return 0;
    // A file that grows gets room for an eighth of itself at once; where that does not fit, for the block.
    for (std::uint64_t ahead = grows ? std::min(index / 8, c_mostAhead) : 0;; ahead = 0) {
        int error = 0;
        do {
            error = ::posix_fallocate(m_descriptor, offsetOf(index),
                                      static_cast<off_t>((ahead + 1) * c_blockSize));
        } while (error == EINTR);
        if (error == 0) {
            m_roomFrom = index;
            m_roomTo = index + ahead + 1;
        }
        if (error == 0 || ahead == 0)
            return error;
    }
}

int BlockFile::write(std::uint64_t index, const unsigned char* block) {
    if (m_forks != forkCount())
        return EPERM;
    if (m_seals.size() <= index)
        m_seals.resize(index + 1);
    Seal with{++m_writes, {}};
    if (const int error = seal(index, with, block))
        return error;
    Seal& last = m_seals[index];
    int error = 0;
    for (std::size_t done = 0; done < c_blockSize && error == 0;) {
        const ssize_t put = ::pwrite(m_descriptor, m_stored.data() + done, c_blockSize - done,
                                     offsetOf(index) + static_cast<off_t>(done));
        if (put >= 0)
            done += static_cast<std::size_t>(put);
        else if (errno != EINTR)
            error = errno;
    }
    // After a failure the old content may be gone; a block that was never written still is not.
    if (error == 0 || last.number != 0)
        last = with;
    return error;
}

int BlockFile::close() {
    if (m_descriptor < 0)
        return 0;
    const int result = ::close(m_descriptor) == 0 || errno == EINTR ? 0 : errno;
    m_descriptor = -1; // also after a failure: the system has let go of it
    return result;
}

} // namespace mrl::detail
