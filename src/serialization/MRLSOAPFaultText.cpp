// A fault as text needs the writer of faults, which stands a floor above the fault model.
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLSOAPFault_PrivateData.h"
#include "serialization/MRLFromFactory.h"
#include "serialization/MRLSOAPFaultSerializerFactory.h"
#include "serialization/MRLSOAPFaultSerializerI.h"

#include "PLQStreams/PLQMemoryOutputStream.h"

#include <memory>

const char* MRLSOAPFault::toString(const MRLTavelHeader* header) {
    PLQMemoryOutputStream out(1024, 512);
    const auto serializer = mrlFromFactory<MRLSOAPFaultSerializerFactory>();
    serializer->serialize(header, *this, out, 1, 1);
    m_data->text = std::make_unique<std::string>(out.bytes(), out.length());
    return m_data->text->c_str();
}
