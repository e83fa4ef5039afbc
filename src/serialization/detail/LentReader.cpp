#include "serialization/detail/LentReader.h"

#include <utility>

namespace mrl::detail {

namespace {

thread_local std::unique_ptr<EnvelopeReader> t_reader;

} // namespace

LentReader::LentReader()
    : m_reader(std::move(t_reader)) {
    if (m_reader == nullptr) {
        m_reader = std::make_unique<EnvelopeReader>();
    }
}

LentReader::~LentReader() {
    if (m_isGood) {
        t_reader = std::move(m_reader);
    }
}

} // namespace mrl::detail
