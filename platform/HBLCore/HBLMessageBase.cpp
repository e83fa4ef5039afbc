#include "HBLCore/HBLMessageBase.h"

HBLMessageBase::~HBLMessageBase() = default;
