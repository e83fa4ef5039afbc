#include "Toolkit/MRLSOAPFault.h"

#include "Common/MRLException.h"
#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailArray.h"
#include "Toolkit/MRLFaultDetailMessage.h"
#include "Toolkit/MRLFaultDetailMessageArray.h"
#include "Toolkit/MRLMessage.h"
#include "Toolkit/MRLMessageArray.h"
#include "Toolkit/MRLSOAPFault_PrivateData.h"
#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLUndocumentedFaultDetail.h"
#include "Toolkit/MRLUndocumentedFaultDetailArray.h"
#include "Toolkit/MRLZORException.h"

#include "HBLCore/HBLFailure.h"

#include <array>
#include <string_view>

namespace {

using ObjectType = MRLSchemaTypeI::ObjectType;

/// The children of a fault. Some are read and let go: no field holds them.
enum class Child { code, string, actor, detail, exception, droppedText, droppedDetail, unknown };

struct Named {
    std::string_view name;
    Child child;
};

constexpr std::array<Named, 11> children{{
    {"faultcode", Child::code},
    {"faultstring", Child::string},
    {"faultactor", Child::actor},
    {"detail", Child::detail},
    {"exception", Child::exception},
    {"faultSubcode", Child::droppedText},
    {"faultSubstring", Child::droppedText},
    {"faultDataSource", Child::droppedText},
    {"faultConnection", Child::droppedDetail},
    {"faultSignon", Child::droppedDetail},
    {"dataSource", Child::droppedDetail},
}};

Child childNamed(const char* name) {
    for (const Named& named : children) {
        if (named.name == name) {
            return named.child;
        }
    }
    return Child::unknown;
}

[[noreturn]] void unknownChild(const char* name, const char* function) {
    MRLException failure(0);
    failure << (MRLHBLMessage(msg::unknownMember) << name << "Fault");
    HBL_THROW(failure, function);
}

void require(bool fits, const char* name, ObjectType expected, ObjectType actual) {
    if (!fits) {
        MRLSchemaTypesFactory::typeError("SOAPFault", name, expected, actual);
    }
}

const char* textFor(const char* name, void* obj, ObjectType type) {
    require(type == MRLSchemaTypeI::eString, name, MRLSchemaTypeI::eString, type);
    return mrl::detail::textOf(obj, type);
}

template <class T>
T* objectFor(const char* name, void* obj, ObjectType type) {
    MRLSchemaTypeI* const object = mrl::detail::asDeclared(obj, type, T::s_objectType);
    require(object != nullptr, name, T::s_objectType, type);
    return static_cast<T*>(object);
}

template <class T>
T* registered(MRLObjectRegistryI& registry) {
    T* const made = hblNew<T>(HBL_HERE);
    mrl::detail::adopt(registry, std::unique_ptr<MRLSchemaTypeI>(made));
    return made;
}

} // namespace

MRLSOAPFault_PrivateData::~MRLSOAPFault_PrivateData() = default;

bool MRLSOAPFault_PrivateData::operator!=(const MRLSOAPFault_PrivateData& other) const {
    return !(*this == other);
}

bool MRLSOAPFault_PrivateData::operator==(const MRLSOAPFault_PrivateData& other) const {
    using namespace mrl::detail;
    return equalText(faultActor, other.faultActor) && equalText(faultCode, other.faultCode) &&
           equalText(faultString, other.faultString) && equalObject(detail, other.detail) &&
           equalObject(undocumentedDetail, other.undocumentedDetail) &&
           equalObject(zorException, other.zorException);
}

MRLSOAPFault::MRLSOAPFault()
    : m_data(hblNew<MRLSOAPFault_PrivateData>(HBL_HERE)) {}

MRLSOAPFault::~MRLSOAPFault() = default;

ObjectType MRLSOAPFault::getObjectType() const {
    return s_objectType;
}

const std::string& MRLSOAPFault::getGeneratedObjectName() const {
    static const std::string s_name = s_className;
    return s_name;
}

