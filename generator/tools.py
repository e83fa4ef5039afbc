"""Prints a resolved model as data for the tools. The library knows nothing of it."""

import tomllib

from model import symbols
from render import Pages


def render_tools(model, catalogue):
    """(file name, text) for every source of the tools; `catalogue` is the folder of the model."""
    page = Pages()
    yield page("CatalogueData_gen_.cpp", "tool_data.cpp",
               types=sorted([*model.types, *(e for e in model.enums if e.uri)], key=lambda entry: entry.name),
               messages=sorted(model.messages, key=lambda message: message.name),
               services=sorted(model.services, key=lambda service: service.name),
               symbols=symbols.symbols(model), figures=_expected_figures(catalogue), kind=kind_of, meaning=meaning_of)
    yield page("LibraryAccess_gen_.cpp", "tool_library.cpp",
               services=sorted(model.services, key=lambda service: service.name),
               abstract=[entry for entry in model.types if _is_abstract(entry)],
               enums=sorted(model.enums, key=lambda entry: entry.name))
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


def _expected_figures(catalogue):
    """What the library must hold. The build has compared the model with the same table."""
    path = catalogue / "figures.toml"
    if not path.is_file():
        return {}
    tables = tomllib.loads(path.read_text(encoding="utf-8"))
    return {name: row["is"] for rows in tables.values() for name, row in rows.items()}
