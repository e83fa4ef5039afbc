"""Prints a resolved model as data for the tools. The library knows nothing of it."""

from model import symbols
from render import Pages


def render_tools(model):
    """(file name, text) for every source of the tools."""
    page = Pages()
    yield page("CatalogueData_gen_.cpp", "tool_data.cpp",
               types=sorted([*model.types, *(e for e in model.enums if e.uri)], key=lambda entry: entry.name),
               messages=sorted(model.messages, key=lambda message: message.name),
               services=sorted(model.services, key=lambda service: service.name),
               symbols=symbols.symbols(model), figures=FIGURES, kind=kind_of, meaning=meaning_of)
    yield page("LibraryAccess_gen_.cpp", "tool_library.cpp",
               services=sorted(model.services, key=lambda service: service.name),
               abstract=[entry for entry in model.types if _is_abstract(entry)])
    yield page("LibraryComparison_gen_.cpp", "tool_comparison.cpp",
               types=[entry for entry in model.types if not _is_abstract(entry)])


def kind_of(entry):
    """classType, property, enumeration or array."""
    if hasattr(entry, "values"):
        return "enumeration"
    if hasattr(entry, "element"):
        return "array"
    return "property" if entry.family == "property" else "classType"


def meaning_of(member, quote=""):
    """The documentation of a member or parameter, with the texts that it is known to hold."""
    values = ", ".join(f"{quote}{value}{quote}" for value in getattr(member, "values", ()))
    return f"{member.doc} One of {values}.".lstrip() if values else member.doc


def _is_abstract(entry):
    return getattr(entry, "abstract", False)


FIGURES = {
    "types": 933,
    "abstractTypes": 67,
    "concreteTypes": 758,
    "objectArrays": 97,
    "primitiveArrays": 11,
    "classes": 595,
    "abstractClasses": 66,
    "enums": 99,
    "properties": 130,
    "messages": 478,
    "messagePairs": 239,
    "parameterLists": 476,
    "objectParameters": 546,
    "stringParameters": 101,
    "nullableParameters": 23,
    "portTypes": 27,
    "operationEntries": 437,
    "lumenaEntries": 92,
    "objectMembers": 2013,
    "stringMembers": 327,
    "nullableMembers": 119,
    "arrayMembers": 200,
    "symbols": 2383,
    "uriSymbols": 116,
    "firstSymbol": "aasAffineConnections",
    "lastPlainSymbol": "yearlyRelativeWithIntradayRecurrence",
}
