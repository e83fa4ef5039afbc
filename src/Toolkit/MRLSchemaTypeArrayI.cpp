#include "Toolkit/MRLSchemaTypeArrayI.h"

MRLSchemaTypeArrayI::~MRLSchemaTypeArrayI() = default;
