"""Prints a resolved model as C++."""

import itertools
from pathlib import Path

import jinja2

from model import grouping, symbols
from model.names import crc32


def render(model):
    """(path below the output folder, text) for every generated file."""
    return _files(model, Pages())


def file_names(model):
    """The paths that render() gives, without their texts."""
    return list(_files(model, lambda path, template, **values: path))


def _files(model, page):
    groups = grouping.all_groups(model)
    yield from _type_files(model, groups, page)
    yield from _message_files(model, groups, page)
    yield from _symbol_files(model, page)


def _type_files(model, groups, page):
    yield page("Toolkit/MRLObjectType_gen_.inc", "object_type.inc", types=model.types)
    for entry in itertools.chain(model.classes, model.properties):
        yield page(f"Toolkit/{entry.cpp_name}.h", "class.h", cls=entry)
    for entry in model.enums:
        yield page(f"Toolkit/{entry.cpp_name}.h", "enum.h", enum=entry)
    for entry in model.arrays:
        yield page(f"Toolkit/{entry.cpp_name}.h", "array.h", array=entry)
    for group in groups["class"]:
        yield page(f"Toolkit/{group.name}.h", "private_data.h", group=group)
        yield page(f"Toolkit/{group.name}.cpp", "class.cpp", group=group)
    for template, family in (("support_class.cpp", "support_class"), ("enum.cpp", "enum"),
                             ("array.cpp", "array"), ("support_factory.cpp", "factory")):
        for group in groups[family]:
            yield page(f"Toolkit/{group.name}.cpp", template, group=group)
    yield page("Toolkit/MRLSchemaTypesFactory_gen_.cpp", "schema_factory.cpp",
               rows=sorted(model.types, key=lambda entry: entry.number))


def _message_files(model, groups, page):
    yield page("Toolkit/MRLMessageType_gen_.inc", "message_type.inc",
               messages=sorted(model.messages, key=lambda message: message.name))
    for message in model.messages:
        yield page(f"Toolkit/{message.cpp_name}.h", "message.h", message=message)
    for group in groups["message"]:
        yield page(f"Toolkit/{group.name}.h", "message_data.h", group=group)
        yield page(f"Toolkit/{group.name}.cpp", "message.cpp", group=group)
    for group in groups["support_message"]:
        yield page(f"Toolkit/{group.name}.cpp", "support_message.cpp", group=group)
    yield page("Toolkit/MRLMessageFactory_gen_.cpp", "message_factory.cpp", messages=model.messages)
    for service in model.services:
        yield page(f"Toolkit/{service.cpp_name}.h", "port_type.h", service=service)
    for group in groups["port_type"]:
        yield page(f"Toolkit/{group.name}.cpp", "port_type.cpp", group=group)


def _symbol_files(model, page):
    texts = symbols.symbols(model)
    rows = sorted((crc32(text), index) for index, text in enumerate(texts))
    yield page("I18NRes/zt5omsymbols1_gen_.cpp", "symbols.cpp", texts=texts, rows=rows)


class Pages:
    """Templates by name, and the few filters they use. Called as the families do, gives (path, text)."""

    def __init__(self):
        self.environment = jinja2.Environment(
            loader=jinja2.FileSystemLoader(Path(__file__).parent / "templates"),
            undefined=jinja2.StrictUndefined, trim_blocks=True, lstrip_blocks=True,
            keep_trailing_newline=True, autoescape=False)
        self.environment.filters.update(hex=_hex, quoted=_quoted, comment=_comment, fitted=_fitted)

    def __call__(self, path, template, **values):
        return path, self.environment.get_template(template + ".jinja").render(**values)


def _hex(number):
    return f"0x{number:08X}"


def _quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def _comment(text, indent=0, width=110):
    """Documentation lines that fit the page."""
    lead = " " * indent + "/// "
    lines, line = [], ""
    for word in text.split():
        if line and len(lead) + len(line) + 1 + len(word) > width:
            lines.append(line)
            line = word
        else:
            line = f"{line} {word}".lstrip()
    return "\n".join(lead + text for text in [*lines, line])


def _fitted(line, width=110):
    """A signature, broken behind its commas where it does not fit the page."""
    if len(line) <= width:
        return line
    head, parenthesis, rest = line.partition("(")
    parts = rest.replace(", ", ",\n").split("\n")
    if len(head) + max(map(len, parts)) < width:
        lines, indent = [head + parenthesis + parts.pop(0)], " " * (len(head) + 1)
    else:
        lines, indent = [head + parenthesis], " " * (len(head) - len(head.lstrip()) + 4)
    for part in parts:
        if len(lines[-1]) + len(part) < width and not lines[-1].endswith("("):
            lines[-1] += " " + part
        else:
            lines.append(indent + part)
    return "\n".join(lines)


def write_if_changed(path, text):
    """Keeps the time stamp of a file that says the same, so that nothing is compiled for it."""
    data = text.encode("utf-8")
    if path.is_file() and path.read_bytes() == data:
        return False
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)
    return True
