#pragma once

#include "Toolkit/MRLSOAPFault.h"

#include <memory>
#include <string>

/// What a fault holds. All but the text is borrowed.
class MRLSOAPFault_PrivateData {
public:
    MRLSOAPFault_PrivateData() = default;
    MRLSOAPFault_PrivateData(const MRLSOAPFault_PrivateData&) = delete;
    MRLSOAPFault_PrivateData& operator=(const MRLSOAPFault_PrivateData&) = delete;
    virtual ~MRLSOAPFault_PrivateData();
    virtual bool operator!=(const MRLSOAPFault_PrivateData& other) const;
    virtual bool operator==(const MRLSOAPFault_PrivateData& other) const;

    const char* faultActor = nullptr;
    const char* faultCode = nullptr;
    const char* faultString = nullptr;
    MRLFaultDetailArray* detail = nullptr;
    MRLUndocumentedFaultDetailArray* undocumentedDetail = nullptr;
    MRLZORException* zorException = nullptr;
    std::unique_ptr<std::string> text; // what toString() hands out; not compared
};
