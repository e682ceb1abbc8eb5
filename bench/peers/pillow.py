"""Times Pillow: pillow.py WIDTH HEIGHT COLORS INDEXES PALETTE, files of raw bytes; prints NUMBER SECONDS."""
import sys
import time

from PIL import Image

(ORDERED, HALFTONE, SCREEN, ORDERED_PLANES, HALFTONE_PLANES, SCREEN_PLANES, FLOYD, JARVIS, P_ORDERED, P_SCREEN,
 P_FLOYD, SAME, DOUBLE, THREE_HALVES, HALF, P_DOUBLE, P_HALF) = range(17)


def measure(number, run):
    best, spent, count = 1e9, 0, 0
    while count < 3 or (spent < 0.4 and count < 200):
        start = time.thread_time()
        run()
        passed = time.thread_time() - start
        best, spent, count = min(best, passed), spent + passed, count + 1
    print(number, best)


def read(path):
    with open(path, "rb") as file:
        return file.read()


def main():
    width, height = int(sys.argv[1]), int(sys.argv[2])
    picture = Image.frombytes("RGB", (width, height), read(sys.argv[3]), "raw", "BGR")
    indexes = Image.frombytes("P", (width, height), read(sys.argv[4]))
    palette = read(sys.argv[5])
    indexes.putpalette([palette[i // 3 * 4 + 2 - i % 3] for i in range(768)])
    sixteen = Image.new("P", (1, 1))
    sixteen.putpalette(list(bytes.fromhex(sys.argv[6])) * 16)
    measure(FLOYD, lambda: picture.convert("1"))
    measure(P_FLOYD, lambda: picture.quantize(palette=sixteen, dither=Image.Dither.FLOYDSTEINBERG))
    for number, up, down in ((SAME, 1, 1), (DOUBLE, 2, 1), (THREE_HALVES, 3, 2), (HALF, 1, 2)):
        size = (width * up // down, height * up // down)
        # An equal size would be a bare copy; a box makes it sample.
        transform = Image.Transform.EXTENT
        if number == SAME:
            measure(number, lambda: picture.transform(size, transform, (0, 0, width, height)))
        else:
            measure(number, lambda: picture.resize(size, Image.Resampling.NEAREST))
    for number, up, down in ((P_DOUBLE, 2, 1), (P_HALF, 1, 2)):
        size = (width * up // down, height * up // down)
        measure(number, lambda: indexes.resize(size, Image.Resampling.NEAREST).convert("RGB"))


main()
