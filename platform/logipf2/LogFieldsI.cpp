#include "logipf2/LogFieldsI.h"

LogFieldsI::~LogFieldsI() = default;
