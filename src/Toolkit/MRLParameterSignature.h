#pragma once

#include "Toolkit/MRLMessageFactory.h"

#include "HBLCore/MRLExport.h"

#include <vector>

class MRLMessageParam;

/// Whether a list of given parameters fits a declared signature: all of them in order, or an
/// ordered part of them; nothing given fits any signature.
/// @throws HBLAssertError for a null list, a null parameter, or a parameter without a name.
MRL_EXPORT bool isSameParameterSignature(const MRLMessageFactory::MRLParamDescriptor* expectedParamList,
                                         const std::vector<MRLMessageParam*>& actualParams);

/// Whether one given parameter fits a declared one: the same name, and the same type or one derived
/// from it.
/// @throws HBLAssertError for a null parameter or name; MRLException when the type to be tested is
///         abstract and no value is given.
MRL_EXPORT bool isSameParameter(const MRLMessageFactory::MRLParamDescriptor& expected,
                                const MRLMessageParam* actual);
