#include "Toolkit/MRLPortTypeBase.h"

#include "Common/MRLException.h"
#include "Common/MRLHBLMessage.h"
#include "Common/MRLMessageNumbers.h"
#include "Toolkit/MRLMessageFactory.h"
#include "Toolkit/MRLMessageParam.h"
#include "Toolkit/MRLParameterSignature.h"
#include "Toolkit/MRLPortTypeBinding.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLSmartPointer.h"

#include <algorithm>
#include <string>

MRLPortTypeBase::MRLPortTypeBase(const char* name, const char* boundNamespace,
                                 std::span<const OperationRow> operations,
                                 std::span<const ParamTypeRow> paramTypes)
    : m_name(name)
    , m_boundNamespace(boundNamespace) {
    for (const ParamTypeRow& row : paramTypes)
        m_paramTypes.insert_or_assign(row.key, row.type);
    for (const OperationRow& row : operations)
        m_operations.emplace(row.operationName,
                             OperationMetadata(row.inputMessageType, row.outputMessageType, row.soapAction));
}

MRLPortTypeBase::~MRLPortTypeBase() = default;

MRLSchemaTypeI::ObjectType MRLPortTypeBase::resolveOperationParamType(const char* pOperationName,
                                                                      const char* pParamName) const {
    HBL_ASSERT(pOperationName);
    HBL_ASSERT(pParamName);
    const auto row = m_paramTypes.find(std::string(pOperationName) + "-" + pParamName);
    return row == m_paramTypes.end() ? MRLSchemaTypeI::e_Unknown : row->second;
}

MRLPortTypeBinding*
MRLPortTypeBase::createPortTypeBinding(const char* pOperationName,
                                       const std::vector<MRLMessageParam*>& params) const {
    HBL_ASSERT(pOperationName);
    MRLMessageFactory& factory = MRLMessageFactory::getInstance();

    // Equal keys keep the order of their insertion: the first signature declared wins.
    const auto [first, last] = m_operations.equal_range(pOperationName);
    const auto chosen = std::find_if(first, last, [&](const Operations::value_type& operation) {
        return isSameParameterSignature(factory.getParameterTypes(operation.second.inputMessageType), params);
    });
    if (chosen == last)
        HBL_THROW(MRLException(0) << (MRLHBLMessage(msg::unknownOperation) << pOperationName << getName()),
                  "MRLPortTypeI::createPortTypeBinding");

    const HBLSmartPointer<MRLMessageI> input(factory.create(chosen->second.inputMessageType));
    if (input.get() != nullptr)
        for (const MRLMessageParam* param : params)
            input->setParameter(param->getParamName(), param->getParamValue(), param->getParamType());
    return bind(*chosen, input.get());
}

MRLPortTypeBinding* MRLPortTypeBase::createPortTypeBinding(const MessageType& inputType) const {
    const Operations::value_type& operation = requireByInput(inputType);
    const HBLSmartPointer<MRLMessageI> input(MRLMessageFactory::getInstance().create(inputType));
    return bind(operation, input.get());
}

MRLPortTypeBinding* MRLPortTypeBase::createPortTypeBinding(MRLMessageI& inputMessage,
                                                           MRLMessageI& outputMessage) const {
    const auto& [name, metadata] = requireByInput(inputMessage.getMessageType());
    const OperationMetadata* const pOperationMetadata = &metadata;
    HBL_ASSERT_NAMED(pOperationMetadata->outputMessageType == outputMessage.getMessageType(),
                     "There is no defined binding between the requested input and output messages.");
    return MRLPortTypeBinding::create(name.data(), getBoundNamespace(), pOperationMetadata->soapAction, *this,
                                      inputMessage, outputMessage);
}

MRLPortTypeBinding* MRLPortTypeBase::createPortTypeBinding(MRLMessageI* pInputMessage) const {
    HBL_ASSERT(pInputMessage);
    return bind(requireByInput(pInputMessage->getMessageType()), pInputMessage);
}

const MRLPortTypeBase::Operations::value_type& MRLPortTypeBase::requireByInput(MessageType inputType) const {
    const auto found =
        std::find_if(m_operations.begin(), m_operations.end(), [&](const Operations::value_type& operation) {
            return operation.second.inputMessageType == inputType;
        });
    if (found == m_operations.end())
        HBL_ASSERT_NAMED(FALSE, "There is no binding for the requested input/output message.");
    return *found;
}

MRLPortTypeBinding* MRLPortTypeBase::bind(const Operations::value_type& operation, MRLMessageI* input) const {
    const auto& [name, metadata] = operation;
    const HBLSmartPointer<MRLMessageI> output(
        MRLMessageFactory::getInstance().create(metadata.outputMessageType));
    return MRLPortTypeBinding::create(name.data(), getBoundNamespace(), metadata.soapAction, *this, input,
                                      output.get());
}
