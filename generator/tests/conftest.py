import sys
from pathlib import Path

import pytest

GENERATOR = Path(__file__).resolve().parent.parent
CATALOGUE = GENERATOR.parent / "catalogue"
sys.path.insert(0, str(GENERATOR))
sys.dont_write_bytecode = True

from model.reading import read_catalogue  # noqa: E402

# The smallest catalogue: what a refused row is added to.
FILES = {
    "namespaces.toml": '[developer]\nauthority = "http://dev"\npaths = ["/schemas/", "/vrok/"]\n',
    "parameters.toml": "",
    "arrays.toml": "",
    "properties.toml": "",
    "classes/c.toml": '[base]\nmembers = [\n    { name = "name", type = "string" },\n]\n',
    "enums/e.toml": '[kindEnum]\nvalues = ["a", "b"]\n',
    "messages/m.toml": "[find]\nrequest = []\nreply = []\n",
    "services/s.toml": 'name = "s"\nnamespace = "/schemas/s"\naction = "/schemas/s#"\noperations = [\n'
                       '    { name = "find" },\n]\n',
}


@pytest.fixture
def catalogue(tmp_path):
    """Reads the smallest catalogue with some files replaced, or lengthened with {"file": "+text"}."""

    def read(changes):
        for name, text in {**FILES, **changes}.items():
            path = tmp_path / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(FILES[name] + text[1:] if text.startswith("+") else text)
        return read_catalogue(tmp_path)

    return read


@pytest.fixture(scope="session")
def golden():
    return read_catalogue(GENERATOR / "golden" / "catalogue")


@pytest.fixture(scope="session")
def real():
    return read_catalogue(CATALOGUE)
