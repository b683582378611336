#!/usr/bin/env python3
"""Writes the DLL entry names into a type library made by widl.

widl writes the text "#" instead of the name given by a string entry(...)
attribute, so a host that binds the module's functions through the type
library would look for an export named "#". Every function of a module here
is exported under its own name, so this gives each one its own name as its
entry: the names are added to a copy of the string table placed at the end
of the file, the segment directory points to the copy, and each function
record's entry offset points to its name. Nothing else in the file moves.

    typelib_entries.py TYPELIB
"""
import struct
import sys

HEADER_INTS = 21
TYPEINFO_SIZE = 100
SEGMENTS = 15
TYPEINFO_SEGMENT, NAME_SEGMENT, STRING_SEGMENT = 0, 7, 8
TKIND_MODULE = 2
ENTRY_IS_ORDINAL = 0x2000
FUNC_FIXED_SIZE = 24  # the record's fields before its optional ones
ENTRY_FIELD = FUNC_FIXED_SIZE + 8  # after the help context and help string


def read_int(data, offset):
    return struct.unpack_from("<i", data, offset)[0]


def encoded_string(text):
    """A string table entry: 16-bit length, the bytes, padded with "W" to a
    multiple of 4 bytes and to at least 8."""
    raw = struct.pack("<H", len(text)) + text
    size = max(8, (len(raw) + 3) & ~3)
    return raw + b"W" * (size - len(raw))


def segment_directory(data):
    header = struct.unpack_from("<%di" % HEADER_INTS, data, 0)
    if data[:4] != b"MSFT":
        sys.exit("not a type library: %s" % sys.argv[1])
    typeinfo_count, flags = header[8], header[5]
    offset = 4 * HEADER_INTS + (4 if flags & 0x100 else 0) + 4 * typeinfo_count
    return offset, typeinfo_count


def function_names(data, names_at, memoffset, functions, variables):
    """The names of a typeinfo's functions, from the name table."""
    record_bytes = read_int(data, memoffset)
    names = []
    for i in range(functions):
        name_offset = read_int(data, memoffset + record_bytes + 4 * (functions + variables + i + 1))
        length = data[names_at + name_offset + 8]
        names.append(bytes(data[names_at + name_offset + 12:names_at + name_offset + 12 + length]))
    return names


def main():
    path = sys.argv[1]
    data = bytearray(open(path, "rb").read())
    directory, typeinfo_count = segment_directory(data)
    segment = lambda n: struct.unpack_from("<2i", data, directory + 16 * n)
    typeinfos_at = segment(TYPEINFO_SEGMENT)[0]
    names_at = segment(NAME_SEGMENT)[0]
    strings_at, strings_length = segment(STRING_SEGMENT)
    strings = bytearray(data[strings_at:strings_at + strings_length])

    patched = 0
    for t in range(typeinfo_count):
        base = typeinfos_at + TYPEINFO_SIZE * t
        if read_int(data, base) & 0xF != TKIND_MODULE:
            continue
        memoffset, elements = read_int(data, base + 4), read_int(data, base + 0x18)
        functions, variables = elements & 0xFFFF, elements >> 16
        names = function_names(data, names_at, memoffset, functions, variables)
        record = memoffset + 4
        for name in names:
            size = read_int(data, record) & 0xFFFF
            flags = read_int(data, record + 16)
            arguments = struct.unpack_from("<h", data, record + 20)[0]
            optional = size - FUNC_FIXED_SIZE - 12 * arguments
            if optional >= ENTRY_FIELD - FUNC_FIXED_SIZE + 4 and not flags & ENTRY_IS_ORDINAL:
                struct.pack_into("<i", data, record + ENTRY_FIELD, len(strings))
                strings += encoded_string(name)
                patched += 1
            record += size

    if patched:
        data += b"\0" * (-len(data) % 4)
        struct.pack_into("<2i", data, directory + 16 * STRING_SEGMENT, len(data), len(strings))
        data += strings
        open(path, "wb").write(data)
    print("%s: %d entry names" % (path, patched))


if __name__ == "__main__":
    main()
