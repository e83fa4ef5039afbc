#pragma once

#include "serialization/MRLSOAPMessageIDeserializerFactory.h"
#include "serialization/MRLSOAPMessageIDeserializerI.h"
#include "serialization/MRLSOAPMessageISerializerFactory.h"
#include "serialization/MRLSOAPMessageISerializerI.h"

#include <memory>

namespace mrl::detail {

struct ReturnToFactory {
    void operator()(MRLSOAPMessageISerializerI* serializer) const {
        MRLSOAPMessageISerializerFactory::getInstance().destroy(serializer);
    }
    void operator()(MRLSOAPMessageIDeserializerI* deserializer) const {
        MRLSOAPMessageIDeserializerFactory::getInstance().destroy(deserializer);
    }
};

/// A serializer or deserializer that goes back to the factory it came from.
using Serializer = std::unique_ptr<MRLSOAPMessageISerializerI, ReturnToFactory>;
using Deserializer = std::unique_ptr<MRLSOAPMessageIDeserializerI, ReturnToFactory>;

inline Serializer createSerializer() {
    return Serializer(MRLSOAPMessageISerializerFactory::getInstance().create());
}
inline Deserializer createDeserializer() {
    return Deserializer(MRLSOAPMessageIDeserializerFactory::getInstance().create());
}

} // namespace mrl::detail
