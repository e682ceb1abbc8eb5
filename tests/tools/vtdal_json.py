#!/usr/bin/env python3
"""Compares what vtdal prints as JSON with the driver's own numbers: vtdal_json.py caps CAPS,
vtdal_json.py encodings ENCODINGS or vtdal_json.py devmode DEVMODE HEX."""
import json
import struct
import sys

FIELD_BITS = [
    (0x1, "orientation"), (0x2, "paper size"), (0x4, "paper length"), (0x8, "paper width"),
    (0x10, "scale"), (0x100, "copies"), (0x200, "default source"), (0x400, "print quality"),
    (0x800, "color"), (0x1000, "duplex"), (0x2000, "Y resolution"), (0x4000, "TrueType option"),
    (0x8000, "collate"), (0x10000, "form name"), (0x800000, "ICM method"),
    (0x1000000, "ICM intent"), (0x2000000, "media type"), (0x4000000, "dither type"),
]  # fmt: skip


def read(path):
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def equal(what, expected, actual):
    if expected != actual:
        sys.exit(f"{what}: {actual!r}, not {expected!r}")


def check_caps(path):
    capabilities = read(path)["capabilities"]
    equal("indexes", list(range(1, 34)), [c["index"] for c in capabilities.values()])
    fields = capabilities["DC_FIELDS"]
    equal("DC_FIELDS", [n for b, n in FIELD_BITS if fields["result"] & b], fields["values"])
    equal("DC_FIELDS of a model without colours", 0x1250F, fields["result"])
    for name in ("DC_MINEXTENT", "DC_MAXEXTENT"):
        result = capabilities[name]["result"]
        size = {"widthMm": (result & 0xFFFF) / 10, "heightMm": (result >> 16) / 10}
        equal(name, [size], capabilities[name]["values"])
    for name in ("DC_PAPERS", "DC_PAPERSIZE", "DC_PAPERNAMES", "DC_BINS", "DC_BINNAMES",
                 "DC_ENUMRESOLUTIONS", "DC_FILEDEPENDENCIES", "DC_PERSONALITY", "DC_NUP"):  # fmt: skip
        equal(name, capabilities[name]["result"], len(capabilities[name]["values"]))
    for name in ("DC_PAPERSIZE", "DC_PAPERNAMES"):
        equal(name, capabilities["DC_PAPERS"]["result"], capabilities[name]["result"])
    equal("DC_BINS", [256], capabilities["DC_BINS"]["values"])
    equal("DC_BINNAMES", ["Internal Spool"], capabilities["DC_BINNAMES"]["values"])
    equal("DC_ENUMRESOLUTIONS", [{"x": 203, "y": 203}], capabilities["DC_ENUMRESOLUTIONS"]["values"])
    equal("DC_PERSONALITY", ["OST"], capabilities["DC_PERSONALITY"]["values"])
    equal("DC_NUP", [1], capabilities["DC_NUP"]["values"])
    equal("DC_SIZE", 220, capabilities["DC_SIZE"]["result"])
    equal("DC_EXTRA", 1296, capabilities["DC_EXTRA"]["result"])
    equal("DC_MANUFACTURER", (-1, []), tuple(list(capabilities["DC_MANUFACTURER"].values())[1:]))


def block_of(path):
    """The bytes of a dump of sixteen bytes a line, each line with its offset and its text."""
    block = b""
    with open(path, encoding="ascii") as file:
        for line in file:
            offset, rest = line.split(" ", 1)
            equal("offset", len(block), int(offset, 16))
            data = bytes.fromhex(rest.split("|", 1)[0])
            text = "".join(chr(b) if 0x20 <= b < 0x7F else "." for b in data)
            equal("text", text, rest.rstrip("\n").split("|", 1)[1][:-1])
            block += data
    return block


def check_devmode(path, hex_path):
    mode = read(path)
    block = block_of(hex_path)
    equal("size", 1516, mode["size"])
    equal("length", 1516, len(block))

    def wide(offset):
        return block[offset : offset + 64].decode("utf-16-le").split("\0")[0]

    def number(kind, offset):
        return struct.unpack_from("<" + kind, block, offset)[0]

    public = {"dmDeviceName": wide(0), "dmFormName": wide(102), "dmFields": number("I", 72)}
    for name, offset in [("dmSpecVersion", 64), ("dmDriverVersion", 66), ("dmSize", 68),
                         ("dmDriverExtra", 70), ("dmLogPixels", 166)]:  # fmt: skip
        public[name] = number("H", offset)
    words = "Orientation PaperSize PaperLength PaperWidth Scale Copies DefaultSource PrintQuality"
    words += " Color Duplex YResolution TTOption Collate"
    for i, name in enumerate(words.split()):
        public["dm" + name] = number("h", 76 + 2 * i)
    dwords = "BitsPerPel PelsWidth PelsHeight DisplayFlags DisplayFrequency ICMMethod ICMIntent"
    dwords += " MediaType DitherType Reserved1 Reserved2 PanningWidth PanningHeight"
    for i, name in enumerate(dwords.split()):
        public["dm" + name] = number("I", 168 + 4 * i)
    equal("public", public, mode["public"])
    equal("dmDriverExtra", 1296, public["dmDriverExtra"])

    halftone = mode["halftone"]
    equal("Signature", "MDTN", halftone["Signature"])
    equal("DevPelsDPI", number("I", 220 + 16), halftone["DevPelsDPI"])
    equal("AlignmentWhite.y", number("i", 220 + 96), halftone["AlignmentWhite.y"])
    equal("MagentaInYellowDye", 210, halftone["MagentaInYellowDye"])
    equal("caRedGreenTint", number("h", 220 + 162), halftone["caRedGreenTint"])

    model = mode["model"]
    start = 1516 - 1132
    family = "mediaKind feedMode feedOption listA listB labelLength labelGap labelCount topOfForm"
    family += " feedLength feedRate feedStop feedOffset printSpeed darkness"
    for i, name in enumerate(family.split()):
        equal(name, number("i", start + 1060 + 4 * i), model[name])
    equal("flags", number("H", start + 1120), model["flags"])
    equal("feedRate", 1000, model["feedRate"])
    equal("AdvancedLength", 6350, model["AdvancedLength"])
    equal("screenIndex", number("h", start + 1054), model["screenIndex"])
    equal("trailer", ("vts", "ost", 1132), (model["TrailerSignature"], model["TrailerModel"], model["TrailerSize"]))


def check_encodings(path):
    """What the tool's test has stored, and a desktop model."""
    shown = read(path)
    equal("encodings", [
        {"name": "850", "characterSet": 0, "description": "Western (OEM)"},
        {"name": "UTF-8", "description": "UTF-8 (Unicode)"},
        {"name": "1250", "characterSet": 238, "description": "Central European (ANSI)"},
    ], shown["encodings"])  # fmt: skip
    equal("model's order", ["1252", "850", "437"], shown["modelOrder"][:3])
    equal("a model with UTF-8", ([1], True), (shown["characterSets"], shown["unicode"]))
    equal("codePageSelectLogic", 0, shown["codePageSelectLogic"])
    (own,) = shown["customCharacterSets"]
    equal("custom set", ("My Ж set", 850), (own["name"], own["sourceCodePage"]))
    equal("its table", [0, 0x41, 0x20AC] + [0] * 253, own["table"])


if sys.argv[1] == "caps":
    check_caps(sys.argv[2])
elif sys.argv[1] == "encodings":
    check_encodings(sys.argv[2])
else:
    check_devmode(sys.argv[2], sys.argv[3])
