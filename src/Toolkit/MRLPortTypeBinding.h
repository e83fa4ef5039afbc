#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/MRLExport.h"

class MRLPortTypeI;

/// One call: an operation of a port type, and the messages that go in and come out.
/// The texts are borrowed from the port type. One thread at a time, but for the reference count.
class MRL_EXPORT MRLPortTypeBinding : public HBLReferenceCount {
public:
    /// Shares both messages by counted references. The binding itself starts with a count of 0.
    /// @throws HBLAssertError for a null argument; HBLOutOfMemoryError.
    static MRLPortTypeBinding* create(const char* pOperationName, const char* pOperationNamespace,
                                      const char* pSOAPAction, const MRLPortTypeI& portType,
                                      MRLMessageI* pInputMessage, MRLMessageI* pOutputMessage);

    /// Borrows both messages: the caller keeps them alive as long as the binding.
    static MRLPortTypeBinding* create(const char* pOperationName, const char* pOperationNamespace,
                                      const char* pSOAPAction, const MRLPortTypeI& portType,
                                      MRLMessageI& inputMessage, MRLMessageI& outputMessage);

    MRLPortTypeBinding(const MRLPortTypeBinding&) = delete;
    MRLPortTypeBinding& operator=(const MRLPortTypeBinding&) = delete;

    /// Gives up the messages, the input first.
    ~MRLPortTypeBinding() override;

    const char* getOperationName() const { return m_pOperationName; }
    const char* getOperationNamespace() const { return m_pOperationNamespace; }
    const char* getSOAPAction() const { return m_pSOAPAction; }
    const MRLPortTypeI& getBoundPortType() const { return m_boundPortType; }
    MRLMessageI& getInputMessage() const { return m_inputMessage; }
    MRLMessageI& getOutputMessage() const { return m_outputMessage; }

private:
    MRLPortTypeBinding(const char* pOperationName, const char* pOperationNamespace, const char* pSOAPAction,
                       const MRLPortTypeI& portType, MRLMessageI* pInputMessage, MRLMessageI* pOutputMessage,
                       bool share);

    const char* m_pOperationName;
    const char* m_pOperationNamespace;
    const char* m_pSOAPAction;
    const MRLPortTypeI& m_boundPortType;
    HBLSmartPointer<MRLMessageI> m_pInputMessageHolder;  // empty when the messages are borrowed
    HBLSmartPointer<MRLMessageI> m_pOutputMessageHolder; // likewise
    MRLMessageI& m_inputMessage;
    MRLMessageI& m_outputMessage;
};
