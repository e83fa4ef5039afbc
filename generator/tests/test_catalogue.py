"""What must hold in the real catalogue, whatever else is added to it."""

import tomllib

from conftest import CATALOGUE
from model.figures import TABLE, figures


def test_the_figures_of_the_bus_are_those_of_the_table(real):
    table = tomllib.loads((CATALOGUE / TABLE).read_text())
    rows = {name: row["is"] for part in table.values() for name, row in part.items()}
    assert {"types", "classes", "operationEntries", "objectMembers", "symbols", "propEnum"} <= rows.keys()
    assert rows.items() <= figures(real).items()


def test_exactly_the_inner_classes_and_two_roots_of_options_are_abstract(real):
    inner = {entry.parent.name for entry in real.classes if entry.parent}
    assert {entry.name for entry in real.classes if entry.abstract} == inner | {"mobileOption", "promptOption"}


def below(real, name):
    return [entry for entry in real.classes if name in [level.name for level in entry.lineage]]


def values(real, name):
    return {value.text for enum in real.enums if enum.name == name for value in enum.values}


def test_queries_can_name_every_property_and_every_class_of_content(real):
    content = below(real, "baseClass")
    assert {member.name for entry in content for member in entry.members} == values(real, "propEnum")
    assert {entry.name for entry in content if not entry.abstract} <= values(real, "classEnum")


def test_content_objects_keep_their_properties_in_wrappers(real):
    wrappers = {entry.cpp_name for entry in real.properties}
    assert not [(entry.name, m.name) for entry in below(real, "baseClass") for m in entry.members
                if m.target not in wrappers]


def test_every_option_has_a_name_and_a_value(real):
    for entry in [e for root in ("option", "quadrixOption", "promptOption") for e in below(real, root)]:
        if not entry.abstract:
            assert {"name", "value"} <= {m.name for level in entry.lineage for m in level.members}, entry.name


def test_every_enumeration_of_the_wire_is_used(real):
    used = {m.target for entry in [*real.classes, *real.properties, *real.messages]
            for m in getattr(entry, "members", None) or getattr(entry, "parameters", [])}
    used |= {array.element for array in real.arrays}
    assert not [enum.name for enum in real.wire_enums if enum.cpp_name not in used]


def test_the_road_of_a_name_value_is_as_published(real):
    by_name = {entry.name: entry for entry in real.classes}
    assert [m.name for m in by_name["nameValue"].members] == ["name", "value"]
    assert (by_name["baseClass"].child_count, by_name["uiClass"].child_count) == (20, 29)
    assert [c.name for c in by_name["account"].lineage] == ["account", "uiClass", "baseClass"]
    assert max(len(entry.lineage) for entry in real.classes) == 5
