#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

namespace mrl::tool {

/// `a == b` by the class of `a`. The interface of schema types has no comparison: each class brings its
/// own. False for a type that is not of the catalogue.
bool equals(const MRLSchemaTypeI& a, const MRLSchemaTypeI& b);

} // namespace mrl::tool
