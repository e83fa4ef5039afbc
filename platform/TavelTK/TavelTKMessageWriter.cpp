#include "TavelTK/TavelTKMessageWriter.h"

TavelTKMessageWriter::~TavelTKMessageWriter() = default;
