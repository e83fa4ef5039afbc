"""What no single row can tell: names and numbers that must be distinct across the catalogue."""

from . import schema
from .source import CatalogueError
from .symbols import symbols

_PRIMITIVE_NUMBERS = range(0, 16)  # hand-written values of MRLSchemaTypeI::ObjectType
_CHAR_STREAMABLE = 0x116E90CF
_NAMED_ENTRY = range(0, 3)  # message types of the entry without a name


def check_model(model):
    declared = [*model.classes, *model.properties, *model.enums, *model.arrays]
    for entry in [*model.classes, *model.properties]:
        _check_members(entry)
    for enum in model.enums:
        _check_values(enum)
    for message in model.messages:
        _check_parameters(message)
    for service in model.services:
        _check_operations(service)
    _check_numbers("type", declared, [*_PRIMITIVE_NUMBERS, _CHAR_STREAMABLE])
    _check_numbers("message", model.messages, _NAMED_ENTRY)
    _check_class_names([*declared, *model.messages])
    symbols(model)


def _check_members(entry):
    """Names, numbers and accessors are distinct over a class and all that it inherits."""
    taken = {}
    for level in reversed(entry.lineage):
        for member in level.members:
            owner, other = taken.get(member.name, (None, None))
            if other is not None:
                where = f"the ancestor '{owner.name}'" if owner is not entry else f"'{owner.name}'"
                raise CatalogueError(member.place, f"the member '{member.name}' of '{level.name}' stands "
                                                   f"already in {where} at {other.place}",
                                     "inherited members are not repeated; remove or rename the row")
            taken[member.name] = level, member
    members = [member for _, member in taken.values()]
    _distinct(members, lambda m: m.key, "CRC-32", f"in '{entry.name}'")
    _distinct(members, lambda m: m.accessor, "accessor", f"in '{entry.name}'")
    _not_taken(members, schema.CLASS_OPERATIONS)


def _check_parameters(message):
    _distinct(message.parameters, lambda p: p.name, "name", f"in '{message.name}'")
    _distinct(message.parameters, lambda p: p.accessor, "accessor", f"in '{message.name}'")
    _not_taken(message.parameters, schema.MESSAGE_OPERATIONS)


def _distinct(members, key, what, where):
    seen = {}
    for member in members:
        other = seen.setdefault(key(member), member)
        if other is not member:
            raise CatalogueError(member.place, f"'{member.name}' has the {what} of '{other.name}' {where}",
                                 "rename one of the two")


def _not_taken(members, operations):
    for member in members:
        if member.accessor in operations:
            raise CatalogueError(member.place, f"the accessor get{member.accessor} is an operation of every "
                                               "such class", f"rename '{member.name}'")


def _check_values(enum):
    texts, numbers, enumerators = set(), {}, {"eRSOAMUninitialized": "no value"}
    for value in enum.values:
        if value.text in texts:
            raise CatalogueError(enum.place, f"'{enum.name}' has the value '{value.text}' twice",
                                 "remove one of the two")
        texts.add(value.text)
        for table, key in ((numbers, value.number), (enumerators, value.enumerator)):
            if key in table:
                raise CatalogueError(enum.place, f"the values '{table[key]}' and '{value.text}' of "
                                                 f"'{enum.name}' fall together in {key}",
                                     "rename one of the two")
            table[key] = value.text


def _check_operations(service):
    seen = {}
    for operation in service.operations:
        stem = operation.request.stem
        if stem in seen:
            raise CatalogueError(operation.place, f"the message '{stem}' stands already at {seen[stem]}",
                                 "a message belongs to one operation of a service")
        seen[stem] = operation.place


def _check_numbers(what, entries, reserved):
    seen = {}
    for entry in entries:
        if entry.number in reserved:
            raise CatalogueError(entry.place, f"the number {entry.number:#x} of the {what} '{entry.name}' "
                                              "has a meaning of its own", "rename it")
        other = seen.setdefault(entry.number, entry)
        if other is not entry:
            raise CatalogueError(entry.place, f"the {what}s '{entry.name}' and '{other.name}' have the same "
                                              f"CRC-32 {entry.number:#x}", "rename one of the two")


def _check_class_names(entries):
    seen = {}
    for entry in entries:
        other = seen.setdefault(entry.cpp_name, entry)
        if other is not entry:
            raise CatalogueError(entry.place, f"'{entry.name}' and '{other.name}' at {other.place} both make "
                                              f"the class {entry.cpp_name}", "rename one of the two")
