"""Enters the structure plimo_load_configuration of a program file into the file's directory of such structures, where the
system's loader looks for it. It does what a linker option does elsewhere.

    set_load_configuration.py PROGRAM.exe

The offsets are those of a PE32+ file with a COFF symbol table ("PE Format" in the documentation of Windows).
"""
import struct
import sys

SYMBOL = b"plimo_load_configuration"
LOAD_CONFIGURATION = 10  # its entry in the directory


def symbol_address(image, header):
    """The address of the symbol, relative to that of the image."""
    sections, _, symbols, count, optional_size = struct.unpack_from("<HIIIH", image, header + 6)
    names = symbols + 18 * count  # longer names are in a table after the symbols
    index = 0
    while index < count:
        at = symbols + 18 * index
        name, value, section, _, _, auxiliary = struct.unpack_from("<8sIhHBB", image, at)
        if name[:4] == bytes(4):
            begin = names + struct.unpack("<I", name[4:])[0]
            name = image[begin:image.index(b"\0", begin)]
        if name == SYMBOL and 0 < section <= sections:
            section_header = header + 24 + optional_size + 40 * (section - 1)
            return struct.unpack_from("<I", image, section_header + 12)[0] + value
        index += 1 + auxiliary
    sys.exit("there is no symbol " + SYMBOL.decode())


def main():
    path, = sys.argv[1:]
    with open(path, "rb") as file:
        image = file.read()
    header = struct.unpack_from("<I", image, 0x3C)[0]
    if image[header:header + 4] != b"PE\0\0" or struct.unpack_from("<H", image, header + 24)[0] != 0x20B:
        sys.exit(path + " is no program for 64-bit Windows")
    address = symbol_address(image, header)
    directory = header + 24 + 112  # after the fixed part of the optional header
    # The size is the structure's own first value.
    sections, optional_size = struct.unpack_from("<H", image, header + 6)[0], struct.unpack_from("<H", image, header + 20)[0]
    for number in range(sections):
        at = header + 24 + optional_size + 40 * number
        size, begin, _, offset = struct.unpack_from("<IIII", image, at + 8)
        if begin <= address < begin + size:
            length = struct.unpack_from("<I", image, offset + address - begin)[0]
            break
    with open(path, "r+b") as file:
        file.seek(directory + 8 * LOAD_CONFIGURATION)
        file.write(struct.pack("<II", address, length))


main()
