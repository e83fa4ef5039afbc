#include "Toolkit/MRLPrivateData.h"

MRLPrivateData::~MRLPrivateData() = default;

int MRLPrivateData::operator==(const MRLPrivateData& other) const {
    return this == &other ? 1 : 0;
}

int MRLPrivateData::operator!=(const MRLPrivateData& other) const {
    return this == &other ? 0 : 1;
}
