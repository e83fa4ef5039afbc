#include "Session/MRLSOAPSessionI.h"

MRLSOAPSessionI::~MRLSOAPSessionI() = default;
