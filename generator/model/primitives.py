"""The value types that are no schema objects: how they are kept, and what they are on the wire."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Primitive:
    name: str
    kind: str  # text, number, boolean, real or binary
    object_type: str  # the enumerator of MRLSchemaTypeI
    xsi_name: str


def _table():
    text = ("string", "token", "ncname", "nmtoken", "anyURI", "language", "anyType",
            "date", "dateTime", "duration", "time")
    # xs:time and xs:anyType have no written form, so all text goes out as xs:string.
    rows = [Primitive(name, "text", "eString", "xs:string") for name in text]
    rows.append(Primitive("int", "number", "eInt", "xs:int"))
    rows += [Primitive(name, "number", "eInteger", "xs:integer")
             for name in ("integer", "nonNegativeInteger", "positiveInteger")]
    rows.append(Primitive("boolean", "boolean", "eBoolean", "xs:boolean"))
    rows.append(Primitive("decimal", "real", "eDecimal", "xs:decimal"))
    rows.append(Primitive("float", "real", "eFloat", "xs:float"))
    rows.append(Primitive("base64Binary", "binary", "eBase64Binary", "xs:base64Binary"))
    return {row.name: row for row in rows}


PRIMITIVES = _table()

# The element types of primitive arrays whose name on the wire is not that of a member.
ARRAY_ELEMENTS = {
    **{name: row for name, row in PRIMITIVES.items() if row.kind in ("text", "number", "boolean")},
    "dateTime": Primitive("dateTime", "text", "eDateTime", "xs:dateTime"),
}
