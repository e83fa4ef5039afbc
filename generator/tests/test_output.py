"""The files: as checked in for the kitchen-sink catalogue, the same each time, touched only when changed."""

import pytest
from conftest import GENERATOR
from generate import main
from render import file_names, render

CATALOGUE = GENERATOR / "golden" / "catalogue"
EXPECTED = GENERATOR / "golden" / "expected"


def test_the_kitchen_sink_is_rendered_as_checked_in(golden):
    files = dict(render(golden))
    assert sorted(files) == sorted(p.relative_to(EXPECTED).as_posix() for p in EXPECTED.rglob("*") if p.is_file())
    for name, text in files.items():
        assert text.splitlines() == (EXPECTED / name).read_text().splitlines(), name


def test_the_build_is_told_every_file(golden):
    assert file_names(golden) == [name for name, _ in render(golden)]


def test_the_real_catalogue_is_rendered_alike_each_time(real):
    assert list(render(real)) == list(render(real))


def test_no_line_of_the_real_output_ends_in_a_blank(real):
    assert not [name for name, text in render(real) if " \n" in text or not text.endswith("\n")]


def test_a_second_run_touches_nothing_and_removes_what_is_gone(tmp_path, capsys):
    assert main([str(CATALOGUE), str(tmp_path)]) == 0
    stale = tmp_path / "Toolkit" / "MRLGone.h"
    stale.write_text("// Generated from an earlier catalogue.\n")
    before = {path: path.stat().st_mtime_ns for path in tmp_path.rglob("*") if path != stale}
    assert main([str(CATALOGUE), str(tmp_path)]) == 0
    assert "0 changed" in capsys.readouterr().out.splitlines()[-1]
    assert {path: path.stat().st_mtime_ns for path in tmp_path.rglob("*.*")} == {
        path: time for path, time in before.items() if path.is_file()}


@pytest.mark.parametrize("part, place", [("library", "Toolkit/MRLBaseClass.h"), ("reference", "README.md")])
def test_a_folder_with_files_of_others_is_left_alone(tmp_path, capsys, part, place):
    own = tmp_path / place
    own.parent.mkdir(exist_ok=True)
    own.write_text("mine\n")
    assert main([str(CATALOGUE), str(tmp_path), "--part", part]) == 1
    assert f"{own}: nobody generated this file" in capsys.readouterr().err
    assert [path for path in tmp_path.rglob("*") if path.is_file()] == [own] and own.read_text() == "mine\n"


def test_a_bad_catalogue_ends_the_run_with_its_complaint(tmp_path, capsys):
    assert main([str(tmp_path), "--list"]) == 1
    assert "namespaces.toml:1: the file is missing" in capsys.readouterr().err
