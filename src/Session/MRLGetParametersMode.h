#pragma once

/// Whether the parameters of a report are asked for with its connection resolved.
enum MRLGetParametersMode : int {
    eMRLGetParametersUnspecified = 0, ///< nothing is said
    eMRLGetParametersResolve = 1,
    eMRLGetParametersDoNotResolve = 2,
    eMRLGetParametersByFlag = 3, ///< a flag decides
};
