#include "Toolkit/MRL_HrefReference.h"

#include "HBLCore/HBLFailure.h"

MRL_HrefReference::MRL_HrefReference(const char* contentId, MRLSchemaTypeI* obj, const char* name,
                                     const ObjectType& type, std::size_t index)
    : m_contentId(contentId != nullptr ? contentId : "")
    , m_obj(obj)
    , m_name(name != nullptr ? name : "")
    , m_type(type)
    , m_index(index) {}

MRL_HrefReference::~MRL_HrefReference() = default;

MRLSchemaTypeI& MRL_HrefReference::getObject() const {
    HBL_ASSERT(m_obj);
    return *m_obj;
}
