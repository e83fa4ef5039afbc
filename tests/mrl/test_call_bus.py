"""Calls from the command line against the embedded bus: attachments, logons, encrypted requests."""

import json
import os
import pathlib
import re
import subprocess
import urllib.request

import pytest


ANONYMOUS_LOGON = pathlib.Path(__file__).parents[1] / "bus" / "golden" / "anonymous_logon.xml"


class Bus:
    def __init__(self, url, environment):
        self.url = url
        self.environment = environment

    def __call__(self, service, operation, request, *arguments, **environment):
        return subprocess.run([os.environ["MRL"], "call", service, operation, "--url", self.url,
                               "-d", json.dumps(request), *arguments],
                              capture_output=True, text=True, check=False, env=self.environment | environment)


@pytest.fixture(name="bus", scope="module")
def fixture_bus(tmp_path_factory):
    environment = os.environ | {"MRL_KEY_STORE": str(tmp_path_factory.mktemp("keys") / "new" / "mrl.keys")}
    with subprocess.Popen([os.environ["MRL_BUS"], "--port", "0"], stdout=subprocess.PIPE, env=environment,
                          text=True) as process:
        yield Bus(process.stdout.readline().split()[-1], environment)
        process.terminate()
    assert process.returncode == 0


def answer(result):
    assert (result.returncode, result.stderr) == (0, "")
    return json.loads(result.stdout)


@pytest.mark.parametrize("more, content", [((), b"\0\xff PDF\r\n" * 9), (("--compress",), b"x" * 300000), ((), b"")])
def test_a_document_goes_out_as_an_attachment_and_comes_back_as_one(bus, tmp_path, more, content):
    (tmp_path / "document").write_bytes(content)
    name = tmp_path.name
    answer(bus("contentManagerService", "add",
               {"parentPath": "/content",
                "objects": [{"@type": "documentContent", "defaultName": name, "data": {"@cid": "it"}}]},
               "--attach", f"it={tmp_path / 'document'};application/pdf", *more))
    for encoding in ("MIME", "MIMECompressed"):
        reply = answer(bus("contentManagerService", "query",
                           {"searchPath": f"/content/documentContent[@name='{name}']", "properties": ["data"],
                            "options": {"dataEncoding": encoding}}, "--save", str(tmp_path / encoding)))
        with open(reply["result"][0]["data"]["@file"], "rb") as saved:
            assert saved.read() == content


@pytest.mark.parametrize("arguments, complaint", [
    ((), "give its file with --attach"),
    (("--attach", "it=/no/such/file"), "'/no/such/file' cannot be read"),
    (("--attach", "other=/dev/null"), "refers to the attachment 'it'"),
    (("--attach", "it=/dev/null", "--attach", "it=/dev/null"), "given twice"),
    (("--attach", "it"), "not of the form ID=FILE"),
])
def test_attachments_and_references_have_to_match(bus, arguments, complaint):
    result = bus("reportService", "getMapPreview", {"id": {"@cid": "it"}}, *arguments)
    assert (result.returncode, complaint in result.stderr) == (1, True)


def test_a_denied_request_is_sent_again_encrypted_where_that_was_asked_for(bus, tmp_path):
    logon = urllib.request.Request(bus.url, ANONYMOUS_LOGON.read_bytes(), {"Content-Type": "text/xml"})
    with urllib.request.urlopen(logon) as reply:
        passport = re.search("<bus:id [^>]*>([^<]*)<", reply.read().decode())[1]

    def add(name, *arguments, **environment):
        return bus("contentManagerService", "add",
                   {"parentPath": "/content", "objects": [{"@type": "folder", "defaultName": name}]},
                   "--passport", passport, *arguments, **environment)

    denied = add("In clear")
    assert (denied.returncode, "cmNoPermission" in denied.stderr) == (3, True)
    answer(add("On denial", "--trusted", "on-denial"))
    answer(add("Encrypted", "--trusted", "yes"))
    stranger = add("With other keys", "--trusted", "yes", MRL_KEY_STORE=str(tmp_path / "new" / "mrl.keys"))
    assert (stranger.returncode, "busNotTrusted" in stranger.stderr) == (3, True)
