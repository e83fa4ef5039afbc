#include "Session/MRLWriter.h"

MRLWriter::~MRLWriter() = default;

void MRLWriter::flush() {}

void MRLWriter::close() {}
