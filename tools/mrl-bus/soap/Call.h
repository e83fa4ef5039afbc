#pragma once

#include "soap/Answer.h"
#include "soap/Passports.h"

#include <string>
#include <vector>

class MRLObjectRegistryI;
class MRLPortTypeBinding;

namespace mrl::bus {

/// How binary data go back to a client.
enum class DataForm { base64, attached, attachedCompressed };

/// The attachments of an answer, as they come up while it is made.
class OutgoingAttachments {
public:
    /// Takes the bytes, packed when `form` says so.
    /// @return the content id to refer to them by.
    std::string add(const std::string& contentType, std::string bytes, DataForm form);

    std::vector<Attachment>& list() { return m_list; }

private:
    std::vector<Attachment> m_list;
};

/// One call to be performed: the request and its reply, who asks, and what the reply takes with it.
struct Call {
    MRLPortTypeBinding& binding;
    Caller caller;
    OutgoingAttachments attachments{};
};

/// The form of a text of the schema's enumeration, such as "MIMECompressed".
DataForm dataFormFrom(const std::string& text);

/// @throws StoreError noPermission when the caller's passport gives no right to change anything.
void requireChange(const Caller& caller);

} // namespace mrl::bus
