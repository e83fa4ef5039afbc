#include "Toolkit/MRLObjectRegistryI.h"

MRLObjectRegistryI::~MRLObjectRegistryI() = default;
