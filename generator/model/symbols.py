"""The table of all texts that generated code names by number."""

from . import names
from .source import CatalogueError


def symbols(model):
    """All texts, sorted; each stands once. Raises CatalogueError when two have the same CRC-32."""
    rows = {}

    def add(text, place):
        if text == "":
            return  # the child of enumerations and text classes; no code looks it up
        other, other_place = rows.setdefault(names.crc32(text), (text, place))
        if other != text:
            raise CatalogueError(place, f"the symbols '{text}' and '{other}' ({other_place}) have the same "
                                        "CRC-32", "rename one of the two")

    for entry in [*model.classes, *model.properties]:
        add(entry.name, entry.place)
        for member in entry.members:
            add(member.name, member.place)
    for enum in model.enums:
        add(enum.name, enum.place)
        for value in enum.values:
            add(value.text, enum.place)
    for message in model.messages:
        for parameter in message.parameters:
            add(parameter.name, parameter.place)
    return sorted(text for text, _ in rows.values())
