#pragma once

#include <span>

/// What the generator tells the tools of the catalogue: constant rows, linked into tools alone. All texts
/// are constants; one that is not there is "".
namespace mrl::tool {

/// A member of a class or a parameter of a message, in the order of the schema.
struct MemberRow {
    const char* name; // "" for the text of an element
    const char* type; // schema name, "string" or "report"
    const char* doc;
};

enum class TypeKind { classType, property, enumeration, array };

struct TypeRow {
    const char* name;      // "report"
    const char* className; // "MRLReport"
    TypeKind kind;
    bool isAbstract;
    bool travels; // false for enumerations of URIs, which are for hosts alone
    const char* parent;
    const char* element; // of an array
    const char* doc;
    std::span<const MemberRow> members; // its own, without the inherited ones
    std::span<const char* const> values;
};

struct MessageRow {
    const char* name; // "contentQuery_Request"
    const char* className;
    const char* doc;
    std::span<const MemberRow> parameters;
};

struct OperationRow {
    const char* name;
    const char* request;
    const char* reply;
    const char* soapAction;
};

struct ServiceRow {
    const char* name;
    const char* className;
    const char* boundNamespace;
    const char* doc;
    std::span<const OperationRow> operations; // overloads in the order in which they are tried
};

/// A figure that the built library must have.
struct FigureRow {
    const char* name;
    const char* value;
};

/// Each sorted by name.
std::span<const TypeRow> types();
std::span<const MessageRow> messages();
std::span<const ServiceRow> services();

/// Every text that generated code names by number.
std::span<const char* const> symbols();

/// Empty when the catalogue has no table of figures.
std::span<const FigureRow> expectedFigures();

} // namespace mrl::tool
