"""Which class goes into which grouped source: few enough to compile, big enough to be worth it."""

from dataclasses import dataclass, field

# How many sources each family has at most. A small catalogue makes fewer: none is nearly empty.
CLASS_GROUPS = 16
SUPPORT_CLASS_GROUPS = 8
PROPERTY_GROUPS = 2
SUPPORT_PROPERTY_GROUPS = 1
ENUM_GROUPS = 2
ARRAY_GROUPS = 2
FACTORY_GROUPS = 3
MESSAGE_GROUPS = 6
SUPPORT_MESSAGE_GROUPS = 6
PORT_TYPE_GROUPS = 2
SMALLEST_GROUP = 100  # in the weight of its entries


@dataclass
class Group:
    """A source and the header of its private data."""

    name: str  # file name without an ending
    entries: list = field(default_factory=list)
    uses: list = field(default_factory=list)  # groups whose private data it needs


def split(entries, count, weight=lambda entry: 1):
    """`count` runs of neighbours, of about the same weight."""
    total = sum(weight(entry) for entry in entries)
    groups, done = [[] for _ in range(count)], 0  # weight done so far
    for entry in entries:
        groups[min(count - 1, done * count // total)].append(entry)
        done += weight(entry)
    return groups


def numbered(stem, entries, count, weight=lambda entry: 10):
    if not entries:
        return []
    total = sum(weight(entry) for entry in entries)
    parts = split(entries, max(1, min(count, total // SMALLEST_GROUP)), weight)
    return [Group(f"{stem}{index}_gen_", part) for index, part in enumerate(parts, start=1)]


def joined(stem, groups, count):
    """Sources over the private data of other groups, `count` of them."""
    return [Group(f"{stem}{index}_gen_", [entry for group in part for entry in group.entries], part)
            for index, part in enumerate(split(groups, min(count, len(groups))), start=1)]


def class_weight(entry):
    return 6 + len(entry.members)


def message_weight(entry):
    return 4 + len(entry.parameters)


def all_groups(model):
    classes = numbered("MRLSchemaTypesClass", model.classes, CLASS_GROUPS, class_weight)
    properties = numbered("MRLSchemaTypesProp", model.properties, PROPERTY_GROUPS, class_weight)
    messages = numbered("MRLMessages", model.messages, MESSAGE_GROUPS, message_weight)
    return {
        "class": classes + properties,
        "support_class": joined("MRLSchemaTypesSupportClass", classes, SUPPORT_CLASS_GROUPS)
        + joined("MRLSchemaTypesSupportProp", properties, SUPPORT_PROPERTY_GROUPS),
        "enum": numbered("MRLSchemaTypesEnum", model.enums, ENUM_GROUPS),
        "array": numbered("MRLSchemaTypesArray", model.arrays, ARRAY_GROUPS),
        "factory": numbered("MRLSchemaTypesSupportFactory",
                            [entry for entry in model.types if not getattr(entry, "abstract", False)],
                            FACTORY_GROUPS, lambda entry: 4),
        "message": messages,
        "support_message": joined("MRLMessagesSupport", messages, SUPPORT_MESSAGE_GROUPS),
        "port_type": numbered("MRLPortTypes", model.services, PORT_TYPE_GROUPS,
                              lambda service: 5 + len(service.operations)),
    }
