#include "TavelTK/TavelTKMessageReader.h"

TavelTKMessageReader::TavelTKMessageReader(int exchange)
    : m_exchange(exchange) {}

TavelTKMessageReader::~TavelTKMessageReader() = default;
