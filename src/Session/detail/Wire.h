#pragma once

#include "serialization/MRLFromFactory.h"
#include "serialization/MRLSOAPMessageIDeserializerFactory.h"
#include "serialization/MRLSOAPMessageIDeserializerI.h"
#include "serialization/MRLSOAPMessageISerializerFactory.h"
#include "serialization/MRLSOAPMessageISerializerI.h"

#include <memory>

namespace mrl::detail {

/// A serializer or deserializer that goes back to the factory it came from.
using Serializer = std::unique_ptr<MRLSOAPMessageISerializerI, MRLGiveBack<MRLSOAPMessageISerializerFactory>>;
using Deserializer =
    std::unique_ptr<MRLSOAPMessageIDeserializerI, MRLGiveBack<MRLSOAPMessageIDeserializerFactory>>;

inline Serializer createSerializer() {
    return mrlFromFactory<MRLSOAPMessageISerializerFactory>();
}
inline Deserializer createDeserializer() {
    return mrlFromFactory<MRLSOAPMessageIDeserializerFactory>();
}

} // namespace mrl::detail
