#include "Session/MRLTestInfo.h"

#include "HBLCore/HBLFailure.h"

MRLTestInfo::~MRLTestInfo() = default;

TavelTK* MRLTestInfo::getRecordedFilesAsSessionFactory(const char*) {
    HBL_ASSERT_NAMED(FALSE, "Playback is not available: unset the playback directory.");
    return nullptr;
}
