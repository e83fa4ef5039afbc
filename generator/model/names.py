"""From schema names to numbers and C++ names."""

import re
import zlib

_KEYWORDS = frozenset("""
    alignas alignof and and_eq asm auto bitand bitor bool break case catch char char8_t char16_t char32_t
    class compl concept const consteval constexpr constinit const_cast continue co_await co_return co_yield
    decltype default delete do double dynamic_cast else enum explicit export extern false float for friend
    goto if inline int long mutable namespace new noexcept not not_eq nullptr operator or or_eq private
    protected public register reinterpret_cast requires return short signed sizeof static static_assert
    static_cast struct switch template this thread_local throw true try typedef typeid typename union
    unsigned using virtual void volatile wchar_t while xor xor_eq
""".split())

_NAME = re.compile(r"[A-Za-z_][A-Za-z0-9_]*")


def crc32(text):
    """The number of a name: the standard CRC-32 of its bytes."""
    return zlib.crc32(text.encode("utf-8"))


def is_name(text):
    """Whether a schema name can become part of C++ names."""
    return _NAME.fullmatch(text) is not None


def capital(name):
    return name[:1].upper() + name[1:]


def class_name(schema_name):
    return "MRL" + capital(schema_name)


def accessor(member_name):
    """The part behind get and set; the one text of a text class has an empty name."""
    return capital(member_name) or "Value"


def field(member_name):
    """The name of a field of private data."""
    name = member_name or "value"
    return name + "_" if name in _KEYWORDS else name


def enumerator(value):
    """'not_encrypted' -> 'eNot_encrypted'; whatever cannot stand in an identifier becomes '_'."""
    return "e" + capital(re.sub(r"[^A-Za-z0-9_]", "_", value))
