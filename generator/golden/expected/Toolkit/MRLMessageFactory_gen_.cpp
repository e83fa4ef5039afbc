// Generated from the catalogue: the messages by number, and their declared parameters.
#include "Toolkit/MRLMessageFactory.h"

#include "Toolkit/MRLMessageMembers.h"
#include "Toolkit/MRL_Null_Request.h"
#include "Toolkit/MRL_Null_Reply.h"
#include "Toolkit/MRLClear_Request.h"
#include "Toolkit/MRLClear_Reply.h"
#include "Toolkit/MRLFind_1_Request.h"
#include "Toolkit/MRLFind_1_Reply.h"
#include "Toolkit/MRLFind_2_Request.h"
#include "Toolkit/MRLFind_2_Reply.h"

using Row = MRLMessageFactory::MRLParamDescriptor;

static constexpr Row g_MRLClear_RequestParamDescriptor[] = {
    {nullptr, MRLSchemaTypeI::e_Unknown},
};
static constexpr Row g_MRLClear_ReplyParamDescriptor[] = {
    {nullptr, MRLSchemaTypeI::e_Unknown},
};
static constexpr Row g_MRLFind_1_RequestParamDescriptor[] = {
    {"name", MRLSchemaTypeI::eString},
    {"limit", MRLSchemaTypeI::eInt},
    {nullptr, MRLSchemaTypeI::e_Unknown},
};
static constexpr Row g_MRLFind_1_ReplyParamDescriptor[] = {
    {"result", MRLSchemaTypeI::eMRLThingArray},
    {nullptr, MRLSchemaTypeI::e_Unknown},
};
static constexpr Row g_MRLFind_2_RequestParamDescriptor[] = {
    {"like", MRLSchemaTypeI::eMRLThing},
    {"label", MRLSchemaTypeI::eMRLLabel},
    {"exact", MRLSchemaTypeI::eBoolean},
    {"picture", MRLSchemaTypeI::eBase64Binary},
    {"limit", MRLSchemaTypeI::eInteger},
    {nullptr, MRLSchemaTypeI::e_Unknown},
};
static constexpr Row g_MRLFind_2_ReplyParamDescriptor[] = {
    {"result", MRLSchemaTypeI::eMRLThingArray},
    {nullptr, MRLSchemaTypeI::e_Unknown},
};

MRLMessageFactory::Creator MRLMessageFactory::creatorOf(MessageType msgType) {
    switch (msgType) {
    case MRLMessageI::eMRL_Null_Request:
        return &mrl::detail::createMessage<MRL_Null_Request>;
    case MRLMessageI::eMRL_Null_Reply:
        return &mrl::detail::createMessage<MRL_Null_Reply>;
    case MRLMessageI::eMRLClear_Request:
        return &mrl::detail::createMessage<MRLClear_Request>;
    case MRLMessageI::eMRLClear_Reply:
        return &mrl::detail::createMessage<MRLClear_Reply>;
    case MRLMessageI::eMRLFind_1_Request:
        return &mrl::detail::createMessage<MRLFind_1_Request>;
    case MRLMessageI::eMRLFind_1_Reply:
        return &mrl::detail::createMessage<MRLFind_1_Reply>;
    case MRLMessageI::eMRLFind_2_Request:
        return &mrl::detail::createMessage<MRLFind_2_Request>;
    case MRLMessageI::eMRLFind_2_Reply:
        return &mrl::detail::createMessage<MRLFind_2_Reply>;
    default: return nullptr;
    }
}

const MRLMessageFactory::MRLParamDescriptor* MRLMessageFactory::parametersOf(MessageType msgType) {
    switch (msgType) {
    case MRLMessageI::eMRLClear_Request:
        return g_MRLClear_RequestParamDescriptor;
    case MRLMessageI::eMRLClear_Reply:
        return g_MRLClear_ReplyParamDescriptor;
    case MRLMessageI::eMRLFind_1_Request:
        return g_MRLFind_1_RequestParamDescriptor;
    case MRLMessageI::eMRLFind_1_Reply:
        return g_MRLFind_1_ReplyParamDescriptor;
    case MRLMessageI::eMRLFind_2_Request:
        return g_MRLFind_2_RequestParamDescriptor;
    case MRLMessageI::eMRLFind_2_Reply:
        return g_MRLFind_2_ReplyParamDescriptor;
    default: return nullptr;
    }
}
