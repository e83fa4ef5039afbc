#include "soap/Envelope.h"

#include "Toolkit/MRLPortTypeBinding.h"
#include "serialization/MRLFromFactory.h"
#include "serialization/MRLSOAPMessageISerializerFactory.h"
#include "serialization/MRLSOAPMessageISerializerI.h"

#include "PLQStreams/PLQMemoryOutputStream.h"

namespace mrl::bus {

namespace {

constexpr std::size_t initialSize = 16384;
constexpr std::size_t growth = 65536;

} // namespace

std::string replyEnvelope(MRLPortTypeBinding& binding) {
    PLQMemoryOutputStream out(initialSize, growth);
    const auto writer = mrlFromFactory<MRLSOAPMessageISerializerFactory>();
    writer->serialize(binding, binding.getOutputMessage(), out, nullptr, 1, 0);
    return {out.bytes(), out.length()};
}

} // namespace mrl::bus
