#pragma once

#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/MRLExport.h"

class TavelTK;

/// Settings of a host under test, and the maker of session factories that answer from recorded files.
class MRL_EXPORT MRLTestInfo : public HBLReferenceCount {
public:
    ~MRLTestInfo() override;

    /// A factory that answers from the files recorded below `directory`; owned by this object.
    /// @throws HBLAssertError: this build cannot play back.
    TavelTK* getRecordedFilesAsSessionFactory(const char* directory);

protected:
    MRLTestInfo() = default;
};
