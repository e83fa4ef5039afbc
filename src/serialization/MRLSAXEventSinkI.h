#pragma once

#include "HBLCore/MRLExport.h"

#include <cstdint>

/// Takes an object as elements, one event after the other: what a parser would tell of the XML of the
/// object. All texts are UTF-8 without any escapes, and good during the call only. What an operation
/// throws ends the serialization.
class MRL_EXPORT MRLSAXEventSinkI {
public:
    MRLSAXEventSinkI() = default;
    MRLSAXEventSinkI(const MRLSAXEventSinkI&) = delete;
    MRLSAXEventSinkI& operator=(const MRLSAXEventSinkI&) = delete;
    virtual ~MRLSAXEventSinkI();

    /// @param name with its prefix.
    /// @param attributes pairs of a name and a value, and a null behind them.
    virtual void startElement(const char* name, const char* const* attributes) = 0;
    virtual void endElement(const char* name) = 0;
    /// @param length in bytes; never 0. The text is not terminated.
    virtual void characters(const char* text, std::int32_t length) = 0;
};
