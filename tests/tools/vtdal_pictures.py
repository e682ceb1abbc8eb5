"""Pictures for the test of vtdal: make KIND FILE, and show FILE as rows of RRGGBB from the top."""
import struct
import sys
import zlib


def bmp(width, height, bits, rows, colors=b"", compression=0, offset=None, masks=b""):
    data = b"".join(row + bytes(-len(row) % 4) for row in rows)
    start = 54 + len(masks) + len(colors) if offset is None else offset
    head = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, start)
    head += struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, compression, 0, 0, 0, 0, 0)
    return head + masks + colors + data


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(width, height, depth, kind, rows):
    packed = zlib.compress(b"".join(b"\0" + row for row in rows))
    head = struct.pack(">IIBBBBB", width, height, depth, kind, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", packed) + chunk(b"IEND", b"")


RED, GREEN, BLUE, WHITE = b"\0\0\xff", b"\0\xff\0", b"\xff\0\0", b"\xff\xff\xff"
FOUR = [BLUE + WHITE, RED + GREEN]  # red and green above blue and white
MASKS = struct.pack("<III", 0xFF0000, 0xFF00, 0xFF)
TABLE = RED + b"\0" + GREEN + b"\0" + BLUE + b"\0" + WHITE + b"\0"

KINDS = {
    "four": bmp(2, 2, 24, FOUR),
    "top-first": bmp(2, -2, 24, FOUR[::-1]),
    "one-bit": bmp(2, 2, 1, [b"\x40", b"\x80"], TABLE[:8]),
    "four-bit": bmp(2, 2, 4, [b"\x23", b"\x01"], TABLE + bytes(48)),
    "eight-bit": bmp(2, 2, 8, [b"\x02\x03", b"\x00\x01"], TABLE),
    "sixteen-bit": bmp(1, 1, 16, [b"\x1f\x00"]),
    "masks": bmp(2, 2, 32, [b"\xff\0\0\0" + b"\xff\xff\xff\0", b"\0\0\xff\0\0\xff\0\0"], b"", 3, None, MASKS),
    "greys": bmp(3, 1, 24, [b"\x7f\x7f\x7f\x80\x80\x80\xff\xff\xff"]),
    "rle": bmp(2, 2, 8, FOUR, TABLE, 1),
    "five-bit": bmp(2, 2, 5, FOUR),
    "cut-off": bmp(2, 2, 24, FOUR)[:-1],
    "head-only": bmp(2, 2, 24, FOUR)[:53],
    "huge": bmp(0x7FFFFFFF, 0x7FFFFFFF, 24, []),
    "upside": bmp(1, -0x80000000, 24, []),
    "empty": bmp(0, 2, 24, []),
    "far-bits": bmp(2, 2, 24, FOUR, b"", 0, 0xFFFFFFF0),
    "wide": bmp(10922, 1, 8, [bytes(10922)], TABLE),
    "text": b"Hello, this is no picture at all, but long enough for a header of one.",
    "nothing": b"",
    "png": png(2, 2, 8, 2, [b"\xff\0\0\0\xff\0", b"\0\0\xff\xff\xff\xff"]),
    "png-alpha": png(2, 1, 8, 6, [b"\xff\0\0\xff\0\0\0\0"]),
    "png-bits": png(2, 1, 1, 0, [b"\x40"]),
    "png-cut-off": png(2, 2, 8, 2, [bytes(6), bytes(6)])[:50],
    "png-huge": png(10921, 32767, 8, 2, [b""]),
    "png-wide": png(10922, 1, 8, 0, [bytes(10922)]),
}


def read_bmp(file):
    width, height, bits = struct.unpack("<ii2xH", file[18:30])
    assert bits == 24 and height > 0 and len(file) == 54 + height * ((width * 3 + 3) // 4 * 4)
    step = (width * 3 + 3) // 4 * 4
    rows = [file[54 + y * step : 54 + y * step + width * 3] for y in range(height)]
    return [[row[x : x + 3][::-1] for x in range(0, width * 3, 3)] for row in rows[::-1]]


def read_png(file):
    place, packed = 8, b""
    while place < len(file):
        size, kind = struct.unpack(">I4s", file[place : place + 8])
        data = file[place + 8 : place + 8 + size]
        assert struct.unpack(">I", file[place + 8 + size : place + 12 + size])[0] == zlib.crc32(kind + data)
        if kind == b"IHDR":
            width, height, depth, color = struct.unpack(">IIBB", data[:10])
            assert (depth, color) == (8, 2)
        packed += data if kind == b"IDAT" else b""
        place += size + 12
    plain, rows, above = zlib.decompress(packed), [], bytes(width * 3)
    for y in range(height):
        way, row = plain[y * (width * 3 + 1)], bytearray(plain[y * (width * 3 + 1) + 1 :][: width * 3])
        for x in range(width * 3):
            left = row[x - 3] if x >= 3 else 0
            corner = above[x - 3] if x >= 3 else 0
            guess = left + above[x] - corner
            nearest = min((left, above[x], corner), key=lambda value: abs(guess - value))
            row[x] = (row[x] + (0, left, above[x], (left + above[x]) // 2, nearest)[way]) & 255
        rows.append([bytes(row[x : x + 3]) for x in range(0, width * 3, 3)])
        above = row
    return rows


if sys.argv[1] == "make":
    with open(sys.argv[3], "wb") as target:
        target.write(KINDS[sys.argv[2]])
else:
    with open(sys.argv[2], "rb") as source:
        content = source.read()
    for line in read_png(content) if content[:1] == b"\x89" else read_bmp(content):
        print(" ".join(pixel.hex() for pixel in line))
