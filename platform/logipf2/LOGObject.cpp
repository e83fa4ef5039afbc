#include "logipf2/LOGObject.h"

LOGObject::~LOGObject() = default;
