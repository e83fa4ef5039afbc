// Generated from the catalogue: the values of the messages in MRLMessages1_gen_.cpp.
// Internal: only generated sources include it.
#pragma once

#include "Toolkit/MRLNullable.h"

class MRLBase64Binary;
class MRLLabel;
class MRLThing;
class MRLThingArray;

class MRLFind_1_Request_PrivateData {
public:
    virtual ~MRLFind_1_Request_PrivateData();

    const char* name = nullptr;
    mrl::detail::MRLNullable<int> limit;
};

class MRLFind_1_Reply_PrivateData {
public:
    virtual ~MRLFind_1_Reply_PrivateData();

    MRLThingArray* result = nullptr;
};

class MRLFind_2_Request_PrivateData {
public:
    virtual ~MRLFind_2_Request_PrivateData();

    MRLThing* like = nullptr;
    MRLLabel* label = nullptr;
    mrl::detail::MRLNullable<int> exact;
    MRLBase64Binary* picture = nullptr;
    mrl::detail::MRLNullable<int> limit;
};

class MRLFind_2_Reply_PrivateData {
public:
    virtual ~MRLFind_2_Reply_PrivateData();

    MRLThingArray* result = nullptr;
};
