#include "soap/Envelope.h"

#include "Toolkit/MRLPortTypeBinding.h"
#include "serialization/MRLSOAPMessageISerializerFactory.h"
#include "serialization/MRLSOAPMessageISerializerI.h"

#include "PLQStreams/PLQMemoryOutputStream.h"

#include <memory>

namespace mrl::bus {

namespace {

constexpr std::size_t initialSize = 16384;
constexpr std::size_t growth = 65536;

struct GiveBack {
    void operator()(MRLSOAPMessageISerializerI* writer) const {
        MRLSOAPMessageISerializerFactory::getInstance().destroy(writer);
    }
};

} // namespace

std::string replyEnvelope(MRLPortTypeBinding& binding) {
    PLQMemoryOutputStream out(initialSize, growth);
    const std::unique_ptr<MRLSOAPMessageISerializerI, GiveBack> writer(
        MRLSOAPMessageISerializerFactory::getInstance().create());
    writer->serialize(binding, binding.getOutputMessage(), out, nullptr, 1, 0);
    return {out.bytes(), out.length()};
}

} // namespace mrl::bus