void* MRLSOAPFault::getChildObject(const char* name, int /*create*/) {
    HBL_ASSERT(name);
    switch (childNamed(name)) {
    case Child::code: return const_cast<char*>(m_data->faultCode);
    case Child::string: return const_cast<char*>(m_data->faultString);
    case Child::actor: return const_cast<char*>(m_data->faultActor);
    case Child::detail: return static_cast<MRLSchemaTypeI*>(m_data->detail);
    case Child::exception: return static_cast<MRLSchemaTypeI*>(m_data->zorException);
    default: unknownChild(name, "MRLSchemaInfo::getChildObject");
    }
}

ObjectType MRLSOAPFault::getChildType(const char* name) const {
    HBL_ASSERT(name);
    switch (childNamed(name)) {
    case Child::code:
    case Child::string:
    case Child::actor:
    case Child::droppedText: return eString;
    case Child::detail:
    case Child::droppedDetail: return eMRLFaultDetailArray;
    case Child::exception: return eMRLZORException;
    case Child::unknown: break;
    }
    unknownChild(name, "MRLSchemaInfo::getChildObject");
}

std::size_t MRLSOAPFault::setChildObject(const char* name, void* obj, const ObjectType& type,
                                         std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0') {
        return 0;
    }
    HBL_ASSERT(obj != NULL);
    switch (childNamed(name)) {
    case Child::code: m_data->faultCode = textFor(name, obj, type); break;
    case Child::string: m_data->faultString = textFor(name, obj, type); break;
    case Child::actor: m_data->faultActor = textFor(name, obj, type); break;
    case Child::detail:
        if (type == eMRLUndocumentedFaultDetailArray) {
            m_data->undocumentedDetail = objectFor<MRLUndocumentedFaultDetailArray>(name, obj, type);
        } else {
            m_data->detail = objectFor<MRLFaultDetailArray>(name, obj, type);
        }
        break;
    case Child::exception: m_data->zorException = objectFor<MRLZORException>(name, obj, type); break;
    case Child::droppedText: require(type == eString, name, eString, type); break;
    case Child::droppedDetail:
        require(type == eMRLUndocumentedFaultDetailArray || type == eMRLFaultDetailArray, name,
                eMRLUndocumentedFaultDetailArray, type);
        break;
    case Child::unknown: unknownChild(name, "MRLSOAPFault::setChildObject()");
    }
    return 0;
}

void MRLSOAPFault::getChildObjectNames(std::vector<const char*>& names, bool reserve) const {
    if (reserve) {
        names.reserve(names.size() + getChildObjectCount());
    }
    for (const char* name : {"faultcode", "faultstring", "faultactor", "detail"}) {
        names.push_back(name);
    }
}

std::size_t MRLSOAPFault::getChildObjectCount() const {
    return 4;
}

int MRLSOAPFault::isa(ObjectType type) const {
    return type == s_objectType ? 1 : 0;
}

bool MRLSOAPFault::operator==(const MRLSchemaTypeI& other) const {
    if (this == &other) {
        return true;
    }
    return other.isa(s_objectType) != 0 && *m_data == *static_cast<const MRLSOAPFault&>(other).m_data;
}

bool MRLSOAPFault::operator!=(const MRLSchemaTypeI& other) const {
    return !(*this == other);
}

const char* MRLSOAPFault::getFaultActor() const {
    return m_data->faultActor;
}
void MRLSOAPFault::setFaultActor(const char* actor) {
    m_data->faultActor = actor;
}
const char* MRLSOAPFault::getFaultCode() const {
    return m_data->faultCode;
}
void MRLSOAPFault::setFaultCode(const char* code) {
    m_data->faultCode = code;
}
const char* MRLSOAPFault::getFaultString() const {
    return m_data->faultString;
}
void MRLSOAPFault::setFaultString(const char* text) {
    m_data->faultString = text;
}
MRLFaultDetailArray* MRLSOAPFault::getDetail() const {
    return m_data->detail;
}
void MRLSOAPFault::setDetail(MRLFaultDetailArray* detail) {
    m_data->detail = detail;
}
MRLUndocumentedFaultDetailArray* MRLSOAPFault::getUndocumentedDetail() const {
    return m_data->undocumentedDetail;
}
void MRLSOAPFault::setDetail(MRLUndocumentedFaultDetailArray* detail) {
    m_data->undocumentedDetail = detail;
}
MRLZORException* MRLSOAPFault::getZORException() const {
    return m_data->zorException;
}
void MRLSOAPFault::setZORException(MRLZORException* exception) {
    m_data->zorException = exception;
}

