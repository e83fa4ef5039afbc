#include "PLQStreams/PLQOutputStream.h"

PLQOutputStream::~PLQOutputStream() = default;

void PLQOutputStream::flush() {}

void PLQOutputStream::close() {}
