#include "Toolkit/MRLSchemaTypeI.h"

MRLSchemaTypeI::~MRLSchemaTypeI() = default;
