#include "Toolkit/MRLPortTypeBinding.h"

#include "HBLCore/HBLFailure.h"

namespace {

// A reference cannot be tested for null once it is made, so the pointer is.
MRLMessageI& message(MRLMessageI* pointer, const char* text) {
    if (pointer == nullptr)
        hblAssertFailed(text, HBL_HERE, "MRLPortTypeBinding::MRLPortTypeBinding");
    return *pointer;
}

} // namespace

MRLPortTypeBinding* MRLPortTypeBinding::create(const char* pOperationName, const char* pOperationNamespace,
                                               const char* pSOAPAction, const MRLPortTypeI& portType,
                                               MRLMessageI* pInputMessage, MRLMessageI* pOutputMessage) {
    return hblRethrowing("MRLPortTypeBinding::create", [&] {
        return new MRLPortTypeBinding(pOperationName, pOperationNamespace, pSOAPAction, portType,
                                      pInputMessage, pOutputMessage, true);
    });
}

MRLPortTypeBinding* MRLPortTypeBinding::create(const char* pOperationName, const char* pOperationNamespace,
                                               const char* pSOAPAction, const MRLPortTypeI& portType,
                                               MRLMessageI& inputMessage, MRLMessageI& outputMessage) {
    return hblRethrowing("MRLPortTypeBinding::create", [&] {
        return new MRLPortTypeBinding(pOperationName, pOperationNamespace, pSOAPAction, portType,
                                      &inputMessage, &outputMessage, false);
    });
}

MRLPortTypeBinding::MRLPortTypeBinding(const char* pOperationName, const char* pOperationNamespace,
                                       const char* pSOAPAction, const MRLPortTypeI& portType,
                                       MRLMessageI* pInputMessage, MRLMessageI* pOutputMessage, bool share)
    : m_pOperationName(pOperationName)
    , m_pOperationNamespace(pOperationNamespace)
    , m_pSOAPAction(pSOAPAction)
    , m_boundPortType(portType)
    , m_pInputMessageHolder(share ? pInputMessage : nullptr)
    , m_pOutputMessageHolder(share ? pOutputMessage : nullptr)
    , m_inputMessage(message(pInputMessage, "HBL_ASSERT(&m_inputMessage);"))
    , m_outputMessage(message(pOutputMessage, "HBL_ASSERT(&m_outputMessage);")) {
    HBL_ASSERT(m_pOperationName);
    HBL_ASSERT(m_pOperationNamespace);
    HBL_ASSERT(m_pSOAPAction);
}

MRLPortTypeBinding::~MRLPortTypeBinding() {
    m_pOperationName = nullptr;
    m_pOperationNamespace = nullptr;
    m_pSOAPAction = nullptr;
    m_pInputMessageHolder = nullptr;
    m_pOutputMessageHolder = nullptr;
}
