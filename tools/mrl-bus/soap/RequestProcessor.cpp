#include "soap/RequestProcessor.h"

#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "serialization/MRLSOAPMessageIDeserializerFactory.h"
#include "serialization/MRLSOAPMessageIDeserializerI.h"
#include "serialization/MRLSOAPMessageISerializerFactory.h"
#include "serialization/MRLSOAPMessageISerializerI.h"
#include "soap/ServiceFault.h"
#include "store/SqliteError.h"
#include "store/StoreError.h"

#include "HBLCore/HBLOutOfMemoryError.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLThrowable.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <memory>
#include <vector>

namespace mrl::bus {

namespace {

constexpr std::size_t initialSize = 16384;
constexpr std::size_t growth = 65536;

struct GiveBack {
    void operator()(MRLSOAPMessageIDeserializerI* reader) const {
        MRLSOAPMessageIDeserializerFactory::getInstance().destroy(reader);
    }
    void operator()(MRLSOAPMessageISerializerI* writer) const {
        MRLSOAPMessageISerializerFactory::getInstance().destroy(writer);
    }
};

/// Thrown once a request is read and turns out to ask for something the bus does not do.
struct NotOffered {
    std::string operation;
    std::string service;
};

/// Reading failed: the request is at fault, whatever the reader says.
struct Unreadable {
    std::string reason;
};

HBLSmartPointer<MRLPortTypeBinding> read(PLQInputStream& in) {
    const std::vector<MRLPortTypeI*> portTypes{&MRLContentManagerServicePortType::getInstance()};
    const std::unique_ptr<MRLSOAPMessageIDeserializerI, GiveBack> reader(
        MRLSOAPMessageIDeserializerFactory::getInstance().create());
    HBLSmartPointer<MRLPortTypeBinding> binding;
    try {
        reader->parse(in, portTypes, binding);
    } catch (const HBLOutOfMemoryError&) {
        throw;
    } catch (const HBLThrowable& e) {
        throw Unreadable{e.getMessage()};
    }
    return binding;
}

Answer refused(const ServiceFault& fault) {
    return {true, fault.toEnvelope()};
}

} // namespace

std::string RequestProcessor::perform(PLQInputStream& in) {
    const auto binding = read(in);
    if (!m_contentManager.perform(*binding))
        throw NotOffered{binding->getOperationName(), binding->getBoundPortType().getName()};
    PLQMemoryOutputStream out(initialSize, growth);
    const std::unique_ptr<MRLSOAPMessageISerializerI, GiveBack> writer(
        MRLSOAPMessageISerializerFactory::getInstance().create());
    writer->serialize(*binding, binding->getOutputMessage(), out, nullptr, 1, 0);
    return {out.bytes(), out.length()};
}

Answer RequestProcessor::process(PLQInputStream& in) {
    try {
        return {false, perform(in)};
    } catch (const StoreError& e) {
        return refused(
            {true, "The content manager refused the request.", std::string(codeText(e.code())), e.what()});
    } catch (const Unreadable& e) {
        return refused({true, "The request could not be read.", "busBadRequest", e.reason});
    } catch (const NotOffered& e) {
        return refused({false, "The bus does not offer this operation.", "busNotOffered",
                        "mrl-bus does not offer the operation '" + e.operation + "' of " + e.service +
                            "; of contentManagerService it offers query, add, update and delete."});
    } catch (const SqliteError& e) {
        return refused({false, "The content store failed.", "busStoreFailure", e.what()});
    } catch (const HBLThrowable& e) {
        return refused({false, "The bus failed.", "busFailure", e.getMessage()});
    } catch (const std::exception& e) {
        return refused({false, "The bus failed.", "busFailure", e.what()});
    }
}

} // namespace mrl::bus
