"""Calls from the command line, answered by a peer with replies written by hand."""

import http.server
import json
import os
import subprocess
import threading

import pytest

ENVELOPE = """<?xml version="1.0"?>
<s:Envelope xmlns:s="http://schemas.xmlsoap.org/soap/envelope/" xmlns:bus="http://developer.vantor.example/schemas/tavel/3/"
 xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xs="http://www.w3.org/2001/XMLSchema"><s:Body>%s</s:Body></s:Envelope>"""
DELETED = ('<r:deleteResponse xmlns:r="http://developer.vantor.example/schemas/contentManagerService/1">'
           '<bus:result xsi:type="xs:int">3</bus:result></r:deleteResponse>')
FAULT = "<s:Fault><faultcode>s:Client</faultcode><faultstring>Not today.</faultstring></s:Fault>"


class Peer(http.server.BaseHTTPRequestHandler):
    def do_POST(self):
        self.server.request = self.rfile.read(int(self.headers["Content-Length"])).decode()
        status, kind, body = self.server.reply
        self.send_response(status)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body.encode())

    def log_message(self, *arguments):
        pass


@pytest.fixture(name="peer")
def fixture_peer():
    with http.server.HTTPServer(("127.0.0.1", 0), Peer) as server:
        threading.Thread(target=server.serve_forever, daemon=True).start()
        yield server
        server.shutdown()


def call(url, *arguments, **options):
    return subprocess.run([os.environ["MRL"], "call", "contentManagerService", "delete", "--url", url, *arguments],
                          capture_output=True, text=True, check=False, **options)


@pytest.mark.parametrize("reply, code, told", [
    ((200, "text/xml", ENVELOPE % DELETED), 0, ""),
    ((500, "text/xml", ENVELOPE % FAULT), 3, "s:Client: Not today."),
    ((200, "text/xml", "<nothing"), 5, "mrl: "),
    ((200, "text/xml", ENVELOPE % DELETED.replace("xs:int", "bus:report")), 5, "mrl: "),
    ((404, "text/html", "<html>"), 5, "mrl: "),
])
def test_each_outcome_has_a_code_of_its_own(peer, reply, code, told):
    peer.reply = reply
    result = call(f"http://127.0.0.1:{peer.server_port}/", "-d", "-", "--passport", "p-1",
                  input='{"objects": [{"@type": "folder", "searchPath": "/a"}]}')
    assert (result.returncode, told in result.stderr) == (code, True)
    assert result.stdout == ('{\n  "result": 3\n}\n' if code == 0 else "")
    assert '<bus:id xsi:type="xs:string">p-1</bus:id>' in peer.request
    assert '<bus:value xsi:type="xs:string">/a</bus:value>' in peer.request


def test_a_peer_that_is_not_there_is_a_failure_of_the_exchange():
    assert call("http://127.0.0.1:1/").returncode == 4


def test_both_envelopes_are_shown(peer):
    peer.reply = (200, "text/xml", ENVELOPE % DELETED)
    result = call(f"http://127.0.0.1:{peer.server_port}/", "-v", "--time-limit", "20", "--retries", "1")
    assert peer.request in result.stderr
    assert "deleteResponse" in result.stderr


@pytest.mark.parametrize("arguments", [("-d", '{"object": []}'), ("-d", "@/no/such/file"), ("--header", '{"ZORR": {}}'),
                                       ("--request", "copy_1_Request"), ("-d", "{")])
def test_what_is_wrong_before_anything_is_sent_has_the_code_1(peer, arguments):
    result = call(f"http://127.0.0.1:{peer.server_port}/", *arguments)
    assert (result.returncode, result.stdout, hasattr(peer, "request")) == (1, "", False)
    assert result.stderr.startswith("mrl: ")


def test_the_skeleton_is_a_request():
    skeleton = json.loads(call("", "--template").stdout)
    assert skeleton["options"] == {"faultIfObjectReferenced": True, "force": True, "recursive": True}
