"""The table of the schema's texts: the names of its types, members and parameters, and their values."""

from . import names
from .source import CatalogueError


def symbols(model):
    """All texts in their order; each stands once. Raises CatalogueError when two have the same CRC-32."""
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
            for text in member.values:
                add(text, member.place)
    for enum in model.enums:
        if not enum.uri:  # no type of the wire; its name is a part of its values
            add(enum.name, enum.place)
        for value in enum.values:
            add(value.text, enum.place)
    for message in model.messages:
        for parameter in message.parameters:
            add(parameter.name, parameter.place)
            for text in parameter.values:
                add(text, parameter.place)
    return sorted((text for text, _ in rows.values()), key=_order)


def is_uri(text):
    return "://" in text


def is_plain(text):
    """The greater part: neither a URI nor an acronym such as 'PDF', 'EVService', 'URL'."""
    return not is_uri(text) and not text[0].isupper()


def _order(text):
    """Three runs, each in the order of its bytes: plain texts, those that begin with a capital letter, URIs."""
    return is_uri(text), not is_plain(text), text
