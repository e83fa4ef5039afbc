"""What the templates are told about the kitchen-sink catalogue."""

import pytest

from model.grouping import split
from model.symbols import symbols


def named(entries, name):
    return next(entry for entry in entries if entry.name == name)


@pytest.mark.parametrize("name, kind, object_type, value", [
    ("active", "boolean", "eBoolean", "int"), ("count", "number", "eInt", "int"),
    ("total", "number", "eInteger", "int"), ("ratio", "real", "eDecimal", "float"),
    ("for", "text", "eString", "int"), ("data", "binary", "eBase64Binary", "MRLBase64Binary"),
    ("part", "object", "eMRLPart", "MRLPart"), ("shape", "object", "eMRLShapeEnum", "MRLShapeEnum"),
    ("parts", "array", "eMRLPartArray", "MRLPartArray"), ("tags", "array", "eMRLStringArray", "MRLStringArray"),
])
def test_a_member_is_of_its_kind(golden, name, kind, object_type, value):
    member = named(named(golden.classes, "gadget").members, name)
    assert (member.kind, member.object_type, member.value) == (kind, object_type, value)


def test_a_getter_makes_no_abstract_object(golden):
    gadget = named(golden.classes, "gadget")
    assert named(gadget.members, "keeper").abstract and not named(gadget.members, "part").abstract


def test_children_count_with_those_of_all_ancestors(golden):
    things = [c for c in golden.classes if c.place.file == "classes/things.toml"]
    assert {c.name: c.child_count for c in things} == {
        "schemaInfo": 1, "thing": 1, "gadget": 13, "bareGadget": 13, "part": 2, "label": 1, "box": 1,
        "marker": 0, "swap": 2}


def test_lineage_runs_from_the_class_to_its_root(golden):
    assert [c.name for c in named(golden.classes, "bareGadget").lineage] == ["bareGadget", "gadget", "thing"]


def test_only_levels_with_members_and_roots_answer_by_name(golden):
    assert not named(golden.classes, "bareGadget").needs_named_access
    assert named(golden.classes, "marker").needs_named_access


def test_members_keep_an_order_of_their_own_when_the_class_says_so(golden):
    assert [m.name for m in named(golden.classes, "swap").members] == ["second", "first"]


def test_a_class_takes_over_the_members_of_its_groups_in_their_order(catalogue):
    model = catalogue({
        "classes/c.toml": '[base]\ngroups = ["outer"]\nmembers = [\n    { name = "m", type = "int" },\n]\n',
        "groups/g.toml": '[outer]\ndoc = "A."\ngroups = ["inner"]\nmembers = [\n    { name = "z", type = "int" },\n]\n'
                         '[inner]\ndoc = "B."\nmembers = [\n    { name = "a", type = "int" },\n]\n'})
    assert [m.name for m in model.classes[0].members] == ["a", "m", "z"]


def test_the_values_of_a_text_are_documented_and_become_symbols(catalogue):
    model = catalogue({"classes/c.toml": '[base]\nmembers = [\n    { name = "kind", type = "token", doc = "Its kind.", '
                                         'values = ["new", "OLD"] },\n]\n'})
    assert model.classes[0].members[0].summary == "kind: Its kind. One of `new`, `OLD`."
    assert {"new", "OLD"} <= set(symbols(model))


def test_symbols_begin_with_the_plain_ones_and_end_with_uris(catalogue):
    model = catalogue({"enums/e.toml": '[kindEnum]\nvalues = ["b", "PDF", "a"]\n[linkEnum]\nuri = true\nvalues = ["x"]\n'})
    assert symbols(model) == ["a", "b", "base", "kindEnum", "name", "PDF", "http://dev/vrok/constants/linkEnum#x"]


@pytest.mark.parametrize("name, kind, element_type, xsi_name", [
    ("partArray", "object", "eMRLPart", "bus:part"), ("shapeEnumArray", "object", "eMRLShapeEnum", "bus:shapeEnum"),
    ("stringArray", "text", "eString", "xs:string"), ("dateTimeArray", "text", "eDateTime", "xs:dateTime"),
    ("intArray", "number", "eInt", "xs:int"),
])
def test_an_array_knows_its_elements(golden, name, kind, element_type, xsi_name):
    array = named(golden.arrays, name)
    assert (array.element_kind, array.element_type, array.element_xsi_name) == (kind, element_type, xsi_name)


def test_an_array_parameter_is_a_pointer_and_an_array_member_is_not(golden):
    assert named(golden.messages, "find_1_Reply").parameters[0].kind == "object"
    assert named(golden.classes, "box").members[0].kind == "array"


def test_enumerations_of_uris_do_not_travel(golden):
    assert "linkEnum" not in [entry.name for entry in golden.types]
    assert [v.text for v in named(golden.enums, "linkEnum").values] == [
        "http://developer.golden.example/vrok/constants/linkEnum#next",
        "http://developer.golden.example/vrok/constants/linkEnum#previous"]


def test_the_last_signature_decides_the_type_of_a_shared_parameter(golden):
    assert dict(named(golden.services, "findService").parameter_types)["find-limit"] == "eInt"


def test_operations_keep_their_order_and_their_actions(golden):
    service = named(golden.services, "findService")
    assert [(o.name, o.request.stem, o.soap_action) for o in service.operations] == [
        ("find", "find_2", "http://www.golden.example/xmlns/findService/202004/"),
        ("find", "find_1", "http://www.golden.example/xmlns/findService/202004/.high"),
        ("clear", "clear", "http://www.golden.example/xmlns/findService/202004/")]


def test_port_types_are_named_as_such_once(golden):
    assert [service.cpp_name for service in golden.services] == ["MRLFindServicePortType", "MRLOldPortType"]


def test_groups_hold_every_entry_once_and_are_about_even():
    groups = split(list(range(100)), 7)
    assert sum(groups, []) == list(range(100))
    assert {len(group) for group in groups} <= {14, 15}
