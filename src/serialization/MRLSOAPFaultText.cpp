// A fault as text needs the writer of faults, which stands a floor above the fault model.
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLSOAPFault_PrivateData.h"
#include "serialization/MRLSOAPFaultSerializerFactory.h"
#include "serialization/MRLSOAPFaultSerializerI.h"

#include "PLQStreams/PLQMemoryOutputStream.h"

#include <memory>

namespace {

struct ReturnToFactory {
    void operator()(MRLSOAPFaultSerializerI* serializer) const {
        MRLSOAPFaultSerializerFactory::getInstance().destroy(serializer);
    }
};

} // namespace

const char* MRLSOAPFault::toString(const MRLTavelHeader* header) {
    PLQMemoryOutputStream out(1024, 512);
    const std::unique_ptr<MRLSOAPFaultSerializerI, ReturnToFactory> serializer(
        MRLSOAPFaultSerializerFactory::getInstance().create());
    serializer->serialize(header, *this, out, 1, 1);
    m_data->text = std::make_unique<std::string>(out.bytes(), out.length());
    return m_data->text->c_str();
}
