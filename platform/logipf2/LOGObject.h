#pragma once

#include "HBLCore/MRLExport.h"

class LogFieldsI;

/// What a LogTypedLogger writes: one record. A host may derive kinds of its own.
class MRL_EXPORT LOGObject {
public:
    virtual ~LOGObject();

    /// The kind of the record, such as "LogAuditIndication": a literal.
    virtual const char* getIndicationType() const = 0;
    /// The level that the record belongs to, 10000 to 50000.
    virtual int getLevel() const = 0;
    /// Hands every field of the record to `fields`, those that were never set too.
    virtual void getFields(LogFieldsI& fields) const = 0;

protected:
    LOGObject() noexcept = default;
    LOGObject(const LOGObject&) noexcept = default;
    LOGObject& operator=(const LOGObject&) noexcept = default;
};
