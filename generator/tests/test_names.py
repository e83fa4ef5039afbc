import pytest

from model import names


@pytest.mark.parametrize("name, number", [
    ("nameValue", 0xC625DD5C), ("baseClass", 0xE7CC8870), ("schemaInfo", 0x1B5D30CC),
    ("uiClass", 0xE66FBFE6), ("stringProp", 0x94142B50), ("tavelHeader", 0x94E1C196), ("error", 0x5DDDBC71),
    ("agentDeleteHotList_Request", 0x7BEE4A9B), ("", 0),
])
def test_a_name_has_the_number_that_travels(name, number):
    assert names.crc32(name) == number


@pytest.mark.parametrize("value, enumerator", [
    ("error", "eError"), ("not_encrypted", "eNot_encrypted"), ("semi-round", "eSemi_round"), ("XML", "eXML"),
])
def test_every_value_makes_an_identifier(value, enumerator):
    assert names.enumerator(value) == enumerator


@pytest.mark.parametrize("member, accessor, field", [
    ("name", "Name", "name"), ("ZORPassport", "ZORPassport", "ZORPassport"), ("for", "For", "for_"),
    ("", "Value", "value"),
])
def test_a_member_has_an_accessor_and_a_field(member, accessor, field):
    assert (names.accessor(member), names.field(member)) == (accessor, field)
