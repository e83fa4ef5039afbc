#include "Session/MRLServiceCallbackI.h"

MRLServiceCallbackI::~MRLServiceCallbackI() = default;
