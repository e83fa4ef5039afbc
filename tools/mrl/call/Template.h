#pragma once

#include "call/JsonInput.h"
#include "data/CatalogueData.h"

namespace mrl::tool {

/// The JSON of a request with every parameter set to something: texts tell their type. It can be built as
/// it is.
/// @param depth levels of objects below the parameters; what lies deeper is left out.
Json requestTemplate(const MessageRow& request, int depth);

} // namespace mrl::tool
