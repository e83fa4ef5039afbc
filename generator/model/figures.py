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
        "abstract types": len(abstract),
        "concrete types": len(model.types) - len(abstract) - len(model.arrays),
        "arrays of types": of_objects,
        "arrays of primitives": len(model.arrays) - of_objects,
        "classes": len(model.classes),
        "abstract classes": sum(entry.abstract for entry in model.classes),
        "enumerations": len(model.wire_enums),
        "enumerations of URIs": len(model.enums) - len(model.wire_enums),
        "properties": sum(not entry.abstract for entry in model.properties),
    }


def _messages(model):
    kinds = Counter(_COUNTS_AS[p.kind] for message in model.messages for p in message.parameters)
    entries = {service.cpp_name: len(service.operations) + 1 for service in model.services}
    return {
        "message pairs": len(model.messages) // 2,
        "parameter lists": sum(not message.is_null for message in model.messages),
        "object parameters": kinds["object"],
        "string parameters": kinds["string"],
        "nullable parameters": kinds["nullable"],
        "port types": len(entries),
        "entries": sum(entries.values()),
        **{f"entries of {name}": count for name, count in sorted(entries.items())},
    }


def _members(model):
    kinds = Counter(_COUNTS_AS[m.kind] for entry in model.classes for m in entry.members)
    classes = [*model.classes, *model.properties]
    everywhere = [m for entry in classes for m in entry.members]
    everywhere += [p for message in model.messages for p in message.parameters]
    return {
        "object members": kinds["object"],
        "string members": kinds["string"],
        "nullable members": kinds["nullable"],
        "array members": kinds["array"],
        "getters of abstract types": sum(m.abstract for m in everywhere),
        "types used as a member": len({m.target for e in classes for m in e.members if m.kind == "object"}),
    }


def _symbols(model):
    texts = symbols(model)
    plain = [text for text in texts if is_plain(text)]
    return {
        "symbols": len(texts),
        "symbols that are URIs": sum(is_uri(text) for text in texts),
        "first symbol": texts[0] if texts else "",
        "last plain symbol": plain[-1] if plain else "",
    }


def _values(model):
    return {f"values of {enum.name}": len(enum.values) for enum in sorted(model.enums, key=lambda e: e.name)}


def check_figures(model, root):
    """Compares the figures with the table of the catalogue, if it has one. Raises CatalogueError with a
    line for each that is off."""
    path = root / TABLE
    if not path.is_file():
        return
    source, found, off = SourceFile(path, root), figures(model), []
    for name, row in source.data.items():
        place = source.place("", name)
        if name not in found:
            raise CatalogueError(place, f"there is no figure '{name}'",
                                 "name a figure that generate.py prints with --figures")
        check_fields(row, place, f"the figure '{name}'", [("is", type(found[name]))], [("of", str)])
        if found[name] != row["is"]:
            off.append((place, name, row, found[name]))
    if off:
        lines = [f"\n    {place.line}: {name}: wanted {row['is']}, found {number}"
                 + (f"; it counts {row['of']}" if "of" in row else "") for place, name, row, number in off]
        raise CatalogueError(off[0][0], f"figures that are off: {len(off)}" + "".join(lines),
                             "add or remove the rows that make the difference; where the schema of the bus has "
                             f"grown, correct {TABLE}")
