"""Catalogue files with their places, so that every complaint names a file and a row."""

import re
import tomllib
from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Place:
    """A row of the catalogue."""

    file: str
    line: int

    def __str__(self):
        return f"{self.file}:{self.line}"


class CatalogueError(Exception):
    """The catalogue cannot be rendered: where, why, and what to do about it."""

    def __init__(self, place, problem, remedy):
        super().__init__(f"{place}: {problem}\n  remedy: {remedy}")
        self.place = place
        self.problem = problem
        self.remedy = remedy


_TABLE = re.compile(r"\[([^\[\]]+)\]\s*(#.*)?$")
_KEY = re.compile(r"(\"[^\"]*\"|[\w-]+)\s*=")
_LINE_OF_TOML_ERROR = re.compile(r"at line (\d+)")


class SourceFile:
    """One TOML file. tomllib keeps no line numbers; since the catalogue has one row a line, the
    lines of tables, keys and rows are found again by a plain scan."""

    def __init__(self, path, root):
        self.name = Path(path).relative_to(root).as_posix()
        text = Path(path).read_text(encoding="utf-8")
        try:
            self.data = tomllib.loads(text)
        except tomllib.TOMLDecodeError as error:
            found = _LINE_OF_TOML_ERROR.search(str(error))
            line = int(found.group(1)) if found else text.count("\n") + 1
            raise CatalogueError(
                Place(self.name, line), f"this is not TOML: {error}",
                "a name may stand once in a file, texts stand in double quotes, rows end with a comma",
            ) from error
        self._tables = {}
        self._keys = {}
        self._rows = {}
        self._scan(text)

    def _scan(self, text):
        table, key = "", ""
        for number, line in enumerate((line.strip() for line in text.splitlines()), start=1):
            if found := _TABLE.match(line):
                table, key = found.group(1).strip('"'), ""
                self._tables[table] = number
            elif found := _KEY.match(line):
                key = found.group(1).strip('"')
                self._keys[table, key] = number
            elif line.startswith(("{", '"')):
                self._rows.setdefault((table, key), []).append(number)

    def place(self, table="", key=None, row=None):
        """The place of a table, of a key in it, or of the row-th row of a list behind the key."""
        line = self._tables.get(table, 1)
        if key is not None:
            line = self._keys.get((table, key), line)
        if row is not None:
            rows = self._rows.get((table, key), [])
            line = rows[row] if row < len(rows) else line
        return Place(self.name, line)


_TYPE_NAMES = {str: "a text", bool: "true or false", int: "a whole number", list: "a list", dict: "a table"}


def check_fields(data, place, what, required=(), optional=()):
    """Refuses a row with a key it may not have, without one it must have, or with a value of
    another type. `required` and `optional` are (key, type) pairs; values are never coerced."""
    known = dict([*required, *optional])
    if not isinstance(data, dict):
        raise CatalogueError(place, f"{what} is not a table", f"write it with the keys {_listed(known)}")
    for key, value in data.items():
        if key not in known:
            raise CatalogueError(place, f"{what} has the unknown key '{key}'",
                                 f"remove it; the keys are {_listed(known)}")
        if type(value) is not known[key]:
            raise CatalogueError(place, f"'{key}' of {what} is {value!r}, not {_TYPE_NAMES[known[key]]}",
                                 f"give {_TYPE_NAMES[known[key]]}; values are taken as they stand")
    for key, _ in required:
        if key not in data:
            raise CatalogueError(place, f"{what} has no '{key}'", f"add the key '{key}'")


def _listed(keys):
    return ", ".join(f"'{key}'" for key in keys)
