#include "PLQStreams/PLQFilterOutputStream.h"

#include "HBLCore/HBLFailure.h"

PLQFilterOutputStream::PLQFilterOutputStream(PLQOutputStream& downstream)
    : p_downstream(&downstream) {}

PLQFilterOutputStream::~PLQFilterOutputStream() = default;

void PLQFilterOutputStream::write(const char* data, std::size_t length) {
    HBL_ASSERT(p_downstream);
    p_downstream->write(data, length);
}

void PLQFilterOutputStream::flush() {
    if (p_downstream)
        p_downstream->flush();
}

void PLQFilterOutputStream::close() {
    if (p_downstream)
        p_downstream->close();
}

void PLQFilterOutputStream::wrap(PLQOutputStream& downstream) {
    p_downstream = &downstream;
}

void PLQFilterOutputStream::unWrap() {
    p_downstream = nullptr;
}
