#pragma once

/// How grave a failure is.
enum HBLSeverity : int {
    eHBLSeverityFatal = 0,
    eHBLSeverityError = 1,
    eHBLSeverityWarning = 2,
    eHBLSeverityInformation = 3,
};
