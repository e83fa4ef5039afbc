#pragma once

#include "HBLCore/HBLResetableResource.h"
#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

/// The vocabulary of the bus schema, addressed by the CRC-32 of each text. Any thread may look up.
class MRL_EXPORT zt5omsymbols1 : public HBLResetableResource {
public:
    /// The text as UTF-16, made at its first use and kept until reset().
    /// @throws HBLAssertError for a key that no text has.
    static const I18NString& getString(unsigned int key);

    /// The text itself, a constant.
    /// @throws HBLAssertError for a key that no text has.
    static const char* getChar(unsigned int key);

    ~zt5omsymbols1() override;

    /// Drops every kept string. No lookup may be under way, and references from before are invalid.
    void reset() override;

private:
    zt5omsymbols1() = default;
    static zt5omsymbols1& instance();
};
