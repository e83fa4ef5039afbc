"""Calls from the command line, answered by a peer with replies written by hand."""

import json

import pytest
from conftest import DELETED, ENVELOPE, mrl

FAULT = "<s:Fault><faultcode>s:Client</faultcode><faultstring>Not today.</faultstring></s:Fault>"


def call(url, *arguments, **options):
    return mrl("call", "contentManagerService", "delete", "--url", url, *arguments, **options)


@pytest.mark.parametrize("reply, code, told", [
    ((200, "text/xml", DELETED), 0, ""),
    ((500, "text/xml", ENVELOPE % FAULT), 3, "s:Client: Not today."),
    ((200, "text/xml", "<nothing"), 5, "mrl: "),
    ((200, "text/xml", DELETED.replace("xs:int", "bus:report")), 5, "mrl: "),
    ((404, "text/html", "<html>"), 5, "mrl: "),
])
def test_each_outcome_has_a_code_of_its_own(peer, reply, code, told):
    peer.reply = reply
    result = call(peer.url, "-d", "-", "--passport", "p-1",
                  input='{"objects": [{"@type": "folder", "searchPath": "/a"}]}')
    assert (result.returncode, told in result.stderr) == (code, True)
    assert result.stdout == ('{\n  "result": 3\n}\n' if code == 0 else "")
    assert '<bus:id xsi:type="xs:string">p-1</bus:id>' in peer.request
    assert '<bus:value xsi:type="xs:string">/a</bus:value>' in peer.request


def test_a_peer_that_is_not_there_is_a_failure_of_the_exchange():
    assert call("http://127.0.0.1:1/").returncode == 4
    assert call("ftp://127.0.0.1/").returncode == 1  # which nobody was asked for


def test_both_envelopes_are_shown(peer):
    peer.reply = (200, "text/xml", DELETED)
    result = call(peer.url, "-v", "--time-limit", "20", "--retries", "1")
    assert peer.request in result.stderr
    assert "deleteResponse" in result.stderr


@pytest.mark.parametrize("arguments", [("-d", '{"object": []}'), ("-d", "@/no/such/file"), ("--header", '{"ZORR": {}}'),
                                       ("--request", "copy_1_Request"), ("-d", "{"), ("--save", "/dev/null")])
def test_what_is_wrong_before_anything_is_sent_has_the_code_1(peer, arguments):
    peer.request = None
    result = call(peer.url, *arguments)
    assert (result.returncode, result.stdout, peer.request) == (1, "", None)
    assert result.stderr.startswith("mrl: ")


def test_the_skeleton_is_a_request():
    skeleton = json.loads(call("", "--template").stdout)
    assert skeleton["options"] == {"faultIfObjectReferenced": True, "force": True, "recursive": True}
