#include "TavelTK/TavelTKAttachmentReader.h"

TavelTKAttachmentReader::~TavelTKAttachmentReader() = default;
