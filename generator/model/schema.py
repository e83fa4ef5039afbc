"""What the catalogue resolves to. Everything a template prints is decided here or in building.py."""

from dataclasses import dataclass, field

from . import names
from .source import Place

ROOT = "MRLSchemaTypeI"

# A class may not have an accessor that the interface above it has already.
CLASS_OPERATIONS = frozenset({"ObjectType", "GeneratedObjectName", "ChildObject", "ChildType",
                              "ChildObjectNames", "ChildObjectCount"})
MESSAGE_OPERATIONS = frozenset({"MessageType", "ParameterNames", "Parameter", "ParameterType",
                                "GeneratedMessageName", "ObjectRegistry", "TavelHeader", "ReferenceCount"})


@dataclass(frozen=True)
class Member:
    """A property of a class or a parameter of a message.

    kind: text (`const char*`), number and boolean (nullable `int`), real (nullable `float`),
    binary (`MRLBase64Binary*`), object (`target*`), array (`target` by value, classes only).
    """

    name: str
    type_name: str
    kind: str
    object_type: str  # the declared type's enumerator
    place: Place
    doc: str = ""
    target: str = ""  # C++ class of an object or array
    abstract: bool = False  # the target cannot be made by a getter
    values: tuple = ()  # the texts that services know, where these are no enumeration; nobody checks them

    @property
    def summary(self):
        text = self.doc or f"The value of `{self.name}`."
        if self.values:
            text += " One of " + ", ".join(f"`{value}`" for value in self.values) + "."
        return f"{self.name}: {text}" if self.name and self.doc else text

    @property
    def key(self):
        return names.crc32(self.name)

    @property
    def accessor(self):
        return names.accessor(self.name)

    @property
    def field(self):
        return names.field(self.name)

    @property
    def is_nullable(self):
        return self.kind in ("number", "boolean", "real")

    @property
    def is_lazy(self):
        return self.kind in ("binary", "object")

    @property
    def value(self):
        """The C++ type behind a nullable member, or behind the pointer of a lazy one."""
        return {"real": "float", "binary": "MRLBase64Binary"}.get(self.kind, self.target or "int")

    @property
    def header(self):
        """The class whose header defines the member's value; none for text and numbers."""
        return "MRLBase64Binary" if self.kind == "binary" else self.target


@dataclass
class Type:
    """A named type of the schema, with a number of its own."""

    name: str
    place: Place
    doc: str = ""

    @property
    def cpp_name(self):
        return names.class_name(self.name)

    @property
    def enumerator(self):
        return "e" + self.cpp_name

    @property
    def number(self):
        return names.crc32(self.name)

    @property
    def xsi_name(self):
        return "bus:" + self.name


@dataclass
class SchemaClass(Type):
    family: str = "class"  # or "property"
    parent: "SchemaClass | None" = None
    abstract: bool = False
    members: list[Member] = field(default_factory=list)

    @property
    def summary(self):
        kind = f"a kind of `{self.parent.name}`" if self.parent else "a class of its own"
        return self.doc or f"`{self.name}` in the schema, {kind}."

    @property
    def base(self):
        return self.parent.cpp_name if self.parent else ROOT

    @property
    def lineage(self):
        """The class and its ancestors, most derived first."""
        return [self] + (self.parent.lineage if self.parent else [])

    @property
    def child_count(self):
        return sum(len(level.members) for level in self.lineage)

    @property
    def has_data(self):
        return bool(self.members)

    @property
    def needs_named_access(self):
        """A level without members answers as its base does, but at the root somebody must answer."""
        return self.has_data or self.parent is None

    @property
    def copies_into_registry(self):
        """A copy of numbers makes nothing that a registry must own."""
        return any(not member.is_nullable for member in self.members)

    @property
    def has_settable(self):
        """An array is filled in place and never set."""
        return any(member.kind != "array" for member in self.members)

    @property
    def is_text(self):
        """The one member is the text of the element itself."""
        return any(member.name == "" for member in self.members)

    @property
    def arrays(self):
        """Array classes that the private data embeds."""
        return sorted({m.target for m in self.members if m.kind == "array"})

    @property
    def header_classes(self):
        """Classes the header mentions and need not define."""
        return sorted({m.header for m in self.members if m.header} - {self.cpp_name, self.base})

    @property
    def used_classes(self):
        """Classes the sources must know completely."""
        return sorted({m.header for m in self.members if m.header} | {self.cpp_name})


