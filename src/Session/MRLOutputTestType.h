#pragma once

/// Whose output under test MRLHelper::createTestOutputPath() makes a directory for.
enum MRLOutputTestType : int {
    eMRLOutputTestNone = 0,
    eMRLOutputTestNAO = 1,
    eMRLOutputTestPromptNAO = 2,
    eMRLOutputTestROM = 3,
    eMRLOutputTestCGS = 4,
};
