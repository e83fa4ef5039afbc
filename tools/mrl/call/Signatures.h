#pragma once

#include "Toolkit/MRLPortTypeBinding.h"
#include "call/JsonInput.h"
#include "call/ValueBuilder.h"
#include "data/CatalogueData.h"

#include "HBLCore/HBLSmartPointer.h"

#include <string>
#include <vector>

namespace mrl::tool {

using Binding = HBLSmartPointer<MRLPortTypeBinding>;

/// A request that is ready to be sent.
struct BuiltRequest {
    Binding binding;
    std::vector<std::string> contentIds; ///< the attachments that it refers to
};

/// The request of one signature, with what `json` says.
/// @throws JsonError
BuiltRequest buildRequest(const ServiceRow& service, const OperationRow& operation, const Json& json);

/// The request of the first signature that `json` fits; of several that know all its parameters the one
/// with the fewest is tried first.
/// @throws JsonError with what is wrong for the signature that comes nearest.
BuiltRequest buildRequest(const ServiceRow& service, const std::vector<const OperationRow*>& signatures,
                          const Json& json);

} // namespace mrl::tool
