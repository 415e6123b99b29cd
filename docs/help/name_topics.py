#!/usr/bin/env python3
"""name_topics.py HELP.chm: gives the numbers of topics the names that their pages have in the file.

chmcmd names them by where they lay when the file was made, and where nobody finds them. The names stand in "/#STRINGS", which
"/#IVB" points into; a copy with the right names, each where the wrong one stood, goes to the end of the file, uncompressed."""

import pathlib
import struct
import subprocess
import sys
import tempfile

PAGE_LISTING = b"PMGL"
ENTRIES_AT = 0x14


def extract(file, name):
    with tempfile.TemporaryDirectory() as folder:
        target = pathlib.Path(folder) / "part"
        subprocess.run(["chmls", "extract", file, name, target], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        return target.read_bytes()


def renamed(strings, topics):
    result = bytearray(strings)
    for at in range(4, len(topics), 8):
        begin = struct.unpack_from("<I", topics, at + 4)[0]
        end = strings.index(b"\0", begin)
        name = strings[begin:end].rpartition(b"/")[2]
        result[begin:end] = name.ljust(end - begin, b"\0")
    return bytes(result)


def read_number(data, at):
    value = 0
    while True:
        value = value << 7 | data[at] & 0x7F
        at += 1
        if data[at - 1] < 0x80:
            return value, at


def number(value):
    digits = [value & 0x7F]
    while value := value >> 7:
        digits.append(value & 0x7F | 0x80)
    return bytes(reversed(digits))


def entries(chunk):
    at, end = ENTRIES_AT, len(chunk) - struct.unpack_from("<I", chunk, 4)[0]
    while at < end:
        length, at = read_number(chunk, at)
        name, at = chunk[at:at + length], at + length
        place = []
        for _ in range(3):
            value, at = read_number(chunk, at)
            place.append(value)
        yield name, place


def listing(chunk, listed, step):
    """The chunk with these entries; each step'th one is pointed to from its end, so that a reader may search."""
    body, starts = b"", []
    for name, place in listed:
        starts.append(len(body))
        body += number(len(name)) + name + b"".join(number(value) for value in place)
    points = b"".join(struct.pack("<H", start) for start in reversed(starts[step - 1::step])) + struct.pack("<H", len(starts))
    free = len(chunk) - ENTRIES_AT - len(body)
    if free < len(points):
        raise ValueError("no room in the directory")
    return chunk[:4] + struct.pack("<I", free) + chunk[8:ENTRIES_AT] + body + bytes(free - len(points)) + points


def main(file):
    data = bytearray(pathlib.Path(file).read_bytes())
    strings = renamed(extract(file, "/#STRINGS"), extract(file, "/#IVB"))
    sizes, directory, content = (struct.unpack_from("<Q", data, at)[0] for at in (0x38, 0x48, 0x58))
    header, = struct.unpack_from("<I", data, directory + 8)
    size, density = struct.unpack_from("<II", data, directory + 0x10)
    for at in range(directory + header, content, size):
        chunk = bytes(data[at:at + size])
        if not chunk.startswith(PAGE_LISTING):
            continue
        listed = [(name, [0, len(data) - content, len(strings)] if name == b"/#STRINGS" else place)
                  for name, place in entries(chunk)]
        data[at:at + size] = listing(chunk, listed, 1 + (1 << density))
    data += strings
    struct.pack_into("<Q", data, sizes + 8, len(data))
    pathlib.Path(file).write_bytes(data)


if __name__ == "__main__":
    main(sys.argv[1])
