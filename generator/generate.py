#!/usr/bin/env python3
"""Renders the generated families of the toolkit from the catalogue.

    generate.py CATALOGUE OUTPUT                    writes the files whose text has changed
    generate.py CATALOGUE --list                    prints the names of all files
    generate.py CATALOGUE --figures                 prints how many of everything there are
    generate.py CATALOGUE OUTPUT --part tools       what the tools know of the catalogue
    generate.py CATALOGUE OUTPUT --part reference   the reference pages
"""

import argparse
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # the source tree stays as it is

from model.figures import figures  # noqa: E402
from model.reading import read_catalogue  # noqa: E402
from model.source import CatalogueError  # noqa: E402
from reference import render_reference  # noqa: E402
from render import file_names, render, write_if_changed  # noqa: E402
from tools import render_tools  # noqa: E402

PARTS = {  # what renders each: (model, catalogue) -> (path, text) for every file
    "library": lambda model, catalogue: render(model),
    "tools": render_tools,
    "reference": lambda model, catalogue: render_reference(model),
}


def main(arguments=None):
    parser = argparse.ArgumentParser(description="Renders the generated families from the catalogue.")
    parser.add_argument("catalogue", type=Path, help="the folder that describes everything")
    parser.add_argument("output", type=Path, nargs="?",
                        help="a folder of its own: what an earlier catalogue left there is removed")
    parser.add_argument("--list", action="store_true", help="print the names of the files")
    parser.add_argument("--part", choices=PARTS, default="library", help="what to render (default: library)")
    parser.add_argument("--figures", action="store_true", help="print how many of everything there are")
    options = parser.parse_args(arguments)
    if [options.list, options.figures, options.output is not None].count(True) != 1:
        parser.error("give an output folder, --list or --figures")
    try:
        model = read_catalogue(options.catalogue)
    except CatalogueError as error:
        print(f"{options.catalogue}/{error}", file=sys.stderr)
        return 1
    if options.list:
        print("\n".join(file_names(model)))
        return 0
    if options.figures:
        print("\n".join(f"{name}: {value}" for name, value in figures(model).items()))
        return 0
    try:
        return _write(PARTS[options.part](model, options.catalogue), options.output)
    except OSError as error:
        print(f"generate.py: {error}", file=sys.stderr)
        return 1


def _write(files, output):
    files = {output / path: text for path, text in files}
    there = {path for folder in {path.parent for path in files} if folder.is_dir()
             for path in folder.iterdir() if path.is_file() and path.name != "stamp"}
    strangers = sorted(path for path in there if not _is_generated(path, output))
    if strangers:  # a folder with sources, named by mistake
        raise OSError(f"{strangers[0]}: nobody generated this file\n  remedy: name an output folder of its own")
    changed = sum(write_if_changed(path, text) for path, text in files.items())
    for stale in there - files.keys():  # what an earlier catalogue had
        stale.unlink()
    print(f"{len(files)} generated files, {changed} changed")
    return 0


def _is_generated(path, output):
    """Sources say so in their first line, pages in the index of all."""
    marked = output / "index.md" if path.suffix == ".md" else path
    if not marked.is_file():
        return False
    head = marked.read_text(encoding="utf-8", errors="replace")[:1000]
    return head.startswith("// Generated from ") or "\nRendered from the catalogue." in head


if __name__ == "__main__":
    sys.exit(main())
