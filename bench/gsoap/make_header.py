#!/usr/bin/python3
"""Prints the header from which soapcpp2 makes a reader and a writer of replies of content objects.

make_header.py GENERATOR CATALOGUE    All classes below baseClass with all their properties, so that gSOAP has as many
                                      types to tell apart as the toolkit.
"""
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, sys.argv[1])

from model.reading import read_catalogue  # noqa: E402

# How the simple values of property wrappers look to gSOAP; all others are texts.
KINDS = {"boolean": "bool*", "number": "xsd__integer*", "real": "xsd__decimal*"}

HEADER = """\
//gsoap rns1 schema namespace: http://developer.vantor.example/schemas/contentManagerService/1
//gsoap bus schema namespace: http://developer.vantor.example/schemas/tavel/3/
//gsoap bus schema elementForm: qualified
typedef int xsd__integer;
typedef double xsd__decimal;
"""

FOOTER = """\
class ArrayOfBaseClass {
public:
    bus__baseClass** __ptr;
    int __size;
};
struct rns1__queryResponse {
    ArrayOfBaseClass* bus__result;
};
"""


def escaped(name):
    """As gSOAP spells a name that would not do in C++."""
    return name.replace("_", "_USCORE") + ("_" if name in {"public", "private", "default", "class", "for"} else "")


def main():
    catalogue = read_catalogue(__import__("pathlib").Path(sys.argv[2]))
    classes = [c for c in catalogue.classes if c.lineage[-1].name == "baseClass"]
    wrappers = {w.cpp_name: w for w in catalogue.properties}
    print(HEADER)
    for name in sorted({m.target for c in classes for m in c.members}):
        value = next((m for m in wrappers[name].members if m.name == "value"), None)
        kind = KINDS.get(value.kind, "char*") if value else "char*"
        print(f"class bus__{escaped(wrappers[name].name)} {{\npublic:\n    {kind} value;\n}};")
    for cls in sorted(classes, key=lambda c: len(c.lineage)):
        base = f" : public bus__{escaped(cls.parent.name)}" if cls.parent else ""
        print(f"class bus__{escaped(cls.name)}{base} {{\npublic:")
        for m in cls.members:
            print(f"    bus__{escaped(wrappers[m.target].name)}* {escaped(m.name)};")
        print("};")
    print(FOOTER)


main()
