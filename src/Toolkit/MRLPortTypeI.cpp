#include "Toolkit/MRLPortTypeI.h"

MRLPortTypeI::~MRLPortTypeI() = default;
