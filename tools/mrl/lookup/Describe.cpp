#include "lookup/Describe.h"

#include "lookup/Catalogue.h"

#include <algorithm>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace mrl::tool {

namespace {

/// "searchPath: searchPathMultipleObject, properties: propEnumArray"
std::string parameters(std::string_view message) {
    std::string text;
    if (const MessageRow* row = findMessage(message))
        for (const MemberRow& parameter : row->parameters)
            text.append(text.empty() ? "" : ", ").append(parameter.name).append(": ").append(parameter.type);
    return "(" + text + ")";
}

/// Two columns, the first as wide as it needs to be.
void table(std::ostream& out, const char* indent,
           const std::vector<std::pair<std::string, const char*>>& rows) {
    std::size_t width = 0;
    for (const auto& [left, right] : rows)
        width = std::max(width, left.size());
    for (const auto& [left, right] : rows) {
        out << indent << left;
        if (*right != '\0')
            out << std::string(width + 2 - left.size(), ' ') << right;
        out << '\n';
    }
}

void members(std::ostream& out, const char* indent, std::span<const MemberRow> members) {
    std::vector<std::pair<std::string, const char*>> rows;
    for (const MemberRow& row : members)
        rows.emplace_back(std::string(*row.name == '\0' ? "(the text)" : row.name) + ": " + row.type,
                          row.doc);
    table(out, indent, rows);
}

void documentation(std::ostream& out, const char* doc) {
    if (*doc != '\0')
        out << "  " << doc << '\n';
}

/// What an operation does is said as the end of a sentence.
std::string purpose(const MessageRow& message) {
    return *message.doc == '\0' ? "" : std::string(": ") + message.doc;
}

void names(std::ostream& out, const char* label, const std::vector<const TypeRow*>& rows,
           const char* separator) {
    if (rows.empty())
        return;
    out << "  " << label << ": ";
    for (const TypeRow* row : rows)
        out << (row == rows.front() ? "" : separator) << row->name;
    out << '\n';
}

const char* kindOf(const TypeRow& type) {
    switch (type.kind) {
    case TypeKind::property: return type.isAbstract ? "abstract property" : "property";
    case TypeKind::enumeration: return type.travels ? "enumeration" : "enumeration of URIs";
    case TypeKind::array: return "array";
    case TypeKind::classType: break;
    }
    return type.isAbstract ? "abstract class" : "class";
}

void show(std::ostream& out, const TypeRow& type) {
    out << kindOf(type) << ' ' << type.name << '\n';
    documentation(out, type.doc);
    out << "  C++: " << type.className << " in Toolkit/" << type.className << ".h\n";
    std::vector<const TypeRow*> lineage = lineageOf(type);
    if (lineage.size() > 1)
        names(out, "derived from", {lineage.begin(), lineage.end() - 1}, " > ");
    names(out, "base of", childrenOf(type.name), ", ");
    if (type.kind == TypeKind::array)
        out << "  elements: " << type.element << '\n';
    if (type.kind == TypeKind::enumeration)
        out << "  values:\n";
    for (const char* value : type.values)
        out << "    " << value << '\n';
    for (const TypeRow* level : lineage) {
        if (level->members.empty())
            continue;
        out << "  members" << (level == &type ? "" : std::string(" of ") + level->name) << ":\n";
        members(out, "    ", level->members);
    }
}

void signature(std::ostream& out, const char* indent, const OperationRow& operation) {
    out << indent << operation.name << ' ' << parameters(operation.request) << '\n'
        << indent << "    -> " << parameters(operation.reply) << '\n';
}

/// One signature, and the services that offer it.
void show(std::ostream& out, const std::vector<FoundOperation>& offers) {
    const OperationRow& operation = *offers.front().operation;
    const MessageRow* request = findMessage(operation.request);
    out << "operation " << operation.name << (request == nullptr ? "" : purpose(*request)) << '\n';
    for (const char* side : {operation.request, operation.reply})
        if (const MessageRow* message = findMessage(side)) {
            out << "  " << message->className << '\n';
            members(out, "    ", message->parameters);
        }
    out << "  offered with the SOAP action:\n";
    std::vector<std::pair<std::string, const char*>> rows;
    rows.reserve(offers.size());
    for (const FoundOperation& offer : offers)
        rows.emplace_back(offer.service->name, offer.operation->soapAction);
    table(out, "    ", rows);
}

void show(std::ostream& out, const MessageRow& message) {
    out << "message " << message.name << purpose(message) << '\n';
    out << "  C++: " << message.className << " in Toolkit/" << message.className << ".h\n";
    for (const ServiceRow& service : services())
        for (const OperationRow& operation : service.operations)
            if (std::string_view(message.name) == operation.request ||
                std::string_view(message.name) == operation.reply)
                out << "  of " << service.name << '.' << operation.name << '\n';
    if (!message.parameters.empty())
        out << "  parameters:\n";
    members(out, "    ", message.parameters);
}

void show(std::ostream& out, const ServiceRow& service) {
    out << "service " << service.name << '\n';
    documentation(out, service.doc);
    out << "  C++: " << service.className << " in Toolkit/" << service.className << ".h\n";
    out << "  namespace: " << service.boundNamespace << "\n  operations:\n";
    for (const OperationRow& operation : service.operations)
        signature(out, "    ", operation);
}

} // namespace

void listServices(std::ostream& out) {
    std::vector<std::pair<std::string, const char*>> rows;
    for (const ServiceRow& service : services())
        rows.emplace_back(std::string(service.name) + " (" + std::to_string(service.operations.size()) + ")",
                          service.doc);
    table(out, "", rows);
}

bool listOperations(std::string_view service, std::ostream& out) {
    const ServiceRow* row = findService(service);
    if (row == nullptr)
        return false;
    for (const OperationRow& operation : row->operations)
        signature(out, "", operation);
    return true;
}

bool describe(std::string_view name, std::ostream& out) {
    bool found = false;
    const auto add = [&](const auto& row) {
        out << (found ? "\n" : "");
        show(out, row);
        found = true;
    };
    if (const ServiceRow* row = findService(name))
        add(*row);
    std::map<std::string_view, std::vector<FoundOperation>> bySignature; // keyed by the request
    for (const FoundOperation& operation : findOperations(name))
        bySignature[operation.operation->request].push_back(operation);
    for (const auto& [request, offers] : bySignature)
        add(offers);
    for (const char* side : {"", "_Request", "_Reply"})
        if (const MessageRow* row = findMessage(std::string(name) + side))
            add(*row);
    if (const TypeRow* row = findType(name))
        add(*row);
    return found;
}

} // namespace mrl::tool
