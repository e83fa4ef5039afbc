#include "serialization/MRLSOAPMessageIDeserializer.h"

#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLObjectRegistryFactory.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "serialization/MRLMessageIContentHandler.h"
#include "serialization/MRLSOAPFaultException.h"
#include "serialization/MRLXMLChConstants.h"
#include "serialization/detail/EnvelopeGuard.h"
#include "serialization/detail/GuardedInput.h"
#include "serialization/detail/LentReader.h"
#include "serialization/detail/Throw.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQStreamInputSource.h"

#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include <new>
#include <string>

using mrl::detail::EnvelopeGuard;
using mrl::detail::LentReader;
using mrl::detail::throwFailure;

namespace {

constexpr std::uint64_t LARGE_DOCUMENT =
    std::uint64_t{1024} * 1024; // bytes; its names and buffers are not worth keeping

constexpr const char* PARSE = "MRLSOAPMessageIDeserializer::parse";
constexpr const char* PARSE_CALL = "MRLSOAPMessageIDeserializer::parse()";

std::string narrowed(const XMLCh* text) {
    return I18NString(text).toUtf8();
}

[[noreturn]] void malformed(const std::string& words) {
    throwFailure(HBL_HERE, PARSE, msg::malformedXml, words);
}

} // namespace

MRLSOAPMessageIDeserializerI::~MRLSOAPMessageIDeserializerI() = default;

MRLSOAPMessageIDeserializer::MRLSOAPMessageIDeserializer()
    : m_limits(MRLReaderLimits::getDefaults()) {
    MRLXMLChConstants::getInstance(); // starts the XML library
}

MRLSOAPMessageIDeserializer::~MRLSOAPMessageIDeserializer() = default;

void MRLSOAPMessageIDeserializer::parse(PLQInputStream& stream, MRLPortTypeBinding& binding,
                                        MRLMessageI& message) {
    MRLMessageI* const pMsg = &message;
    HBL_ASSERT(pMsg);
    m_tavelHeader = nullptr;
    m_objectRegistry = &message.getObjectRegistry();
    MRLMessageIContentHandler handler(binding, message, &m_converter);
    parse(stream, handler);
}

void MRLSOAPMessageIDeserializer::parse(PLQInputStream& stream, const std::vector<MRLPortTypeI*>& portTypes,
                                        HBLSmartPointer<MRLPortTypeBinding>& bindingOut) {
    m_tavelHeader = nullptr;
    m_objectRegistry = MRLObjectRegistryFactory::getInstance().create();
    MRLMessageIContentHandler handler(portTypes, &m_converter);
    parse(stream, handler);
    bindingOut = handler.getBinding();
    bindingOut->getInputMessage().setObjectRegistry(m_objectRegistry.get());
}

void MRLSOAPMessageIDeserializer::parse(PLQInputStream& stream, MRLMessageIContentHandler& handler) {
    try {
        run(stream, handler);
        m_tavelHeader = handler.getTavelHeader();
        if (MRLSOAPFault* const fault = handler.getSOAPFault()) {
            HBL_THROW(MRLSOAPFaultException(m_tavelHeader, *fault, m_objectRegistry.get()), PARSE_CALL);
        }
    } catch (const xercesc::SAXParseException& e) {
        m_tavelHeader = handler.getTavelHeader();
        malformed(narrowed(e.getMessage()) + narrowed(e.getSystemId()));
    } catch (const xercesc::SAXException& e) {
        m_tavelHeader = handler.getTavelHeader();
        malformed(narrowed(e.getMessage()));
    } catch (const xercesc::XMLException& e) {
        m_tavelHeader = handler.getTavelHeader();
        malformed(narrowed(e.getMessage()));
    } catch (HBLThrowable& e) {
        m_tavelHeader = handler.getTavelHeader();
        HBL_RETHROW(PARSE_CALL);
    } catch (const std::bad_alloc&) {
        m_tavelHeader = handler.getTavelHeader();
        hblOutOfMemory(HBL_HERE, PARSE_CALL);
    } catch (const xercesc::OutOfMemoryException&) { // derives from nothing
        m_tavelHeader = handler.getTavelHeader();
        hblOutOfMemory(HBL_HERE, PARSE_CALL);
    } catch (const std::exception& e) {
        m_tavelHeader = handler.getTavelHeader();
        HBL_THROW(HBLStdExceptionError(e), PARSE_CALL);
    } catch (...) {
        m_tavelHeader = handler.getTavelHeader();
        throwFailure(HBL_HERE, PARSE, msg::unknownParseFailure);
    }
}

void MRLSOAPMessageIDeserializer::run(PLQInputStream& stream, MRLMessageIContentHandler& handler) {
    handler.setObjectRegistry(m_objectRegistry.get());
    handler.setAttachmentHandler(m_attachmentHandler);
    handler.setArrayItems(m_limits.arrayItems);
    mrl::detail::GuardedInput input(stream, m_limits);
    EnvelopeGuard guard(handler, input, m_limits);
    LentReader reader;
    reader->parse(PLQStreamInputSource(input, reader->memory()), guard);
    input.rethrowFailure();
    if (input.bytes() < LARGE_DOCUMENT) {
        reader.giveBack();
    }
}
