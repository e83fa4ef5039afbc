"""The reference pages: every link leads somewhere, and everything is on a page."""

import re

import pytest

from conftest import GENERATOR
from reference import render_reference, slug

EXPECTED = GENERATOR / "golden" / "reference"
LINK = re.compile(r"\]\(([^)]*)\)")


@pytest.fixture(scope="module", params=["golden", "real"])
def pages(request):
    return dict(render_reference(request.getfixturevalue(request.param)))


def anchors(page):
    return {slug(line.lstrip("# ")) for line in page.splitlines() if line.startswith("#")}


def test_every_link_leads_to_a_page_and_a_heading(pages):
    dead = []
    for path, text in pages.items():
        for link in LINK.findall(text):
            target, _, anchor = link.partition("#")
            target = path if not target else (f"{path.rpartition('/')[0]}/{target}" if "/" in path else target)
            target = re.sub(r"[^/]+/\.\./", "", target)
            if target not in pages or (anchor and anchor not in anchors(pages[target])):
                dead.append(f"{path}: {link}")
    assert not dead


def test_every_page_is_reached_from_the_index(pages):
    assert set(LINK.findall(pages["index.md"])) >= set(pages) - {"index.md"}


def test_no_two_headings_of_a_page_share_an_anchor(pages):
    for path, text in pages.items():
        headings = [line for line in text.splitlines() if line.startswith("#")]
        assert len(anchors(text)) == len(headings), path


def test_operations_are_shown_with_parameters_and_action(real):
    page = dict(render_reference(real))["services/contentManagerService.md"]
    section = page.partition("\n## query\n")[2].partition("\n## ")[0]
    assert "`http://www.vantor.example/xmlns/prod/vantor/contentManagerService/202004/`" in section
    assert "| `searchPath` | [searchPathMultipleObject](../types/searchPathMultipleObject.md) |" in section


def test_the_pages_of_the_kitchen_sink_are_as_checked_in(golden):
    pages = dict(render_reference(golden))
    for path in EXPECTED.rglob("*.md"):
        assert pages[path.relative_to(EXPECTED).as_posix()] == path.read_text()
