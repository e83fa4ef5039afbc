#include "TavelTK/TavelTKSession.h"

TavelTKSession::~TavelTKSession() = default;

void TavelTKSession::echo(const char* fileName) {
    echo(fileName, "wb", 1);
}

void TavelTKSession::echo(const char*, const char*, int) {}
