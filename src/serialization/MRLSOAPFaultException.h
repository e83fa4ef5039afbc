#pragma once

#include "Toolkit/MRLObjectRegistryI.h"

#include "HBLCore/HBLException.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/MRLExport.h"

#include <string>

class MRLSOAPFault;
class MRLTavelHeader;

/// A service answered with a fault. Holds the header of the reply and the fault, and keeps them alive,
/// through the registry that owns both, for as long as any copy of the exception lives. Copies belong
/// to one thread.
class MRL_EXPORT MRLSOAPFaultException : public HBLException {
public:
    /// @param header, registry null is allowed; the registry is shared by a counted reference.
    MRLSOAPFaultException(MRLTavelHeader* header, MRLSOAPFault& fault, MRLObjectRegistryI* registry);
    MRLSOAPFaultException(const MRLSOAPFaultException& other);
    MRLSOAPFaultException& operator=(const MRLSOAPFaultException& other);
    ~MRLSOAPFaultException() override;

    MRLSOAPFaultException* clone() const override;
    [[noreturn]] void hurl(const HBLFileLocation& where, const char* function, const char* macro) override;
    const char* getThrowableName() const override;

    using HBLException::getMessage;
    using HBLException::toString;

    /// Name, code, severity, the fault's messages and the back trace as one element, nothing escaped.
    /// @return a text owned by the exception, valid until the next call.
    const char* toString() override;

    MRLTavelHeader* getTavelHeader() const { return m_tavelHeader; }
    MRLSOAPFault& getSOAPFault() const { return *m_soapFault; }
    MRLObjectRegistryI* getObjectRegistry() const { return m_objectRegistry.get(); }

    /// Sets `text` to the fault's messages, as MRLSOAPFault::getMessages.
    void getSOAPFaultMessages(std::string& text) const;

private:
    MRLTavelHeader* m_tavelHeader; // the registry's
    MRLSOAPFault* m_soapFault;     // the registry's
    HBLSmartPointer<MRLObjectRegistryI> m_objectRegistry;
    std::string m_text; // what toString() hands out
};
