"""`mrl keys`: what it makes, says, and never shows."""
import re

from conftest import mrl


def keys(tmp_path, *arguments):
    return mrl("keys", *arguments, variables={"MRL_KEY_STORE": str(tmp_path / "store" / "mrl.keys")})


def test_a_store_is_made_listed_and_rotated_without_showing_a_key(tmp_path):
    results = [keys(tmp_path, action) for action in ("init", "rotate", "list")]
    assert [result.returncode for result in results] == [0, 0, 0]
    path, *lines = results[-1].stdout.splitlines()
    assert path == str(tmp_path / "store" / "mrl.keys")
    assert [re.sub("^[0-9a-f]{16}  [0-9TZ:-]{20}  ", "", line) for line in lines] == ["reads", "writes and reads"]
    secrets = re.findall("[0-9a-f]{64}", (tmp_path / "store" / "mrl.keys").read_text())
    assert len(secrets) == 3 and not any(s in r.stdout + r.stderr for s in secrets for r in results)
    again = keys(tmp_path, "init")
    assert again.returncode == 1 and "is there already" in again.stderr


def test_a_broken_store_is_told_by_whoever_needs_it(tmp_path):
    keys(tmp_path, "init")
    with (tmp_path / "store" / "mrl.keys").open("a") as store:
        store.write("x\n")
    told = f"the key store {store.name} is damaged: line 4: expected nothing behind the sum; restore it from a backup"
    call = ("call", "contentManagerService", "delete", "--trusted", "yes", "--url", "http://127.0.0.1:1/")
    for arguments in (("keys", "list"), ("keys", "rotate"), call):
        result = mrl(*arguments, variables={"MRL_KEY_STORE": store.name})
        assert (result.returncode, told in result.stderr) == (1, True), result


def test_a_missing_store_is_told_with_the_remedy(tmp_path):
    for action in ("list", "rotate"):
        result = keys(tmp_path, action)
        assert result.returncode == 1 and "`mrl keys init` makes" in result.stderr, result.stderr
