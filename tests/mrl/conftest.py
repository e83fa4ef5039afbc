"""What the tests of the command line share: a peer with replies written by hand, and the way to run `mrl`."""

import http.server
import os
import subprocess
import threading

import pytest

ENVELOPE = """<?xml version="1.0"?>
<s:Envelope xmlns:s="http://schemas.xmlsoap.org/soap/envelope/" xmlns:bus="http://developer.vantor.example/schemas/tavel/3/"
 xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xs="http://www.w3.org/2001/XMLSchema"><s:Body>%s</s:Body></s:Envelope>"""
DELETED = ENVELOPE % ('<r:deleteResponse xmlns:r="http://developer.vantor.example/schemas/contentManagerService/1">'
                      '<bus:result xsi:type="xs:int">3</bus:result></r:deleteResponse>')


class Peer(http.server.BaseHTTPRequestHandler):
    """Gives the server's reply, (status, content type, body), and leaves the request with it."""

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


@pytest.fixture(name="peer", scope="session")
def fixture_peer():
    with http.server.HTTPServer(("127.0.0.1", 0), Peer) as server:
        server.url = f"http://127.0.0.1:{server.server_port}/"
        threading.Thread(target=server.serve_forever, daemon=True).start()
        yield server
        server.shutdown()


def mrl(*arguments, variables=None, **options):
    """Runs the tool with further environment variables."""
    return subprocess.run([os.environ["MRL"], *map(str, arguments)], capture_output=True, text=True, check=False,
                          env=os.environ | (variables or {}), **options)
