#include "gsoap/Peer.h"

#include "rns1.nsmap"
#include "soapH.h"

#include <algorithm>
#include <cstring>

namespace mrl::bench {

namespace {

/// What gSOAP reads from and writes to, in place of a socket.
struct Memory {
    std::string_view in;
    std::string* out = nullptr;
};

size_t receive(soap* context, char* buffer, size_t size) {
    auto& memory = *static_cast<Memory*>(context->user);
    const size_t n = std::min(size, memory.in.size());
    std::memcpy(buffer, memory.in.data(), n);
    memory.in.remove_prefix(n);
    return n;
}

int send(soap* context, const char* data, size_t size) {
    static_cast<Memory*>(context->user)->out->append(data, size);
    return SOAP_OK;
}

rns1__queryResponse* readReply(soap* context) {
    if (soap_begin_recv(context) != SOAP_OK || soap_envelope_begin_in(context) != SOAP_OK ||
        soap_recv_header(context) != SOAP_OK || soap_body_begin_in(context) != SOAP_OK) {
        return nullptr;
    }
    rns1__queryResponse* const reply =
        soap_get_rns1__queryResponse(context, nullptr, "rns1:queryResponse", nullptr);
    if (reply == nullptr || soap_body_end_in(context) != SOAP_OK ||
        soap_envelope_end_in(context) != SOAP_OK || soap_end_recv(context) != SOAP_OK) {
        return nullptr;
    }
    return reply;
}

} // namespace

struct GsoapPeer::Context {
    Context() {
        soap_init2(&context, SOAP_C_UTFSTRING, SOAP_C_UTFSTRING | SOAP_XML_TREE | SOAP_XML_INDENT);
        context.user = &memory;
        context.frecv = receive;
        context.fsend = send;
    }
    ~Context() {
        soap_destroy(&context);
        soap_end(&context);
        soap_done(&context);
    }

    int read(std::string_view document) {
        memory.in = document;
        reply = readReply(&context);
        return reply != nullptr && reply->bus__result != nullptr ? reply->bus__result->__size : -1;
    }

    soap context;
    Memory memory;
    rns1__queryResponse* reply = nullptr; // the context's
};

GsoapPeer::GsoapPeer()
    : m_context(std::make_unique<Context>()) {}

GsoapPeer::~GsoapPeer() = default;

int GsoapPeer::readAll(std::string_view document) {
    Context context;
    return context.read(document);
}

int GsoapPeer::read(std::string_view document) {
    return m_context->read(document);
}

void GsoapPeer::write(std::string& out) {
    soap* const context = &m_context->context;
    m_context->memory.out = &out;
    soap_begin_send(context);
    soap_envelope_begin_out(context);
    soap_body_begin_out(context);
    soap_put_rns1__queryResponse(context, m_context->reply, "rns1:queryResponse", nullptr);
    soap_body_end_out(context);
    soap_envelope_end_out(context);
    soap_end_send(context);
}

} // namespace mrl::bench
