"""How many of everything a catalogue has, and whether these are the numbers that it must have."""

from collections import Counter

from .source import CatalogueError, SourceFile, check_fields
from .symbols import is_plain, is_uri, symbols

TABLE = "figures.toml"

# How members and parameters count: a fraction may be absent as a number may, and bytes are kept behind a
# pointer as an object is.
_COUNTS_AS = {"number": "nullable", "boolean": "nullable", "real": "nullable", "text": "string",
              "binary": "object", "object": "object", "array": "array"}


def figures(model):
    """The figures by name, in the order they are printed in."""
    return {**_types(model), **_messages(model), **_members(model), **_symbols(model), **_values(model)}


def _types(model):
    abstract = [entry for entry in [*model.classes, *model.properties] if entry.abstract]
    of_objects = sum(array.element_kind == "object" for array in model.arrays)
    return {
        "types": len(model.types),
        "abstractTypes": len(abstract),
        "concreteTypes": len(model.types) - len(abstract) - len(model.arrays),
        "objectArrays": of_objects,
        "primitiveArrays": len(model.arrays) - of_objects,
        "classes": len(model.classes),
        "abstractClasses": sum(entry.abstract for entry in model.classes),
        "enums": len(model.wire_enums),
        "uriEnums": len(model.enums) - len(model.wire_enums),
        "properties": sum(not entry.abstract for entry in model.properties),
    }


def _messages(model):
    kinds = Counter(_COUNTS_AS[p.kind] for message in model.messages for p in message.parameters)
    entries = {service.cpp_name: len(service.operations) + 1 for service in model.services}
    return {
        "messages": len(model.messages),
        "messagePairs": len(model.messages) // 2,
        "parameterLists": sum(not message.is_null for message in model.messages),
        "objectParameters": kinds["object"],
        "stringParameters": kinds["string"],
        "nullableParameters": kinds["nullable"],
        "portTypes": len(entries),
        "operationEntries": sum(entries.values()),
        "lumenaEntries": entries.get("MRLVantorLumenaPortType", 0),
    }


def _members(model):
    kinds = Counter(_COUNTS_AS[m.kind] for entry in model.classes for m in entry.members)
    classes = [*model.classes, *model.properties]
    everywhere = [m for entry in classes for m in entry.members]
    everywhere += [p for message in model.messages for p in message.parameters]
    return {
        "objectMembers": kinds["object"],
        "stringMembers": kinds["string"],
        "nullableMembers": kinds["nullable"],
        "arrayMembers": kinds["array"],
        "abstractGetters": sum(m.abstract for m in everywhere),
        "memberTypes": len({m.target for e in classes for m in e.members if m.kind == "object"}),
    }


def _symbols(model):
    texts = symbols(model)
    plain = [text for text in texts if is_plain(text)]
    return {
        "symbols": len(texts),
        "uriSymbols": sum(is_uri(text) for text in texts),
        "firstSymbol": texts[0] if texts else "",
        "lastPlainSymbol": plain[-1] if plain else "",
    }


def _values(model):
    return {enum.name: len(enum.values) for enum in sorted(model.enums, key=lambda entry: entry.name)}


def check_figures(model, root):
    """Compares the figures with the table of the catalogue, if it has one. Raises CatalogueError with a line
    for each that is off."""
    path = root / TABLE
    if not path.is_file():
        return
    source, found, off = SourceFile(path, root), figures(model), []
    check_fields(source.data, source.place(), "the table of figures",
                 optional=[("figures", dict), ("values", dict)])
    for table, rows in source.data.items():
        for name, row in rows.items():
            place = source.place(table, name)
            if name not in found:
                raise CatalogueError(place, f"there is no figure '{name}'",
                                     "name a figure that generate.py prints with --figures")
            check_fields(row, place, f"the figure '{name}'", [("is", type(found[name]))], [("of", str)])
            if found[name] != row["is"]:
                off.append((place, name, row))
    if off:
        lines = [f"\n    {place.line}: {name}: wanted {row['is']}, found {found[name]}"
                 + (f"; it counts {row['of']}" if "of" in row else "") for place, name, row in off]
        raise CatalogueError(off[0][0], f"figures that are off: {len(off)}" + "".join(lines),
                             "add or remove the rows that make the difference; where the schema of the bus has "
                             f"grown, correct {TABLE}")
