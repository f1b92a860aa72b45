"""Turns FBX from text to binary."""

import struct

MAGIC = b"Kaydara FBX Binary  \0\x1a\0"
VERSION = 7400
# What ends a list of nodes.
END = b"\0" * 13

ARRAY_CODES = {
    "PolygonVertexIndex": "i",
    "Indexes": "i",
    "KeyAttrFlags": "i",
    "KeyAttrRefCount": "i",
    "KeyTime": "l",
    "KeyValueFloat": "f",
    "KeyAttrDataFloat": "f",
}
SIZES = {"i": "i", "l": "q", "f": "f", "d": "d"}


def binary(text):
    lines = [line.strip() for line in text.splitlines()]
    lines = iter([line for line in lines if line and not line.startswith(";")])
    head = MAGIC + struct.pack("<I", VERSION)
    return head + nodes(lines, len(head))


def nodes(lines, offset):
    """Those up to the end of a block, with what ends their list. The first begins at `offset`."""
    result = b""
    for line in lines:
        if line == "}":
            break
        result += node(line, lines, offset + len(result))
    return result + END


def node(line, lines, offset):
    name, rest = line.split(":", 1)
    values = [value.strip() for value in rest.rstrip("{").split(",") if value.strip()]
    is_block = rest.endswith("{")
    if values and values[0].startswith("*"):
        values, is_block = [array(name, next(lines))], False
        next(lines)
    else:
        code = code_of(name, values, is_block)
        values = [text(value) if value.startswith('"') else number(code, value) for value in values]
    properties = b"".join(values)
    start = offset + 13 + len(name) + len(properties)
    content = nodes(lines, start) if is_block else b""
    sizes = struct.pack("<3IB", start + len(content), len(values), len(properties), len(name))
    return sizes + name.encode() + properties + content


def code_of(name, values, is_block):
    """The kind of number that a node has: objects and times are in 64 bits."""
    kind = values[1] if name == "P" else ""
    if name == "C" or (is_block and values) or kind == '"KTime"':
        return "L"
    return "D" if name == "P" and kind not in ('"int"', '"enum"', '"bool"') else "I"


def number(code, value):
    kind = float if code == "D" else int
    return code.encode() + struct.pack({"L": "<q", "D": "<d", "I": "<i"}[code], kind(value))


def text(quoted):
    """A name says last of what kind it is: "Model::Hips"."""
    kind, _, name = quoted.strip('"').rpartition("::")
    content = f"{name}\0\1{kind}".encode() if "::" in quoted else name.encode()
    return b"S" + struct.pack("<I", len(content)) + content


def array(name, line):
    code = ARRAY_CODES.get(name, "d")
    values = [int(value) if code in "il" else float(value) for value in line[2:].split(",")]
    content = struct.pack(f"<{len(values)}{SIZES[code]}", *values)
    return code.encode() + struct.pack("<3I", len(values), 0, len(content)) + content
