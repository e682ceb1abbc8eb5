"""Reads what a language module holds, straight from the file: strings, dialog templates, names."""
import struct

BITMAP, DIALOG, STRING = 2, 5, 6
BUTTON, EDIT, STATIC, LISTBOX, SCROLLBAR, COMBOBOX = range(0x80, 0x86)
LIST_VIEW = "SYSLISTVIEW32"
CLASS_NUMBERS = {"BUTTON": BUTTON, "EDIT": EDIT, "STATIC": STATIC, "LISTBOX": LISTBOX, "COMBOBOX": COMBOBOX}


class Control:
    def __init__(self, item, style, box, window_class, text):
        self.id = item if item < 0x80000000 else item - 0x100000000
        self.style = style
        self.left, self.top, self.width, self.height = box
        self.window_class = CLASS_NUMBERS.get(window_class, window_class)
        self.text = text

    right = property(lambda self: self.left + self.width)
    bottom = property(lambda self: self.top + self.height)
    visible = property(lambda self: bool(self.style & 0x10000000))

    def __str__(self):
        return f'control {self.id} "{self.text}"' if self.text else f"control {self.id}"


class Template:
    def __init__(self, style, size, title, font, controls):
        self.style, self.title, self.font, self.controls = style, title, font, controls
        self.width, self.height = size
        self.is_page = bool(style & 0x40000000)


class Words:
    """16-bit fields in a row."""

    def __init__(self, data):
        self.data, self.at = data, 0

    def take(self, form):
        values = struct.unpack_from("<" + form, self.data, self.at)
        self.at += struct.calcsize("<" + form)
        return values

    def text(self):
        start = self.at
        while self.take("H")[0]:
            pass
        return self.data[start:self.at - 2].decode("utf-16-le")

    def name(self):
        """A text, or a number."""
        (first,) = self.take("H")
        if first == 0xFFFF:
            return self.take("H")[0]
        self.at -= 2
        return self.text()

    def align(self):
        self.at = (self.at + 3) // 4 * 4


def read_template(data):
    words = Words(data)
    version, signature = words.take("HH")
    if (version, signature) != (1, 0xFFFF):
        raise ValueError("no extended template")
    _help, _ex_style, style, count, _x, _y, width, height = words.take("IIIHhhhh")
    _menu, _class, title = words.name(), words.name(), words.name()
    font = None
    if style & 0x40:
        font = words.take("HHBB") + (words.text(),)
    controls = []
    for _ in range(count):
        words.align()
        _help, _ex_style, item_style, *box, item = words.take("IIIhhhhI")
        window_class, text = words.name(), words.name()
        (extra,) = words.take("H")
        words.at += extra
        controls.append(Control(item, item_style, box, window_class, text))
    if words.at > len(data) or len(data) - words.at > 3:
        raise ValueError("its size doesn't fit what it holds")
    return Template(style, (width, height), title, font, controls)


class Module:
    def __init__(self, path):
        with open(path, "rb") as file:
            self.data = file.read()
        (header,) = struct.unpack_from("<I", self.data, 60)
        if self.data[:2] != b"MZ" or self.data[header:header + 4] != b"PE\0\0":
            raise ValueError(f"{path} is no module")
        machine, sections, self.time, _, _, optional, self.flags = struct.unpack_from("<HHIIIHH", self.data, header + 4)
        (self.entry,) = struct.unpack_from("<I", self.data, header + 40)
        (start,) = struct.unpack_from("<I", self.data, header + 24 + 112 + 16)
        if machine != 0x8664:
            raise ValueError(f"{path} is for another machine")
        self.sections = [
            struct.unpack_from("<8sIIII", self.data, header + 24 + optional + 40 * i) for i in range(sections)
        ]
        self.base = self.offset(start)
        # (type, name) -> data
        self.items = {
            (kind, name): self.data[self.offset(at):self.offset(at) + size]
            for kind, folder in self.folder(0)
            for name, languages in self.folder(folder)
            for _language, leaf in self.folder(languages)
            for at, size in [struct.unpack_from("<II", self.data, self.base + leaf)]
        }

    def offset(self, address):
        for _name, _size, start, length, at in self.sections:
            if start <= address < start + length:
                return at + address - start
        raise ValueError("an address outside the file")

    def folder(self, at):
        names, numbers = struct.unpack_from("<HH", self.data, self.base + at + 12)
        for i in range(names + numbers):
            name, child = struct.unpack_from("<II", self.data, self.base + at + 16 + 8 * i)
            if name & 0x80000000:
                place = self.base + (name & 0x7FFFFFFF)
                (length,) = struct.unpack_from("<H", self.data, place)
                name = self.data[place + 2:place + 2 + 2 * length].decode("utf-16-le")
            yield name, child & 0x7FFFFFFF

    def names(self, wanted):
        return sorted(str(name) for kind, name in self.items if kind == wanted)

    def strings(self):
        found = {}
        for (kind, block), data in self.items.items():
            if kind != STRING:
                continue
            words = Words(data)
            for i in range(16):
                (length,) = words.take("H")
                text = words.data[words.at:words.at + 2 * length].decode("utf-16-le")
                words.at += 2 * length
                if text:
                    found[(block - 1) * 16 + i] = text
        return found

    def templates(self):
        return {name: read_template(data) for (kind, name), data in self.items.items() if kind == DIALOG}
