#pragma once

#include "HBLCore/MRLExport.h"
#include "PLQStreams/PLQInputStream.h"

#include <cstdint>

class PLQOutputStream;

/// Where MRL_Streamable::seek() counts from.
enum eMRL_Streamable_Seek : int {
    eMRL_Streamable_SeekBegin = 0,
    eMRL_Streamable_SeekCurrent = 1,
    eMRL_Streamable_SeekEnd = 2
};

/// Data that can be read, and that can write itself to a stream as a whole, so that a large value
/// never has to stand in one block of memory.
class MRL_EXPORT MRL_Streamable : public PLQInputStream {
public:
    ~MRL_Streamable() override;

    /// Writes all of the data, from its beginning.
    virtual void operator>>(PLQOutputStream& out) const = 0;

    /// Moves the read position, in bytes.
    /// @return the new position, or -1 when there is no such place.
    virtual std::int64_t seek(std::int64_t position, eMRL_Streamable_Seek origin) = 0;
};
