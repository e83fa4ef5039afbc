#include "Toolkit/MRLUndocumentedFaultDetailArray.h"

#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLUndocumentedFaultDetail.h"

#include "HBLCore/HBLFailure.h"

#include <algorithm>

MRLUndocumentedFaultDetailArray::MRLUndocumentedFaultDetailArray() = default;
MRLUndocumentedFaultDetailArray::~MRLUndocumentedFaultDetailArray() = default;

MRLSchemaTypeI::ObjectType MRLUndocumentedFaultDetailArray::getObjectType() const {
    return s_objectType;
}

const std::string& MRLUndocumentedFaultDetailArray::getGeneratedObjectName() const {
    static const std::string s_name = s_className;
    return s_name;
}

void* MRLUndocumentedFaultDetailArray::getChildObject(const char* name, int /*create*/) {
    HBL_ASSERT(name);
    return nullptr;
}

MRLSchemaTypeI::ObjectType MRLUndocumentedFaultDetailArray::getChildType(const char* name) const {
    HBL_ASSERT(name);
    return eMRLUndocumentedFaultDetail;
}

std::size_t MRLUndocumentedFaultDetailArray::setChildObject(const char* name, void* obj,
                                                            const ObjectType& type, std::size_t* idx) {
    HBL_ASSERT(name);
    if (*name == '\0') {
        return 0;
    }
    HBL_ASSERT(obj != NULL);
    MRLSchemaTypeI* const item = mrl::detail::asDeclared(obj, type, eMRLUndocumentedFaultDetail);
    if (item == nullptr) {
        MRLSchemaTypesFactory::typeError(s_schemaName, name, eMRLUndocumentedFaultDetail, type);
    }
    auto* const detail = static_cast<MRLUndocumentedFaultDetail*>(item);
    if (idx == nullptr) {
        m_vector.push_back(detail);
        return m_vector.size();
    }
    HBL_ASSERT(*idx > 0 && m_vector.size() >= *idx);
    m_vector[*idx - 1] = detail;
    return *idx;
}

void MRLUndocumentedFaultDetailArray::getChildObjectNames(std::vector<const char*>& /*names*/,
                                                          bool /*reserve*/) const {
    // The text is interface, and stands in one piece.
    // clang-format off
    HBL_ASSERT_NAMED(FALSE, "Unsupported.  MRLUndocumentedFaultDetailArray objects are serialized in doc/literal style.");
    // clang-format on
}

std::size_t MRLUndocumentedFaultDetailArray::getChildObjectCount() const {
    return 0;
}

int MRLUndocumentedFaultDetailArray::isa(ObjectType type) const {
    return type == s_objectType ? 1 : 0;
}

std::size_t MRLUndocumentedFaultDetailArray::size() const {
    return m_vector.size();
}

int MRLUndocumentedFaultDetailArray::operator==(const MRLSchemaTypeI& other) const {
    if (this == &other) {
        return 1;
    }
    if (other.isa(s_objectType) == 0) {
        return 0;
    }
    const Items& items = static_cast<const MRLUndocumentedFaultDetailArray&>(other).m_vector;
    return std::equal(m_vector.begin(), m_vector.end(), items.begin(), items.end(),
                      mrl::detail::equalObject<MRLUndocumentedFaultDetail>)
               ? 1
               : 0;
}

int MRLUndocumentedFaultDetailArray::operator!=(const MRLSchemaTypeI& other) const {
    return *this == other ? 0 : 1;
}
