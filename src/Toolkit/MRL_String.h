#pragma once

#include "HBLCore/HBLArena.h"
#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/MRLExport.h"

/// Text in a growing buffer: what a reader hands to a schema object, which keeps the pointer into it.
class MRL_EXPORT MRL_String : public HBLByteBuffer, public HBLArenaPiece {
public:
    MRL_String();
    ~MRL_String() override;

    /// Removes blanks, tabs (both kinds), line and form feeds and carriage returns at both ends.
    void trim();
};
