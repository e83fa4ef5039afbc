// Generated from the catalogue: the operations of the services and the types of their parameters.
#include "Toolkit/MRLFindServicePortType.h"
#include "Toolkit/MRLOldPortType.h"

// -- MRLFindServicePortType ---------------------------------------------------------------------------------

// Overloads keep the order of their rows. The last entry stands for an operation without a name.
constinit const MRLPortTypeBase::OperationRow MRLFindServicePortType::s_operations[] = {
    {"find", MRLMessageI::eMRLFind_2_Request,
     MRLMessageI::eMRLFind_2_Reply,
     "http://www.golden.example/xmlns/findService/202004/"},
    {"find", MRLMessageI::eMRLFind_1_Request,
     MRLMessageI::eMRLFind_1_Reply,
     "http://www.golden.example/xmlns/findService/202004/.high"},
    {"clear", MRLMessageI::eMRLClear_Request,
     MRLMessageI::eMRLClear_Reply,
     "http://www.golden.example/xmlns/findService/202004/"},
    {"", static_cast<MessageType>(1), static_cast<MessageType>(2),
     "http://developer.golden.example/schemas/findService/1"},
};

constinit const MRLPortTypeBase::ParamTypeRow MRLFindServicePortType::s_paramTypes[] = {
    {"find-exact", MRLSchemaTypeI::eBoolean},
    {"find-label", MRLSchemaTypeI::eMRLLabel},
    {"find-like", MRLSchemaTypeI::eMRLThing},
    {"find-limit", MRLSchemaTypeI::eInt},
    {"find-name", MRLSchemaTypeI::eString},
    {"find-picture", MRLSchemaTypeI::eBase64Binary},
};

MRLFindServicePortType::MRLFindServicePortType()
    : MRLPortTypeBase("findService", "http://developer.golden.example/schemas/findService/1",
                      s_operations, s_paramTypes) {}

MRLFindServicePortType& MRLFindServicePortType::getInstance() {
    static auto* const instance = new MRLFindServicePortType;
    return *instance;
}

// -- MRLOldPortType -----------------------------------------------------------------------------------------

// Overloads keep the order of their rows. The last entry stands for an operation without a name.
constinit const MRLPortTypeBase::OperationRow MRLOldPortType::s_operations[] = {
    {"clear", MRLMessageI::eMRLClear_Request,
     MRLMessageI::eMRLClear_Reply,
     "http://developer.golden.example/schemas/old#find.control"},
    {"", static_cast<MessageType>(1), static_cast<MessageType>(2),
     "http://developer.golden.example/schemas/old/"},
};

MRLOldPortType::MRLOldPortType()
    : MRLPortTypeBase("oldPortType", "http://developer.golden.example/schemas/old/",
                      s_operations, {}) {}

MRLOldPortType& MRLOldPortType::getInstance() {
    static auto* const instance = new MRLOldPortType;
    return *instance;
}
