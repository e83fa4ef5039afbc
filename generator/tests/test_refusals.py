"""A catalogue that cannot be rendered is refused with file, row and remedy."""

import pytest

from model.source import CatalogueError


def members(*rows):
    return "members = [\n" + "".join(f'    {{ name = "{name}", type = "{kind}" }},\n' for name, kind in rows) + "]\n"


# name: (changed file, its text; "+" adds to the smallest catalogue; place, problem, remedy)
REFUSED = {
    "a text that is not TOML":
        ("classes/c.toml", "+[other]\nparent = base\n", "classes/c.toml:6", "not TOML", "double quotes"),
    "a name twice in a file":
        ("classes/c.toml", "+[base]\n", "classes/c.toml:5", "not TOML", "once in a file"),
    "a name twice in the catalogue":
        ("enums/e.toml", '+[base]\nvalues = ["x"]\n', "enums/e.toml:3", "'base' stands already at classes/c.toml:1",
         "rename"),
    "a type named as a primitive":
        ("classes/c.toml", "+[string]\n", "classes/c.toml:5", "primitive", "another name"),
    "a name that is no identifier":
        ("classes/c.toml", '+["a b"]\n', "classes/c.toml:5", "'a b' cannot be a name", "letters"),
    "an unknown key":
        ("classes/c.toml", '+[other]\ncolour = "red"\n', "classes/c.toml:5", "unknown key 'colour'", "'parent'"),
    "a value of another type":
        ("classes/c.toml", '+[other]\nabstract = "yes"\n', "classes/c.toml:5", "'yes', not true or false",
         "as they stand"),
    "a row without a type":
        ("classes/c.toml", '+[other]\nmembers = [\n    { name = "a" },\n]\n', "classes/c.toml:7", "no 'type'",
         "add the key"),
    "a member of an unknown type":
        ("classes/c.toml", "+[other]\n" + members(("a", "int"), ("b", "colour")), "classes/c.toml:8",
         "'colour' of 'b' in the class 'other' is unknown", "correct the name"),
    "members out of order":
        ("classes/c.toml", "+[other]\n" + members(("b", "int"), ("a", "int")), "classes/c.toml:8",
         "'a' stands behind 'b'", "asWritten"),
    "a member twice":
        ("classes/c.toml", "+[other]\n" + members(("a", "int"), ("a", "int")), "classes/c.toml:8",
         "'a' of 'other' stands already", "rename"),
    "a member that an ancestor has":
        ("classes/c.toml", '+[other]\nparent = "base"\n' + members(("name", "string")), "classes/c.toml:8",
         "the ancestor 'base' at classes/c.toml:3", "not repeated"),
    "two members with one accessor":
        ("classes/c.toml", '+[other]\nparent = "base"\n' + members(("Name", "string")), "classes/c.toml:8",
         "'Name' has the accessor of 'name'", "rename"),
    "two members of a class with one number":
        ("classes/c.toml", "+[other]\n" + members(("highQuiverGardenRare", "int"), ("kindNeedleBasket", "int")),
         "classes/c.toml:8", "'kindNeedleBasket' has the CRC-32 of 'highQuiverGardenRare'", "rename"),
    "two symbols of the catalogue with one number":
        ("enums/e.toml", '+[otherEnum]\nvalues = ["neatYellowMarket"]\n\n[thirdEnum]\n'
                         'values = ["openMarketMarketOpen"]\n',
         "enums/e.toml:6", "'openMarketMarketOpen' and 'neatYellowMarket' (enums/e.toml:3)", "rename"),
    "two types with one number":
        ("classes/c.toml", "+[neatYellowMarket]\n[openMarketMarketOpen]\n", "classes/c.toml:6", "same CRC-32",
         "rename"),
    "two names with one class":
        ("classes/c.toml", "+[Base]\n", "classes/c.toml:5", "both make the class MRLBase", "rename"),
    "an accessor that every class has":
        ("classes/c.toml", "+[other]\n" + members(("objectType", "string")), "classes/c.toml:7",
         "getObjectType is an operation", "rename"),
    "an unknown parent":
        ("classes/c.toml", '+[other]\nparent = "nobody"\n', "classes/c.toml:6", "'nobody' of 'other' is no class",
         "leave the parent out"),
    "an enumeration for a parent":
        ("classes/c.toml", '+[other]\nparent = "kindEnum"\n', "classes/c.toml:6", "is no class", "name a class"),
    "a cycle of parents":
        ("classes/c.toml", '+[x]\nparent = "y"\n[y]\nparent = "z"\n[z]\nparent = "x"\n', "classes/c.toml:5",
         "x -> y -> z -> x", "change one parent"),
    "an unnamed member beside others":
        ("classes/c.toml", "+[other]\n" + members(("", "string"), ("a", "int")), "classes/c.toml:7", "unnamed",
         "only a text class"),
    "a value twice":
        ("enums/e.toml", '+[otherEnum]\nvalues = ["x", "x"]\n', "enums/e.toml:3", "'x' twice", "remove"),
    "two values with one enumerator":
        ("enums/e.toml", '+[otherEnum]\nvalues = ["a-b", "a_b"]\n', "enums/e.toml:3", "'a-b' and 'a_b'", "rename"),
    "a value that is no text":
        ("enums/e.toml", "+[otherEnum]\nvalues = [1]\n", "enums/e.toml:4", "1 of 'otherEnum' is no text", "quotes"),
    "an unknown group":
        ("classes/c.toml", '+[other]\ngroups = ["shared"]\n', "classes/c.toml:6", "the group 'shared' of the class "
         "'other' is unknown", "name a group"),
    "a group that no class has":
        ("groups/g.toml", '# Nothing.\n[a]\ndoc = "A."\n', "groups/g.toml:2", "no class has the group 'a'", "remove"),
    "a value of a member twice":
        ("classes/c.toml", '+[other]\nmembers = [\n    { name = "a", type = "token", values = ["x", "x"] },\n]\n',
         "classes/c.toml:7", "the values of 'a'", "different texts"),
    "a figure that nobody counts":
        ("figures.toml", "[figures]\ndoors = { is = 1 }\n", "figures.toml:2", "no figure 'doors'", "--figures"),
    "a figure of another type":
        ("figures.toml", '[figures]\ntypes = { is = "2" }\n', "figures.toml:2", "'is' of the figure 'types' is '2'",
         "a whole number"),
    "an array of an unknown type":
        ("arrays.toml", 'xArray = "base"\nyArray = "x"\n', "arrays.toml:2", "'x' of 'yArray' is unknown", "name a"),
    "a parameter twice":
        ("messages/m.toml", "[find]\nreply = []\n" + members(("a", "int"), ("a", "int")).replace("members", "request"),
         "messages/m.toml:5", "'a' has the name of 'a'", "rename"),
    "an accessor that every message has":
        ("messages/m.toml", "[find]\nreply = []\n" + members(("parameter", "int")).replace("members", "request"),
         "messages/m.toml:4", "getParameter is an operation", "rename"),
    "documentation of a parameter that nothing has":
        ("parameters.toml", 'gone = "It was here."\n', "parameters.toml:1", "no message has a parameter 'gone'",
         "remove the row"),
    "an operation without a message":
        ("services/s.toml", 'name = "s"\nnamespace = "/schemas/s"\naction = "/schemas/s#"\noperations = [\n'
                            '    { name = "find" },\n    { name = "lose" },\n]\n',
         "services/s.toml:6", "'lose' has no message", "add the message"),
    "a message of two operations":
        ("services/s.toml", 'name = "s"\nnamespace = "/schemas/s"\naction = "/schemas/s#"\noperations = [\n'
                            '    { name = "find" },\n    { name = "seek", message = "find" },\n]\n',
         "services/s.toml:6", "'find' stands already at services/s.toml:5", "one operation"),
    "a namespace without an authority":
        ("services/s.toml", 'name = "s"\nnamespace = "/other/s"\naction = "/schemas/s#"\noperations = []\n',
         "services/s.toml:1", "no namespace authority", "namespaces.toml"),
}


