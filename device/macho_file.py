"""The parts of a thin Mach-O file that the tools beside this one change, as <mach-o/loader.h> has them."""
import struct


class Format:
    """What the two widths differ in: the header's size, the segments' command with its fields, memory pages."""

    def __init__(self, header, segment, field, segment_head, section_size, section_offset, page):
        self.header, self.segment, self.field, self.page = header, segment, field, page
        self.segment_head, self.section_size, self.section_offset = segment_head, section_size, section_offset
        width = struct.calcsize(field)
        self.memory_size, self.file_offset, self.file_size = 24 + width, 24 + 2 * width, 24 + 3 * width


FORMATS = {  # by the file's first word
    0xFEEDFACE: Format(28, 0x01, "<I", 56, 68, 40, 0x1000),
    0xFEEDFACF: Format(32, 0x19, "<Q", 72, 80, 48, 0x4000),
}


def format_of(data):
    magic = struct.unpack_from("<I", data)[0]
    if magic not in FORMATS:
        raise ValueError("not a thin Mach-O file")
    return FORMATS[magic]


def load_commands(data, form):
    count = struct.unpack_from("<I", data, 16)[0]
    offset = form.header
    for _ in range(count):
        command, size = struct.unpack_from("<II", data, offset)
        yield command, offset
        offset += size


def segments_of(data, form):
    return {
        bytes(data[at + 8 : at + 24]).rstrip(b"\0"): at
        for command, at in load_commands(data, form)
        if command == form.segment
    }


def read_file(path):
    with open(path, "rb") as file:
        return bytearray(file.read())


def write_file(path, data):
    with open(path, "wb") as file:
        file.write(data)
