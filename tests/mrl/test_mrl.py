"""The command line tool as its users meet it."""

import os
import subprocess

import pytest
from conftest import mrl


def answer(*arguments):
    result = mrl(*arguments)
    assert (result.returncode, result.stderr) == (0, "")
    return result.stdout


def test_services_are_listed_with_the_number_of_their_operations():
    lines = answer("list").splitlines()
    assert len(lines) == 27
    assert any(line.startswith("contentManagerService (34) ") for line in lines)


def test_operations_are_listed_with_their_parameters():
    assert ("copyRename (objects: baseClassArray, targetPath: searchPathSingleObject, newNames: stringArray, "
            "options: copyOptions)\n    -> (result: baseClassArray)\n") in answer("list", "contentManagerService")


@pytest.mark.parametrize("name, parts", [
    ("agentService", ["service agentService", "/schemas/agentService/1", "deleteHotList (objectPath:"]),
    ("contentManagerService.query", ["operation query", "MRLContentQuery_Request", "sortBy: sortArray",
                                     "contentManagerService  http://www.vantor.example/"]),
    ("contentQuery", ["message contentQuery_Request", "message contentQuery_Reply",
                      "of contentManagerService.query", "result: baseClassArray"]),
    ("account", ["class account", "MRLAccount in Toolkit/MRLAccount.h", "derived from: baseClass > uiClass",
                 "members of baseClass:", "givenName: stringProp"]),
    ("MRLBaseClass", ["abstract class baseClass", "base of: ", "uiClass"]),
    ("guid", ["class guid", "(the text): string"]),
    ("severityEnum", ["enumeration severityEnum", "    error\n"]),
    ("systemOptionEnum", ["enumeration of URIs systemOptionEnum", "#"]),
    ("policyArray", ["array policyArray", "elements: policy"]),
    ("stringProp", ["property stringProp", "derived from: baseProp", "value: string"]),
])
def test_a_name_is_described(name, parts):
    text = answer("describe", name)
    assert not [part for part in parts if part not in text]


def test_everything_of_a_name_is_described():
    text = answer("describe", "validate")
    assert text.count("\noperation validate") + text.startswith("operation validate") == 5


@pytest.mark.parametrize("arguments, complaint", [
    (("describe", "contnetQuery"), "'contnetQuery'; did you mean contentQuery"),
    (("list", "contentManager"), "no service 'contentManager'"),
    (("describe", "zzzzzzzzz"), "'zzzzzzzzz'\n"),
    (("describe", "contentManagerService.qurey"), "operation of contentManagerService 'qurey'; did you mean query?\n"),
])
def test_a_name_that_nothing_has_is_answered_with_the_nearest(arguments, complaint):
    result = mrl(*arguments)
    assert (result.returncode, result.stdout) == (1, "")
    assert complaint in result.stderr


@pytest.mark.parametrize("arguments", [(), ("catalogue",), ("describe",), ("lst",), ("list", "a", "b"), ("--no",)])
def test_wrong_usage_has_a_code_of_its_own(arguments):
    result = mrl(*arguments)
    assert (result.returncode, result.stdout) == (2, "")
    assert "--help" in result.stderr


def test_a_full_disk_is_told():
    with open("/dev/full", "w", encoding="utf-8") as full:
        result = subprocess.run([os.environ["MRL"], "list"], stdout=full, stderr=subprocess.PIPE, text=True, check=False)
    assert result.returncode == 1 and "the output is not complete" in result.stderr


def test_who_reads_no_further_hears_no_complaint():
    reader, writer = os.pipe()
    os.close(reader)
    result = subprocess.run([os.environ["MRL"], "list"], stdout=writer, stderr=subprocess.PIPE, text=True, check=False)
    os.close(writer)
    assert (result.returncode, result.stderr) == (141, "")


@pytest.mark.parametrize("arguments", [("--help",), ("list", "--help"), ("describe", "--help"), ("catalogue", "--help")])
def test_help_tells_the_exit_codes(arguments):
    assert "Exit codes: 0" in answer(*arguments)


def test_the_library_holds_what_it_should():
    result = mrl("catalogue", "--counts")
    figures = dict(line.split(": ") for line in result.stdout.splitlines())
    assert (figures["types"], figures["messages"], figures["operationEntries"]) == ("933", "478", "437")
    assert (result.returncode, result.stderr) == (0, "")
