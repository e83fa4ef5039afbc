#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/MRLExport.h"

/// Starts and stops the toolkit for the process.
class MRL_EXPORT MRL {
public:
    virtual ~MRL();

    /// Starts what the toolkit needs before any protected work. Further calls do nothing: they are not
    /// counted, so one `terminate` ends it all. Thread-safe.
    /// @return 1 when started, 0 when the crypto library refused.
    static int initialize();

    /// Stops what `initialize` started. Thread-safe.
    /// @return 1.
    static int terminate();

private:
    static int m_mrlInitCount;
    static HBLThreadCriticalSection m_mrlInitLock;
};