void MRLSOAPFault::getMessages(std::string& text) const {
    text.clear();
    const auto append = [&text](const char* piece) {
        if (piece != nullptr) {
            text += piece;
        }
    };
    if (m_data->detail != nullptr) {
        const MRLFaultDetail* const first = m_data->detail->empty() ? nullptr : m_data->detail->front();
        if (first != nullptr) {
            for (const MRLFaultDetailMessage* const message : first->getMessage()) {
                append(message == nullptr ? nullptr : message->getMessage());
            }
        }
    } else if (m_data->undocumentedDetail != nullptr) {
        const auto& details = *m_data->undocumentedDetail;
        const MRLUndocumentedFaultDetail* const first = details.empty() ? nullptr : details.front();
        if (first != nullptr) {
            for (const MRLMessage* const message : first->getMessage()) {
                append(message == nullptr ? nullptr : message->getMessageString());
            }
        }
    }
    if (m_data->zorException != nullptr) {
        for (const char* const message : m_data->zorException->getMessages()) {
            if (message != nullptr) {
                text += ' ';
                text += message;
            }
        }
    }
}

void MRLSOAPFault::convertFaultDetail(MRLObjectRegistryI& registry) {
    if (m_data->undocumentedDetail == nullptr) {
        m_data->undocumentedDetail = registered<MRLUndocumentedFaultDetailArray>(registry);
    }
    if (m_data->detail == nullptr || m_data->detail->empty()) {
        return;
    }
    for (const MRLFaultDetail* const from : *m_data->detail) {
        HBL_ASSERT(from);
        auto* const to = registered<MRLUndocumentedFaultDetail>(registry);
        to->setSeverity(from->getSeverity());
        to->setErrorCodeString(from->getErrorCode());
        for (const MRLFaultDetailMessage* const message : from->getMessage()) {
            HBL_ASSERT(message);
            auto* const copy = registered<MRLMessage>(registry);
            copy->setMessageString(message->getMessage());
            if (const int* const level = message->getNestingLevel()) {
                copy->setNestingLevel(*level);
            }
            to->getMessage().push_back(copy);
        }
        m_data->undocumentedDetail->push_back(to);
    }
    m_data->detail = nullptr;
}

void MRLSOAPFault::convertUndocumentedFaultDetail(MRLObjectRegistryI& registry) {
    if (m_data->detail == nullptr) {
        m_data->detail = registered<MRLFaultDetailArray>(registry);
    }
    if (m_data->undocumentedDetail == nullptr || m_data->undocumentedDetail->empty()) {
        return;
    }
    for (const MRLUndocumentedFaultDetail* const from : *m_data->undocumentedDetail) {
        HBL_ASSERT(from);
        auto* const to = registered<MRLFaultDetail>(registry);
        to->setSeverity(from->getSeverity());
        to->setErrorCode(from->getErrorCodeString());
        for (const MRLMessage* const message : from->getMessage()) {
            HBL_ASSERT(message);
            auto* const copy = registered<MRLFaultDetailMessage>(registry);
            copy->setMessage(message->getMessageString());
            if (const int* const level = message->getNestingLevel()) {
                copy->setNestingLevel(*level);
            }
            to->getMessage().push_back(copy);
        }
        m_data->detail->push_back(to);
    }
    m_data->undocumentedDetail = nullptr;
}
