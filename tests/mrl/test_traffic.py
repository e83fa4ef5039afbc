"""A recording from the command line: made from calls over a peer, looked into, and answering without the peer."""

import os
import pathlib
import signal
import subprocess
import time

import pytest
from conftest import DELETED, mrl

PASSPORT = "MTAx:0123456789"


@pytest.fixture(name="script", scope="module")
def fixture_script(tmp_path_factory, peer):
    """A script of two programs that deletes what $PATH_1 and /b name, and the recording that it made."""
    place = tmp_path_factory.mktemp("traffic")
    script = place / "script.sh"
    peer.reply = (200, "text/xml", DELETED)
    call = (f"'{os.environ['MRL']}' call contentManagerService delete --url {peer.url} "
            f"--passport {PASSPORT} -d '{{\"objects\": [{{\"@type\": \"folder\", \"searchPath\": \"%s\"}}]}}'\n")
    script.write_text("#!/bin/sh\n" + call % "'${PATH_1:-/a}'" + call % "/b" + "exit ${CODE:-0}\n")
    script.chmod(0o700)
    recorded = mrl("record", "--into", place / "run", "--", script)
    peer.reply = (500, "text/plain", "not asked any more")
    assert (recorded.returncode, recorded.stdout) == (0, '{\n  "result": 3\n}\n' * 2), recorded.stderr
    assert "2 calls recorded" in recorded.stderr
    return script


def test_a_recording_is_exact_private_and_sound(script):
    run = script.parent / "run"
    names = sorted(str(path.relative_to(run)) for path in run.rglob("*.xml"))
    assert names == [f"session-000{n}/contentManagerService.0-contentDelete_{kind}.xml"
                     for n in (1, 2) for kind in ("Reply", "Request")]
    assert (run / names[0]).read_text() == DELETED
    assert [path.stat().st_mode & 0o77 for path in (run, run / "session-0001")] == [0, 0]
    assert mrl("traffic", "verify", run).stdout == "2 calls, 0 problems\n"
    shown = mrl("traffic", "show", run, "session-0002/contentManagerService.0", "--only", "reply").stdout
    assert '<bus:result xsi:type="xs:int">3</bus:result>' in shown
    ambiguous = mrl("traffic", "show", run, "contentManagerService.0")
    assert (ambiguous.returncode, "several sessions" in ambiguous.stderr) == (1, True)


@pytest.mark.parametrize("environment, code, told", [
    ({}, 0, "2 calls answered from the recording, 0 differ"),
    ({"PATH_1": "/other"}, 1, '<bus:value xsi:type="xs:string">/other</bus:value>\nmrl: 2 calls'),
    ({"CODE": "7"}, 7, "0 differ"),
])
def test_the_recording_answers_without_the_peer(script, environment, code, told):
    replayed = mrl("replay", script.parent / "run", "--", script, variables=environment)
    assert replayed.returncode == code
    assert replayed.stdout == '{\n  "result": 3\n}\n' * 2
    assert told in replayed.stderr


def test_a_redacted_recording_tells_no_secret_and_still_answers(script):
    run, masked = script.parent / "run", script.parent / "masked"
    assert mrl("traffic", "redact", run, "--into", masked).returncode == 0
    assert PASSPORT not in "".join(path.read_text() for path in masked.rglob("*.xml"))
    assert mrl("traffic", "diff", run, masked).returncode == 0, "passports may differ"
    assert mrl("traffic", "diff", run, masked, "--strict").returncode == 1
    assert mrl("replay", masked, "--", script).returncode == 0


@pytest.mark.parametrize("arguments, code, told", [
    (["record", "--into", "{place}/none/run", "--", "true"], 1, "No such file or directory"),
    (["record", "--into", "{place}/run", "--", "true"], 1, "is not empty"),
    (["record", "--into", "{place}/quiet", "--", "true"], 1, "nothing was recorded"),
    (["record", "--into", "{place}/quiet", "--", "no-such-program"], 127, "cannot be run"),
    (["replay", "{place}", "--", "true"], 1, "there is no recorded call"),
    (["replay", "{place}/run", "--", "true"], 1, "no call was answered"),
    (["traffic", "list", "{place}/none"], 1, "No such file or directory"),
    (["traffic", "redact", "{place}/run", "--into", "{place}/run"], 1, "is there already"),
    (["traffic", "redact", "{place}/run", "--into", "{place}/no", "--secrets", "{place}"], 1, "Is a directory"),
    (["traffic", "diff", "{place}/run", "{place}/run", "--ignore", "a//b"], 1, "is no rule"),
])
def test_what_cannot_be_done_is_told_with_the_reason(script, arguments, code, told):
    result = mrl(*(argument.format(place=script.parent) for argument in arguments))
    assert (result.returncode, told in result.stderr) == (code, True), result.stderr
    assert not list(pathlib.Path(script.parent).glob("*.partial-*"))


def test_a_program_meets_broken_pipes_as_it_would_by_itself(tmp_path):
    assert mrl("record", "--into", tmp_path / "run", "--", "sh", "-c", "kill -PIPE $$").returncode == 141


def test_who_ends_the_recording_ends_the_program(tmp_path):
    script = "touch started; exec sleep 20"
    with subprocess.Popen([os.environ["MRL"], "record", "--into", "run", "--", "sh", "-c", script], cwd=tmp_path) as run:
        while not (tmp_path / "started").exists():
            time.sleep(0.01)
        run.terminate()
        assert run.wait(10) == 128 + signal.SIGTERM
