#pragma once

#include "Toolkit/MRLPortTypeI.h"

#include "HBLCore/MRLExport.h"

#include <map>
#include <span>
#include <string_view>

/// What all port types share: the operations and parameter types of one service, filled from the
/// constant rows of its generated class, and every lookup over them.
class MRL_EXPORT MRLPortTypeBase : public MRLPortTypeI {
public:
    /// One signature of an operation.
    class OperationMetadata {
    public:
        OperationMetadata(const MessageType& in, const MessageType& out, const char* action)
            : inputMessageType(in)
            , outputMessageType(out)
            , soapAction(action) {}

        MessageType inputMessageType;
        MessageType outputMessageType;
        const char* soapAction; // borrowed, a constant
    };

    ~MRLPortTypeBase() override;

    ObjectType resolveOperationParamType(const char* pOperationName, const char* pParamName) const override;
    MRLPortTypeBinding* createPortTypeBinding(const char* pOperationName,
                                              const std::vector<MRLMessageParam*>& params) const override;
    MRLPortTypeBinding* createPortTypeBinding(const MessageType& inputType) const override;
    MRLPortTypeBinding* createPortTypeBinding(MRLMessageI& inputMessage,
                                              MRLMessageI& outputMessage) const override;
    MRLPortTypeBinding* createPortTypeBinding(MRLMessageI* pInputMessage) const override;
    const char* getName() const override { return m_name; }
    const char* getBoundNamespace() const override { return m_boundNamespace; }

protected:
    /// A signature, in declared order within the rows of one operation.
    struct OperationRow {
        const char* operationName;
        MessageType inputMessageType;
        MessageType outputMessageType;
        const char* soapAction;
    };
    /// "operation-parameter" and its declared type; a later row replaces an earlier one.
    struct ParamTypeRow {
        const char* key;
        ObjectType type;
    };

    /// All texts are constants: they are kept as they are.
    MRLPortTypeBase(const char* name, const char* boundNamespace, std::span<const OperationRow> operations,
                    std::span<const ParamTypeRow> paramTypes);

private:
    using Operations = std::multimap<std::string_view, OperationMetadata>;

    const Operations::value_type& requireByInput(MessageType inputType) const;
    MRLPortTypeBinding* bind(const Operations::value_type& operation, MRLMessageI* input) const;

    const char* m_name;
    const char* m_boundNamespace;
    Operations m_operations;                             // keys view constant, terminated text
    std::map<std::string_view, ObjectType> m_paramTypes; // keyed "operation-parameter"
};