@dataclass(frozen=True)
class EnumValue:
    text: str

    @property
    def number(self):
        return names.crc32(self.text)

    @property
    def enumerator(self):
        return names.enumerator(self.text.rpartition("#")[2])


@dataclass
class Enumeration(Type):
    values: list[EnumValue] = field(default_factory=list)
    uri: bool = False  # values are URIs; a class for hosts, no type of the wire

    @property
    def summary(self):
        return self.doc or f"The enumeration `{self.name}` of the schema."

    @property
    def sorted_values(self):
        return sorted(self.values, key=lambda value: value.number)


@dataclass
class Array(Type):
    element_kind: str = "object"  # or text, number
    element: str = ""  # C++ class of object elements
    element_type: str = ""  # enumerator
    element_xsi_name: str = ""

    @property
    def base(self):
        if self.element_kind == "object":
            return f"MRLObjectArray<{self.cpp_name}, {self.element}>"
        return f"{'MRLTextArray' if self.element_kind == 'text' else 'MRLNumberArray'}<{self.cpp_name}>"


@dataclass
class Message:
    """One side of an operation: its request or its reply."""

    stem: str
    side: str  # Request or Reply
    place: Place
    doc: str = ""
    parameters: list[Member] = field(default_factory=list)
    is_null: bool = False  # stands for no message; has no parameter list, not even an empty one

    @property
    def summary(self):
        side = f"The {self.side.lower()} of `{self.stem}`"
        return f"{side}: {self.doc}" if self.doc else f"{side}."

    @property
    def name(self):
        return f"{self.stem}_{self.side}"

    @property
    def cpp_name(self):
        return names.class_name(self.name)

    @property
    def enumerator(self):
        return "e" + self.cpp_name

    @property
    def number(self):
        return names.crc32(self.name)

    @property
    def has_data(self):
        return bool(self.parameters)

    @property
    def header_classes(self):
        return sorted({p.header for p in self.parameters if p.header})


@dataclass
class Operation:
    name: str
    request: Message
    reply: Message
    soap_action: str
    place: Place


@dataclass
class Service:
    name: str
    namespace: str  # bound namespace, with its authority
    place: Place
    doc: str = ""
    operations: list[Operation] = field(default_factory=list)

    @property
    def summary(self):
        return self.doc or f"The service `{self.name}`."

    @property
    def cpp_name(self):
        return names.class_name(self.name) + ("" if self.name.endswith("PortType") else "PortType")

    @property
    def parameter_types(self):
        """(operation-parameter, declared type) of all requests; the last signature decides."""
        rows = {f"{operation.name}-{parameter.name}": parameter.object_type
                for operation in self.operations for parameter in operation.request.parameters}
        return sorted(rows.items())


@dataclass
class Model:
    classes: list[SchemaClass] = field(default_factory=list)
    properties: list[SchemaClass] = field(default_factory=list)
    enums: list[Enumeration] = field(default_factory=list)
    arrays: list[Array] = field(default_factory=list)
    messages: list[Message] = field(default_factory=list)
    services: list[Service] = field(default_factory=list)

    @property
    def wire_enums(self):
        return [enum for enum in self.enums if not enum.uri]

    @property
    def types(self):
        """Every type that travels, in the order of their names."""
        return sorted([*self.classes, *self.properties, *self.wire_enums, *self.arrays],
                      key=lambda entry: entry.name)
