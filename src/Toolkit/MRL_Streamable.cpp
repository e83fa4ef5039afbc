#include "Toolkit/MRL_Streamable.h"

MRL_Streamable::~MRL_Streamable() = default;
