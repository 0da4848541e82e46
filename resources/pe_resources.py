"""Reads dialog templates and strings, language by language, and the numbers of pictures out of a compiled resource
module."""
import dataclasses
import pathlib
import struct

RT_BITMAP = 2
RT_DIALOG = 5
RT_STRING = 6
RT_GROUP_ICON = 14
NAMED = 0x80000000
CLASSES = {0x80: "button", 0x81: "edit", 0x82: "static", 0x83: "list box", 0x84: "scroll bar", 0x85: "combo box"}
CBS_SIMPLE, CBS_DROPDOWN, CBS_DROPDOWNLIST, CBS_TYPE = 1, 2, 3, 3
CLOSED_COMBO_BOX = 14  # dialog units



@dataclasses.dataclass
class Control:
    id: int
    kind: str
    style: int
    text: str
    left: int
    top: int
    width: int
    height: int

    @property
    def right(self):
        return self.left + self.width

    @property
    def bottom(self):
        """Of a combo box with a list that drops down, the bottom of the closed box: its height is the open list's."""
        drops_down = self.kind == "combo box" and self.style & CBS_TYPE in (CBS_DROPDOWN, CBS_DROPDOWNLIST)
        return self.top + (CLOSED_COMBO_BOX if drops_down else self.height)


@dataclasses.dataclass
class Dialog:
    title: str
    width: int
    height: int
    controls: list


class Reader:
    """Walks bytes; offsets are counted from the start of the resource, as its alignment is."""

    def __init__(self, data):
        self.data, self.at = data, 0

    def take(self, form):
        values = struct.unpack_from("<" + form, self.data, self.at)
        self.at += struct.calcsize("<" + form)
        return values if len(values) > 1 else values[0]

    def align(self):
        self.at = (self.at + 3) & ~3

    def text(self):
        start = self.at
        while self.take("H"):
            pass
        return self.data[start : self.at - 2].decode("utf-16-le")

    def text_or_number(self):
        if struct.unpack_from("<H", self.data, self.at)[0] == 0xFFFF:
            return self.take("HH")[1]
        return self.text()


def parse_dialog(data):
    reader = Reader(data)
    version, signature = reader.take("HH")
    if (version, signature) != (1, 0xFFFF):
        raise ValueError("not an extended dialog template")
    _, _, style, count, _, _, width, height = reader.take("IIIHhhhh")
    reader.text_or_number()  # menu
    reader.text_or_number()  # class
    title = reader.text()
    if style & 0x40:  # DS_SETFONT: size, weight, italic and character set, name
        reader.take("HHBB")
        reader.text()
    controls = []
    for _ in range(count):
        reader.align()
        _, _, style, left, top, item_width, item_height, number = reader.take("IIIhhhhI")
        kind = reader.text_or_number()
        text = reader.text_or_number()
        creation_data = reader.take("H")
        reader.at += creation_data
        kind = CLASSES.get(kind, str(kind)) if isinstance(kind, int) else kind.lower()
        controls.append(Control(number, kind, style, str(text), left, top, item_width, item_height))
    return Dialog(title, width, height, controls)


def parse_strings(block, data):
    """The strings of one block of sixteen, by their numbers; an absent one has no length."""
    reader, strings = Reader(data), {}
    for number in range((block - 1) * 16, block * 16):
        length = reader.take("H")
        if length:
            strings[number] = reader.data[reader.at : reader.at + 2 * length].decode("utf-16-le")
            reader.at += 2 * length
    return strings


class Module:
    """The resources of one file: dialogs[language][id], strings[language][id], and the ids of bitmaps and icons. Those
    that have a text for a name aren't among them."""

    def __init__(self, path):
        self.file = pathlib.Path(path).read_bytes()
        self.dialogs, self.strings, self.bitmaps, self.icons = {}, {}, set(), set()
        self.base, self.offset = self._resource_section()
        for kind, number, language, data in self._leaves():
            if kind == RT_DIALOG:
                self.dialogs.setdefault(language, {})[number] = parse_dialog(data)
            elif kind == RT_STRING:
                self.strings.setdefault(language, {}).update(parse_strings(number, data))
            elif kind in (RT_BITMAP, RT_GROUP_ICON) and not number & NAMED:
                (self.bitmaps if kind == RT_BITMAP else self.icons).add(number)

    def _resource_section(self):
        """Where the section of resources is loaded, and where it stands in the file."""
        header = struct.unpack_from("<I", self.file, 0x3C)[0]
        count = struct.unpack_from("<H", self.file, header + 6)[0]
        optional = struct.unpack_from("<H", self.file, header + 20)[0]
        for index in range(count):
            row = header + 24 + optional + 40 * index
            name, _, address, _, offset = struct.unpack_from("<8sIIII", self.file, row)
            if name.rstrip(b"\0") == b".rsrc":
                return address, offset
        raise ValueError("no resources")

    def _entries(self, directory):
        named, numbered = struct.unpack_from("<HH", self.file, self.offset + directory + 12)
        for index in range(named + numbered):
            number, child = struct.unpack_from("<II", self.file, self.offset + directory + 16 + 8 * index)
            yield number, child & 0x7FFFFFFF

    def _leaves(self):
        for kind, names in self._entries(0):
            for number, languages in self._entries(names):
                for language, leaf in self._entries(languages):
                    address, size = struct.unpack_from("<II", self.file, self.offset + leaf)
                    start = address - self.base + self.offset
                    yield kind, number, language, self.file[start : start + size]
