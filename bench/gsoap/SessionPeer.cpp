#include "gsoap/SessionPeer.h"

#include "content.nsmap"
#include "soapH.h"

namespace mrl::bench {

struct GsoapClient::Context {
    explicit Context(std::string endpoint)
        : url(std::move(endpoint)) {
        soap_init2(&context, SOAP_IO_KEEPALIVE | SOAP_C_UTFSTRING, SOAP_IO_KEEPALIVE | SOAP_C_UTFSTRING);
    }
    ~Context() {
        soap_destroy(&context);
        soap_end(&context);
        soap_done(&context);
    }

    soap context;
    std::string url;
};

GsoapClient::GsoapClient(std::string url)
    : m_context(std::make_unique<Context>(std::move(url))) {}

GsoapClient::~GsoapClient() = default;

std::string GsoapClient::query(const char* searchPath) {
    soap* const context = &m_context->context;
    std::string names[] = {"defaultName", "searchPath", "defaultDescription", "hidden"};
    ArrayOfPropEnum properties;
    properties.__ptr = names;
    properties.__size = 4;
    std::string sortName = "defaultName";
    tv__sort sort;
    sort.propName = &sortName;
    tv__sort* sorts[] = {&sort};
    ArrayOfSort sortBy;
    sortBy.__ptr = sorts;
    sortBy.__size = 1;
    tv__queryOptions options{};
    cm__queryResponse answer{};
    std::string name;
    const int result = soap_call_cm__query(context, m_context->url.c_str(), "query", searchPath, &properties,
                                           &sortBy, &options, answer);
    if (result == SOAP_OK && answer.tv__result != nullptr && answer.tv__result->__size > 0)
        name = *answer.tv__result->__ptr[0]->defaultName->value;
    soap_destroy(context);
    soap_end(context);
    return name;
}

} // namespace mrl::bench
