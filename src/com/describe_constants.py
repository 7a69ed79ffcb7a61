"""Adds the help texts of enumeration constants to a type library, which the compiler of its definition cannot.

describe_constants.py IDL LIBRARY: a text stands in the definition as HELP("text") before its constant. The library is
of the format MSFT: offsets in the file lead to segments and to each type's members, and in a segment to names and texts.
"""
import re
import struct
import sys

TYPES_AT = 0x20
SEGMENTS_AFTER = 0x54  # the offsets of the types stand between
SEGMENT_SIZE, TYPE_SIZE = 0x10, 0x64
TYPES, NAMES, TEXTS, SEGMENTS = 0, 7, 8, 15  # the types' own segment comes first
MEMBERS, ELEMENTS = 0x04, 0x18  # of a type
PLAIN, DESCRIBED = 0x14, 0x1C  # the sizes of a constant's record
NAME_TEXT = 0x0C


class Library:
    def __init__(self, data):
        self.data = bytearray(data)
        if self.data[:4] != b"MSFT":
            sys.exit("this is no type library of the format MSFT")
        self.segments = SEGMENTS_AFTER + 4 * self.number(TYPES_AT)

    def number(self, at):
        return struct.unpack_from("<i", self.data, at)[0]

    def add(self, at, amount):
        struct.pack_into("<i", self.data, at, self.number(at) + amount)

    def segment(self, which):
        return self.number(self.segments + which * SEGMENT_SIZE)

    def types(self):
        return [self.segment(TYPES) + i * TYPE_SIZE for i in range(self.number(TYPES_AT))]

    def insert(self, at, added):
        self.data[at:at] = added
        leading = [self.segments + i * SEGMENT_SIZE for i in range(SEGMENTS)] + [t + MEMBERS for t in self.types()]
        for place in leading:
            if self.number(place) >= at:
                self.add(place, len(added))

    def add_text(self, text):
        """Gives its offset in the segment of texts."""
        length_at = self.segments + TEXTS * SEGMENT_SIZE + 4
        offset = self.number(length_at)
        entry = struct.pack("<h", len(text)) + text.encode("ascii")
        entry += b"W" * max(8 - len(entry), -len(entry) % 4)
        self.insert(self.segment(TEXTS) + offset, entry)
        self.add(length_at, len(entry))
        return offset

    def name(self, offset):
        at = self.segment(NAMES) + offset
        length = self.data[at + 8]
        return self.data[at + NAME_TEXT : at + NAME_TEXT + length].decode("ascii")

    def describe(self, enumeration, texts):
        """Of one type; what was described is taken out of the texts."""
        count = self.number(enumeration + ELEMENTS) >> 16

        def lists():  # IDs, offsets of the names and of the records, behind the records
            at = self.number(enumeration + MEMBERS)
            return at + 4 + self.number(at)

        for i in range(count):
            text = texts.pop(self.name(self.number(lists() + 4 * (count + i))), None)
            if text is None:
                continue
            text_at = self.add_text(text)
            members = self.number(enumeration + MEMBERS)
            record = members + 4 + self.number(lists() + 4 * (2 * count + i))
            if self.number(record) & 0xFFFF != PLAIN:
                sys.exit("a constant has more to it than was foreseen")
            self.insert(record + PLAIN, struct.pack("<ii", 0, text_at))  # no help context, and the text
            self.add(record, DESCRIBED - PLAIN)
            self.add(members, DESCRIBED - PLAIN)
            for later in range(i + 1, count):
                self.add(lists() + 4 * (2 * count + later), DESCRIBED - PLAIN)


def main(definition, path):
    with open(definition, encoding="utf-8") as idl:
        texts = {name: text for text, name in re.findall(r'HELP\("([^"]*)"\) (\w+)', idl.read())}
    with open(path, "rb") as file:
        library = Library(file.read())
    for i in range(library.number(TYPES_AT)):
        at = library.types()[i]
        if library.number(at) & 0xF == 0:  # an enumeration
            library.describe(at, texts)
    if texts:
        sys.exit("no such constants: " + ", ".join(texts))
    with open(path, "wb") as file:
        file.write(library.data)


main(*sys.argv[1:])
