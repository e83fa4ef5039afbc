"""Prints a resolved model as reference pages in Markdown, linked to each other."""

import re
from collections import defaultdict

from render import Pages
from tools import kind_of, meaning_of

KINDS = {"classType": "class", "property": "property wrapper", "enumeration": "enumeration", "array": "array"}


def render_reference(model):
    """(path, text) for every page."""
    page = Pages()
    types = sorted([*model.types, *(e for e in model.enums if e.uri)], key=lambda entry: entry.name.lower())
    names = {entry.name for entry in types}
    services = sorted(model.services, key=lambda service: service.name.lower())
    children, users = _children(types), _users(model)
    common = {"names": names, "kind": kind_of, "meaning": lambda member: meaning_of(member, "`")}
    yield page("index.md", "reference_index.md", services=services, types=types, children=children, **common)
    for service in services:
        yield page(f"services/{service.name}.md", "reference_service.md", service=service,
                   headings=headings(service), slug=slug, **common)
    for entry in types:
        yield page(f"types/{entry.name}.md", "reference_type.md", type=entry, kinds=KINDS,
                   children=children[entry.name], users=users[entry.name], **common)


def headings(service):
    """One for each operation, in order; overloads say which message they mean."""
    names = [operation.name for operation in service.operations]
    return [operation.name if names.count(operation.name) == 1 else f"{operation.name}: {operation.request.stem}"
            for operation in service.operations]


def slug(heading):
    """The anchor that a page makes of a heading."""
    return re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")


def _children(types):
    """The types derived from each, one step down."""
    children = defaultdict(list)
    for entry in types:
        if kind_of(entry) in ("classType", "property") and entry.parent:
            children[entry.parent.name].append(entry)
    return children


def _users(model):
    """For each type the (text, page) of what is declared with it."""
    users = defaultdict(list)
    for entry in [*model.classes, *model.properties]:
        for member in entry.members:
            users[member.type_name].append((f"{entry.name}.{member.name}".rstrip("."), f"{entry.name}.md"))
    for entry in model.arrays:
        users[entry.element_xsi_name.partition(":")[2]].append((entry.name, f"{entry.name}.md"))
    for service in model.services:
        for operation, heading in zip(service.operations, headings(service)):
            for message in (operation.request, operation.reply):
                for parameter in message.parameters:
                    users[parameter.type_name].append((f"{service.name}.{operation.name}",
                                                       f"../services/{service.name}.md#{slug(heading)}"))
    return defaultdict(list, {name: sorted(set(rows)) for name, rows in users.items()})
