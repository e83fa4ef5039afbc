"""`mrl config` from outside: which file it takes, and its exit codes."""

import pathlib

import pytest
from conftest import mrl

SHIPPED = pathlib.Path(__file__).parents[2] / "resources" / "qzconfig.xml"
FILE = """<qzn:parameters xmlns:qzn="http://developer.vantor.example/schemas/qzconfig/1/">
<qzn:parameter name="%s"><qzn:value>true</qzn:value></qzn:parameter></qzn:parameters>"""


def config(*arguments, **variables):
    return mrl("config", *arguments, variables={"MRL_HOME": "/nonexistent", "MRL_CONFIGURATION": ""} | variables)


@pytest.mark.parametrize("arguments, name, code, told", [
    (("check",), "encryptTemporaryFiles", 0, "0 errors, 0 warnings"),
    (("check",), "temporary", 0, "0 errors, 1 warning\n"),
    (("check", "--strict"), "temporary", 1, "does not know the property"),
    (("check",), '"', 1, ": error: expected"),
    (("show",), "encryptTemporaryFiles", 0, "encryptTemporaryFiles = true"),
    (("show",), '"', 1, ":2:"),
    (("frobnicate",), "temp", 2, ""),
])
def test_the_file_that_the_environment_names_is_taken(tmp_path, arguments, name, code, told):
    file = tmp_path / "configuration.xml"
    file.write_text(FILE % name)
    result = config(*arguments, MRL_CONFIGURATION=str(file))
    assert (result.returncode, told in result.stdout + result.stderr) == (code, True), result


def test_the_file_that_is_shipped_has_no_findings_and_may_be_named():
    assert config("check", SHIPPED).stdout == f"{SHIPPED}: 3 properties, 0 errors, 0 warnings\n"


def test_without_a_name_all_that_would_be_loaded_is_checked(tmp_path):
    folder = tmp_path / "configuration"
    (folder / "keystore").mkdir(parents=True)
    (folder / "keystore" / "mrl.keys").write_text("")
    (folder / "keystore" / "mrl.keys").chmod(0o644)
    (folder / "renqproperties.xml").write_text("<properties>\n<entry></properties>")
    (folder / "mrllogging.json").write_text("{")
    result = config("check", MRL_HOME=str(tmp_path), MRL_KEY_STORE="")
    assert result.returncode == 1
    for place, told in (("keystore/mrl.keys: error: ", "chmod 600"), ("renqproperties.xml:2:", "every default holds"),
                        ("mrllogging.json, line 1", "")):
        assert any(f"{folder}/{place}" in line and told in line for line in result.stdout.splitlines()), result.stdout
    assert config("check", folder / "renqproperties.xml").returncode == 1


def test_a_logging_configuration_is_told_by_its_ending(tmp_path):
    assert config("check", SHIPPED.parent / "mrllogging.json").returncode == 0
    file = tmp_path / "logging.json"
    file.write_text('{\n"sink": {}}')
    result = config("check", file)
    assert (result.returncode, f'{file}, line 2: "sink" is not known' in result.stdout) == (1, True), result


def test_a_missing_file_is_an_error_only_where_it_is_named():
    result = config("show")
    assert result.returncode == 0
    assert result.stdout.startswith("# no file at /nonexistent/configuration/qzconfig.xml (the default place)")
    result = config("check", MRL_CONFIGURATION="/nonexistent/x.xml")
    assert (result.returncode, "/nonexistent/x.xml: error: " in result.stdout) == (1, True)
