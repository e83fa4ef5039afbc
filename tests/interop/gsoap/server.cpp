// A content manager whose protocol code is gSOAP's. Writes values in place, except for "/shared".
#include "content.nsmap"
#include "soapH.h"

#include <csignal>
#include <cstdio>
#include <netinet/in.h>
#include <string>

namespace {

/// A property wrapper that `make` makes.
template <auto make, class Value>
auto* wrapped(soap* context, Value* value) {
    auto* property = make(context, -1);
    property->value = value;
    return property;
}

std::string* text(soap* context, const std::string& value) {
    std::string* made = soap_new_std__string(context, -1);
    *made = value;
    return made;
}

ArrayOfBaseClass* arrayOf(soap* context, int size) {
    ArrayOfBaseClass* array = soap_new_ArrayOfBaseClass(context, -1);
    array->__size = size;
    array->__ptr = static_cast<tv__baseClass**>(soap_malloc(context, sizeof(tv__baseClass*) * size));
    return array;
}

} // namespace

int cm__query(soap* context, std::string path, ArrayOfPropEnum* properties, ArrayOfSort*,
              tv__queryOptions* options, cm__queryResponse& answer) {
    if (path == "/refused") {
        soap_clr_omode(context, SOAP_XML_NIL); // else the parts of a SOAP 1.2 fault are there too, as nil
        return soap_sender_fault(context, "Refused: Gr\u00f6\u00dfe & <more>",
                                 "<tv:exception xsi:type=\"tv:faultDetail\"><tv:severity>error</tv:severity>"
                                 "<tv:message SOAP-ENC:arrayType=\"tv:faultDetailMessage[1]\""
                                 " xsi:type=\"SOAP-ENC:Array\"><item><tv:message>ask for /content"
                                 "</tv:message></item></tv:message></tv:exception>");
    }
    if (path == "/shared") {
        soap_clr_omode(context, SOAP_XML_TREE);
        answer.tv__result = arrayOf(context, 2);
        answer.tv__result->__ptr[0] = answer.tv__result->__ptr[1] = soap_new_tv__folder(context, -1);
        return SOAP_OK;
    }
    if (!properties || !options || !options->maxObjects || !options->schemaInfo)
        return soap_sender_fault(context, "The request lacks its properties or options", nullptr);

    answer.tv__result = arrayOf(context, properties->__size + 2);
    tv__baseClass** at = answer.tv__result->__ptr;
    for (int i = 0; i < properties->__size; ++i) {
        auto* folder = soap_new_tv__folder(context, -1);
        folder->defaultName = wrapped<soap_new_tv__tokenProp>(context, &properties->__ptr[i]);
        folder->displaySequence = wrapped<soap_new_tv__nonNegativeIntegerProp>(context, options->maxObjects);
        folder->hidden = wrapped<soap_new_tv__booleanProp>(context, options->schemaInfo);
        *at++ = folder;
    }
    *at++ = nullptr;
    auto* report = soap_new_tv__report(context, -1);
    report->searchPath = wrapped<soap_new_tv__stringProp>(context, text(context, path));
    *at = report;
    return SOAP_OK;
}

int cm__add(soap* context, std::string parentPath, ArrayOfBaseClass* objects, tv__addOptions* options,
            cm__addResponse& answer) {
    if (parentPath != "/content" || !options || !options->faultIfObjectReferenced ||
        *options->faultIfObjectReferenced || !options->updateAction || *options->updateAction != "replace")
        return soap_sender_fault(context, "The parent or the options are not what was sent", nullptr);
    answer.tv__result = objects;
    return SOAP_OK;
}

int cm__delete(soap* context, ArrayOfBaseClass* objects, tv__deleteOptions* options,
               cm__deleteResponse& answer) {
    if (!objects || options)
        return soap_sender_fault(context, "The objects are missing, or the options are not nil", nullptr);
    answer.tv__result = objects->__size;
    return SOAP_OK;
}

int main() {
    const soap_mode mode = SOAP_XML_TREE | SOAP_XML_NIL | SOAP_C_UTFSTRING;
    soap* context = soap_new1(mode);
    context->accept_timeout = 300; // nobody asks any more: end
    context->recv_timeout = context->send_timeout = 10;
    std::signal(SIGPIPE, SIG_IGN);
    if (!soap_valid_socket(soap_bind(context, "127.0.0.1", 0, 16))) {
        soap_print_fault(context, stderr);
        return 1;
    }
    sockaddr_in address{};
    socklen_t length = sizeof address;
    getsockname(context->master, reinterpret_cast<sockaddr*>(&address), &length);
    std::printf("listening on http://127.0.0.1:%d/\n", ntohs(address.sin_port));
    std::fflush(stdout);
    while (soap_valid_socket(soap_accept(context))) {
        soap_set_omode(context, mode);
        soap_serve(context);
        soap_destroy(context);
        soap_end(context);
    }
    soap_free(context);
    return 0;
}