@pytest.mark.parametrize("file, text, place, problem, remedy", REFUSED.values(), ids=REFUSED.keys())
def test_refuses_with_place_and_remedy(catalogue, file, text, place, problem, remedy):
    with pytest.raises(CatalogueError) as caught:
        catalogue({file: text})
    assert str(caught.value.place) == place
    assert problem in caught.value.problem
    assert remedy in str(caught.value).partition("remedy: ")[2]


@pytest.mark.parametrize("groups, place, problem", [
    ('[a]\ndoc = "A."\ngroups = ["b"]\n[b]\ndoc = "B."\ngroups = ["a"]\n', "groups/g.toml:6",
     "the group 'a' of the group 'b' has itself as a part"),
    ('[a]\ndoc = "A."\n' + members(("y", "int"), ("x", "int")), "groups/g.toml:5", "'x' stands behind 'y'"),
    ('[a]\ndoc = "A."\n' + members(("name", "int")), "groups/g.toml:4", "'name' of 'other' stands already in 'base'"),
])
def test_refuses_a_group_that_a_class_cannot_take_over(catalogue, groups, place, problem):
    with pytest.raises(CatalogueError) as caught:
        catalogue({"classes/c.toml": '+[other]\nparent = "base"\ngroups = ["a"]\n', "groups/g.toml": groups})
    assert str(caught.value.place) == place and problem in caught.value.problem.replace("the ancestor ", "")


def test_all_figures_that_are_off_are_told_with_what_they_count(catalogue):
    table = ('[figures]\ntypes = { is = 2 }\nclasses = { is = 2, of = "all of them" }\nstringMembers = { is = 1 }\n'
             'firstSymbol = { is = "b" }\n[values]\nkindEnum = { is = 1 }\n')
    with pytest.raises(CatalogueError) as caught:
        catalogue({"figures.toml": table})
    assert str(caught.value).splitlines()[:4] == [
        "figures.toml:3: figures that are off: 3",
        "    3: classes: wanted 2, found 1; it counts all of them",
        "    5: firstSymbol: wanted b, found a",
        "    7: kindEnum: wanted 1, found 2"]


def test_takes_the_catalogue_that_the_rows_are_added_to(catalogue):
    assert len(catalogue({}).types) == 2
