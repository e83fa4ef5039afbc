#include "Toolkit/MRLMessageParam.h"

#include "HBLCore/HBLFailure.h"

MRLMessageParam::MRLMessageParam(const char* name, const ObjectType& type, void* value)
    : m_paramName(name != nullptr ? name : "")
    , m_paramType(type)
    , m_paramValue(value) {}

MRLMessageParam::~MRLMessageParam() = default;

void MRLMessageParam::setParamValue(void* value) {
    HBL_ASSERT(!m_paramValue);
    m_paramValue = value;
}
