"""From the files of a catalogue to a resolved model."""

from dataclasses import replace
from pathlib import Path

from . import names, schema
from .checking import check_model
from .figures import check_figures
from .primitives import ARRAY_ELEMENTS, PRIMITIVES
from .source import CatalogueError, Place, SourceFile, check_fields

_ROW = ([("name", str), ("type", str)], [("doc", str), ("values", list)])


def read_catalogue(root):
    """Reads, resolves and checks the catalogue below the folder `root`.
    Raises CatalogueError with file, row and remedy."""
    reader = _Reader(Path(root))
    reader.read_types()
    reader.resolve_types()
    reader.read_messages()
    reader.read_services()
    check_model(reader.model)
    check_figures(reader.model, Path(root))
    return reader.model


class _Reader:
    def __init__(self, root):
        self.root = root
        self.model = schema.Model()
        self.types = {}  # schema name -> Type
        self.class_rows = []  # (class, row, file, table): parents and members wait for all names
        self.used_groups = set()
        self.groups = {}  # name -> (row, file): members that several classes share
        self.messages = {}  # stem -> (request, reply)
        self.authorities = self._read_authorities()

    # -- files ---------------------------------------------------------------------------------

    def _files(self, folder):
        return [SourceFile(path, self.root) for path in sorted((self.root / folder).glob("*.toml"))]

    def _file(self, name):
        path = self.root / name
        if not path.is_file():
            raise CatalogueError(Place(name, 1), "the file is missing", "a catalogue has this file, if empty")
        return SourceFile(path, self.root)

    def _read_authorities(self):
        source = self._file("namespaces.toml")
        prefixes = []
        for name, row in source.data.items():
            check_fields(row, source.place(name), f"the authority '{name}'",
                         [("authority", str), ("paths", list)])
            prefixes += [(path, row["authority"]) for path in row["paths"]]
        return prefixes

    def _uri(self, path, place):
        for prefix, authority in self.authorities:
            if path.startswith(prefix):
                return authority + path
        raise CatalogueError(place, f"no namespace authority stands for paths such as '{path}'",
                             "begin the path as namespaces.toml says, or add its beginning there")

    # -- types ---------------------------------------------------------------------------------

    def read_types(self):
        for source in self._files("groups"):
            for name, row in source.data.items():
                place = source.place(name)
                check_fields(row, place, f"the group '{name}'", [("doc", str)],
                             [("members", list), ("groups", list)])
                if name in self.groups:
                    raise CatalogueError(place, f"the group '{name}' stands in two files", "rename one of the two")
                self.groups[name] = row, source
        for source in self._files("classes"):
            for name, row in source.data.items():
                place = source.place(name)
                check_fields(row, place, f"the class '{name}'",
                             optional=[("parent", str), ("abstract", bool), ("doc", str),
                                       ("asWritten", bool), ("members", list), ("groups", list)])
                self._add_class(self.model.classes, "class", name, row, source, name)
        for source in self._files("enums"):
            for name, row in source.data.items():
                self._add_enum(name, row, source)
        source = self._file("arrays.toml")
        for name, element in source.data.items():
            place = source.place("", name)
            if not isinstance(element, str):
                raise CatalogueError(place, f"the array '{name}' has no element type",
                                     f'write {name} = "elementType"')
            self._add_type(self.model.arrays, schema.Array(name, place, element_type=element))
        self._read_properties(self._file("properties.toml"))

    def _read_properties(self, source):
        for name, row in source.data.items():
            if name == "wrappers":
                continue
            place = source.place(name)
            check_fields(row, place, f"the wrapper '{name}'", [("members", list)],
                         [("abstract", bool), ("doc", str)])
            parent = {} if name == "baseProp" else {"parent": "baseProp"}
            self._add_class(self.model.properties, "property", name, {**row, **parent}, source, name)
        for name, row in source.data.get("wrappers", {}).items():
            place = source.place("wrappers", name)
            check_fields(row, place, f"the wrapper '{name}'", [("value", str)], [("doc", str)])
            doc = row.get("doc", f"A stored property of type `{row['value']}`.")
            members = [{"name": "value", "type": row["value"], "doc": "The value as the store has it."}]
            self._add_class(self.model.properties, "property", name,
                            {"parent": "baseProp", "doc": doc, "members": members}, source, "wrappers", name)

    def _add_type(self, family, entry):
        self._require_name(entry.name, entry.place)
        if entry.name in PRIMITIVES:
            raise CatalogueError(entry.place, f"'{entry.name}' is a primitive type",
                                 "give the type another name")
        if entry.name in self.types:
            raise CatalogueError(entry.place, f"the type '{entry.name}' stands already at "
                                              f"{self.types[entry.name].place}",
                                 "remove one of the two rows, or rename it")
        self.types[entry.name] = entry
        family.append(entry)

    def _add_class(self, family, family_name, name, row, source, table, key=None):
        entry = schema.SchemaClass(name, source.place(table, key), row.get("doc", ""), family_name,
                                   abstract=row.get("abstract", False))
        self._add_type(family, entry)
        self.class_rows.append((entry, row, source, table, key))

    def _add_enum(self, name, row, source):
        place = source.place(name)
        check_fields(row, place, f"the enumeration '{name}'", [("values", list)],
                     [("doc", str), ("uri", bool)])
        uri = row.get("uri", False)
        entry = schema.Enumeration(name, place, row.get("doc", ""), uri=uri)
        for index, text in enumerate(row["values"]):
            at = source.place(name, "values", index)
            if not isinstance(text, str) or not text:
                raise CatalogueError(at, f"the value {text!r} of '{name}' is no text",
                                     "values are texts in double quotes and not empty")
            entry.values.append(
                schema.EnumValue(self._uri(f"/vrok/constants/{name}#{text}", at) if uri else text))
        self._add_type(self.model.enums, entry)

    @staticmethod
    def _require_name(name, place):
        if not names.is_name(name):
            raise CatalogueError(place, f"'{name}' cannot be a name of the schema",
                                 "use letters, digits and underscores, with no digit in front")

    # -- resolution ----------------------------------------------------------------------------

    def resolve_types(self):
        for entry, row, source, table, key in self.class_rows:
            self._resolve_parent(entry, row.get("parent"), source.place(table, key or "parent"))
        for entry, *_ in self.class_rows:
            self._refuse_cycle(entry)
        for array in self.model.arrays:
            self._resolve_element(array)
        for entry, row, source, table, key in self.class_rows:
            entry.members = self._members(row.get("members", []), source, table, key or "members",
                                          f"the class '{entry.name}'")
            as_written = row.get("asWritten", False)
            if not as_written:
                self._require_order(entry.members)
            entry.members += self._shared(row.get("groups", []), source.place(table, "groups"),
                                          f"the class '{entry.name}'")
            if not as_written:
                entry.members.sort(key=lambda member: member.name)
        for name, (_, source) in self.groups.items():
            if name not in self.used_groups:
                raise CatalogueError(source.place(name), f"no class has the group '{name}'", "remove the group")

    def _resolve_parent(self, entry, parent, place):
        if parent is None:
            return
        entry.parent = self.types.get(parent)
        if not isinstance(entry.parent, schema.SchemaClass):
            raise CatalogueError(place, f"the parent '{parent}' of '{entry.name}' is no class",
                                 "name a class of the catalogue, or leave the parent out at the root")

    @staticmethod
    def _refuse_cycle(entry):
        above, seen = entry.parent, [entry.name]
        while above is not None:
            seen.append(above.name)
            if above is entry:
                raise CatalogueError(entry.place, f"the class '{entry.name}' is its own ancestor: "
                                                  + " -> ".join(seen),
                                     "change one parent on this way, so that it ends at the root")
            if seen.count(above.name) > 1:
                return  # a cycle further up; its own members are refused
            above = above.parent

    def _resolve_element(self, array):
        element = array.element_type
        if element in ARRAY_ELEMENTS:
            primitive = ARRAY_ELEMENTS[element]
            array.element_kind = "text" if primitive.kind == "text" else "number"
            array.element_type, array.element_xsi_name = primitive.object_type, primitive.xsi_name
            return
        entry = self.types.get(element)
        if entry is None or isinstance(entry, schema.Array) or getattr(entry, "uri", False):
            raise CatalogueError(array.place, f"the element type '{element}' of '{array.name}' is unknown",
                                 "name a class, a wrapper, an enumeration or a primitive type")
        array.element = entry.cpp_name
        array.element_type, array.element_xsi_name = entry.enumerator, entry.xsi_name

    def _shared(self, names_of_groups, place, owner, above=()):
        """The members of groups, and of the groups in them."""
        members = []
        for name in names_of_groups:
            if name not in self.groups or name in above:
                problem = "has itself as a part" if name in above else "is unknown"
                raise CatalogueError(place, f"the group '{name}' of {owner} {problem}",
                                     "name a group of the catalogue that is not around this one")
            self.used_groups.add(name)
            row, source = self.groups[name]
            whom = f"the group '{name}'"
            own = self._members(row.get("members", []), source, name, "members", whom)
            self._require_order(own)
            members += own
            members += self._shared(row.get("groups", []), source.place(name, "groups"), whom, (*above, name))
        return members

    def _members(self, rows, source, table, key, owner, parameter_docs=None):
        """The rows of a class, or with `parameter_docs` of a message, which has no unnamed ones and
        points to its arrays."""
        members = []
        in_class = parameter_docs is None
        for index, row in enumerate(rows):
            place = source.place(table, key, index)
            check_fields(row, place, f"a row of {owner}", *_ROW)
            if row["name"] or not in_class:
                self._require_name(row["name"], place)
            elif row["type"] != "string" or len(rows) > 1:
                raise CatalogueError(place, f"{owner} has an unnamed member beside others, or one that "
                                            "is no string",
                                     "only a text class has it: one row with an empty name, a string")
            doc = row.get("doc") or (parameter_docs or {}).get(row["name"], "")
            member = self._member(row["name"], row["type"], doc, place, owner, in_class)
            members.append(replace(member, values=self._tokens(row.get("values", []), place, row["name"])))
        return members

    @staticmethod
    def _tokens(texts, place, name):
        if any(not isinstance(text, str) or not text for text in texts) or len(set(texts)) < len(texts):
            raise CatalogueError(place, f"the values of '{name}' are not texts, or one stands twice",
                                 "values are different texts in double quotes and not empty")
        return tuple(texts)

    def _member(self, name, type_name, doc, place, owner, in_class):
        if type_name in PRIMITIVES:
            primitive = PRIMITIVES[type_name]
            return schema.Member(name, type_name, primitive.kind, primitive.object_type, place, doc)
        entry = self.types.get(type_name)
        if entry is None or getattr(entry, "uri", False):
            raise CatalogueError(place, f"the type '{type_name}' of '{name}' in {owner} is unknown",
                                 "correct the name, or add the type to the catalogue")
        kind = "array" if isinstance(entry, schema.Array) and in_class else "object"
        return schema.Member(name, type_name, kind, entry.enumerator, place, doc, entry.cpp_name,
                             getattr(entry, "abstract", False))

    @staticmethod
    def _require_order(members):
        for before, after in zip(members, members[1:]):
            if before.name > after.name:
                raise CatalogueError(after.place, f"'{after.name}' stands behind '{before.name}'",
                                     "members stand in alphabetic order, unless the class says "
                                     "asWritten = true")

    # -- messages and services -----------------------------------------------------------------

    def read_messages(self):
        docs = self._parameter_docs()
        for source in self._files("messages"):
            for stem, row in source.data.items():
                place = source.place(stem)
                self._require_name(stem, place)
                check_fields(row, place, f"the message '{stem}'", [("request", list), ("reply", list)],
                             [("doc", str), ("null", bool)])
                if stem in self.messages:
                    raise CatalogueError(place, f"the message '{stem}' stands already at "
                                                f"{self.messages[stem][0].place}",
                                         "remove one of the two rows, or number the overloads")
                pair = tuple(schema.Message(stem, side, place, row.get("doc", ""),
                                            self._members(row[key], source, stem, key,
                                                          f"the {key} of '{stem}'", docs),
                                            row.get("null", False))
                             for side, key in (("Request", "request"), ("Reply", "reply")))
                self.messages[stem] = pair
                self.model.messages += pair

        self._refuse_stale(docs)

    def _parameter_docs(self):
        source = self._file("parameters.toml")
        for name, doc in source.data.items():
            check_fields({"doc": doc}, source.place("", name), f"the parameter '{name}'", [("doc", str)])
        return source.data

    def _refuse_stale(self, docs):
        used = {parameter.name for message in self.model.messages for parameter in message.parameters}
        for name in docs:
            if name not in used:
                raise CatalogueError(self._file("parameters.toml").place("", name),
                                     f"no message has a parameter '{name}'", "remove the row")

    def read_services(self):
        seen = {}
        for source in self._files("services"):
            row, place = source.data, source.place()
            check_fields(row, place, "the service",
                         [("name", str), ("namespace", str), ("action", str), ("operations", list)],
                         [("doc", str)])
            place = source.place("", "name")
            self._require_name(row["name"], place)
            if row["name"] in seen:
                raise CatalogueError(place, f"the service '{row['name']}' stands already at "
                                            f"{seen[row['name']]}", "remove one of the two files")
            seen[row["name"]] = place
            service = schema.Service(row["name"], self._uri(row["namespace"], place), place,
                                     row.get("doc", ""))
            action = self._uri(row["action"], place)
            for index, entry in enumerate(row["operations"]):
                service.operations.append(
                    self._operation(entry, action, source.place("", "operations", index)))
            self.model.services.append(service)

    def _operation(self, row, action, place):
        check_fields(row, place, "an operation", [("name", str)], [("message", str), ("ending", str)])
        self._require_name(row["name"], place)
        stem = row.get("message", row["name"])
        if stem not in self.messages:
            raise CatalogueError(place, f"the operation '{row['name']}' has no message '{stem}'",
                                 "correct the stem, or add the message to the catalogue")
        request, reply = self.messages[stem]
        return schema.Operation(row["name"], request, reply, action + row.get("ending", ""), place)
