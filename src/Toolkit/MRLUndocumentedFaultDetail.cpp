#include "Toolkit/MRLUndocumentedFaultDetail.h"

#include "Common/MRLException.h"
#include "Toolkit/MRLMessage.h"
#include "Toolkit/MRLMessageArray.h"
#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLSchemaTypesFactory.h"

#include "HBLCore/HBLFailure.h"

#include <string_view>

namespace {

constexpr std::string_view SEVERITY = "severity";
constexpr std::string_view ERROR_CODE = "errorCode";
constexpr std::string_view MESSAGE = "message";

[[noreturn]] void unknownChild(const char* name, const char* function) {
    MRLException failure(0);
    failure << (MRLHBLMessage(msg::unknownMember) << name << "UndocumentFaultDetail");
    HBL_THROW(failure, function);
}

const char* textFor(const char* name, void* obj, MRLSchemaTypeI::ObjectType type) {
    if (type != MRLSchemaTypeI::eString) {
        MRLSchemaTypesFactory::typeError("undocumentedFaultDetail", name, MRLSchemaTypeI::eString, type);
    }
    return mrl::detail::textOf(obj, type);
}

} // namespace

class MRLUndocumentedFaultDetail_PrivateData {
public:
    MRLUndocumentedFaultDetail_PrivateData() = default;
    MRLUndocumentedFaultDetail_PrivateData(const MRLUndocumentedFaultDetail_PrivateData&) = delete;
    MRLUndocumentedFaultDetail_PrivateData& operator=(const MRLUndocumentedFaultDetail_PrivateData&) = delete;
    virtual ~MRLUndocumentedFaultDetail_PrivateData() = default;
    virtual bool operator!=(const MRLUndocumentedFaultDetail_PrivateData& other) const {
        return !(*this == other);
    }
    virtual bool operator==(const MRLUndocumentedFaultDetail_PrivateData& other) const {
        using namespace mrl::detail;
        return equalText(severity, other.severity) && equalText(errorCodeString, other.errorCodeString) &&
               equalObject(message.get(), other.message.get());
    }

    const char* severity = nullptr;        // borrowed
    const char* errorCodeString = nullptr; // borrowed
    std::unique_ptr<MRLMessageArray> message{hblNew<MRLMessageArray>(HBL_HERE)};
};

MRLUndocumentedFaultDetail::MRLUndocumentedFaultDetail()
    : m_data(hblNew<MRLUndocumentedFaultDetail_PrivateData>(HBL_HERE)) {}

MRLUndocumentedFaultDetail::~MRLUndocumentedFaultDetail() = default;

MRLSchemaTypeI::ObjectType MRLUndocumentedFaultDetail::getObjectType() const {
    return s_objectType;
}

const std::string& MRLUndocumentedFaultDetail::getGeneratedObjectName() const {
    static const std::string s_name = s_className;
    return s_name;
}

void* MRLUndocumentedFaultDetail::getChildObject(const char* name, int create) {
    HBL_ASSERT(name);
    if (name == SEVERITY) {
        return const_cast<char*>(m_data->severity);
    }
    if (name == ERROR_CODE) {
        return const_cast<char*>(m_data->errorCodeString);
    }
    if (name == MESSAGE) {
        return mrl::detail::childObject(*m_data->message, create);
    }
    unknownChild(name, "MRLUndocumentedFaultDetail::getChildObject");
}

MRLSchemaTypeI::ObjectType MRLUndocumentedFaultDetail::getChildType(const char* name) const {
    HBL_ASSERT(name);
    if (name == SEVERITY || name == ERROR_CODE) {
        return eString;
    }
    if (name == MESSAGE) {
        return eMRLMessageArray;
    }
    unknownChild(name, "MRLUndocumentedFaultDetail::getChildType");
}

std::size_t MRLUndocumentedFaultDetail::setChildObject(const char* name, void* obj, const ObjectType& type,
                                                       std::size_t* /*index*/) {
    HBL_ASSERT(name);
    if (*name == '\0') {
        return 0;
    }
    HBL_ASSERT(obj != NULL);
    if (name == SEVERITY) {
        m_data->severity = textFor(name, obj, type);
    } else if (name == ERROR_CODE) {
        m_data->errorCodeString = textFor(name, obj, type);
    } else if (name == MESSAGE) {
        MRLSchemaTypeI* const message = mrl::detail::asDeclared(obj, type, eMRLMessage);
        if (message == nullptr) {
            MRLSchemaTypesFactory::typeError("undocumentedFaultDetail", name, eMRLMessage, type);
        }
        m_data->message->push_back(static_cast<MRLMessage*>(message));
    } else {
        unknownChild(name, "MRLUndocumentedFaultDetail::setChildObject");
    }
    return 0;
}

void MRLUndocumentedFaultDetail::getChildObjectNames(std::vector<const char*>& /*names*/,
                                                     bool /*reserve*/) const {
    // The text is interface, and stands in one piece.
    // clang-format off
    HBL_ASSERT_NAMED(FALSE, "Unsupported.  MRLUndocumentedFaultDetail objects are serialized in doc/literal style.");
    // clang-format on
}

std::size_t MRLUndocumentedFaultDetail::getChildObjectCount() const {
    return 3;
}

int MRLUndocumentedFaultDetail::isa(ObjectType type) const {
    return type == s_objectType ? 1 : 0;
}

bool MRLUndocumentedFaultDetail::operator==(const MRLSchemaTypeI& other) const {
    if (this == &other) {
        return true;
    }
    return other.isa(s_objectType) != 0 &&
           *m_data == *static_cast<const MRLUndocumentedFaultDetail&>(other).m_data;
}

bool MRLUndocumentedFaultDetail::operator!=(const MRLSchemaTypeI& other) const {
    return !(*this == other);
}

const char* MRLUndocumentedFaultDetail::getSeverity() const {
    return m_data->severity;
}
void MRLUndocumentedFaultDetail::setSeverity(const char* severity) {
    m_data->severity = severity;
}
const char* MRLUndocumentedFaultDetail::getErrorCodeString() const {
    return m_data->errorCodeString;
}
void MRLUndocumentedFaultDetail::setErrorCodeString(const char* code) {
    m_data->errorCodeString = code;
}
MRLMessageArray& MRLUndocumentedFaultDetail::getMessage() const {
    return *m_data->message;
}
