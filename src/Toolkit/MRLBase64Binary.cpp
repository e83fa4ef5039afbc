#include "Toolkit/MRLBase64Binary.h"

#include "Toolkit/MRL_Streamable.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQBase64OutputStream.h"

#include <algorithm>
#include <cstring>

MRLBase64Binary::MRLBase64Binary() = default;

MRLBase64Binary::MRLBase64Binary(const char* data, std::size_t length) {
    if (data == nullptr)
        return;
    const std::size_t size = length != 0 ? length : std::strlen(data);
    const std::size_t capacity = std::max<std::size_t>(size, 1); // an owned block never counts as borrowed
    m_data = hblNewChars(HBL_HERE, capacity);
    m_capacity = capacity;
    std::memcpy(m_data, data, size);
    m_size = size;
}

MRLBase64Binary::MRLBase64Binary(MRLPrivateData* privateData)
    : m_private(privateData) {}

MRLBase64Binary::~MRLBase64Binary() {
    reference(nullptr, 0);
}

void MRLBase64Binary::serialize(PLQOutputStream& out) const {
    if (m_streamable != nullptr) {
        PLQBase64OutputStream base64(out);
        *m_streamable >> base64;
        base64.unWrap();
        return;
    }
    if (m_data == nullptr || m_size == 0)
        return;
    if (m_isContentId != 0) {
        out.write(m_data, m_size);
        return;
    }
    PLQBase64OutputStream base64(out);
    base64.write(m_data, m_size);
    base64.unWrap();
}

void MRLBase64Binary::append(const char* data, std::size_t length) {
    m_streamable = nullptr;
    if (m_capacity == 0) {
        HBL_ASSERT_NAMED(m_data == nullptr, "Data that is referenced cannot be appended to.");
        m_size = 0;
    }
    HBL_ASSERT(data);
    const std::size_t added = length != 0 ? length : std::strlen(data);
    if (m_data == nullptr || m_capacity < m_size + added) {
        const std::size_t capacity = std::max<std::size_t>(m_capacity + 2 * added, 1);
        char* const block = hblNewChars(HBL_HERE, capacity);
        if (m_size != 0)
            std::memcpy(block, m_data, m_size);
        // The data may lie in the old block, which therefore goes last.
        std::memcpy(block + m_size, data, added);
        delete[] m_data;
        m_data = block;
        m_capacity = capacity;
    } else {
        std::memmove(m_data + m_size, data, added);
    }
    HBL_ASSERT(m_data);
    m_size += added;
}

void MRLBase64Binary::reference(const char* data, std::size_t length) {
    m_streamable = nullptr;
    if (m_capacity != 0) {
        delete[] m_data;
        m_capacity = 0;
    }
    m_data = const_cast<char*>(data); // never written to while borrowed
    m_size = data != nullptr && length == 0 ? std::strlen(data) : length;
}

void MRLBase64Binary::reference(const MRL_Streamable& streamable) {
    reference(nullptr, 0);
    m_streamable = &streamable;
}

std::size_t MRLBase64Binary::pcount() const {
    return m_streamable != nullptr ? static_cast<std::size_t>(-1) : m_size;
}

int MRLBase64Binary::operator==(const MRLBase64Binary& other) const {
    if (this == &other)
        return 1;
    if (m_size != other.m_size)
        return 0;
    HBL_ASSERT(!m_streamable);
    if (m_size == 0)
        return 1;
    if (m_data == nullptr || other.m_data == nullptr)
        return 0;
    return std::memcmp(m_data, other.m_data, m_size) == 0 ? 1 : 0;
}

int MRLBase64Binary::operator!=(const MRLBase64Binary& other) const {
    return operator==(other) != 0 ? 0 : 1;
}
