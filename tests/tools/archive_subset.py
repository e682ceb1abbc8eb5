"""archive_subset.py ARCHIVE FOLDER: the archive holds the folder's files and is a zip file that any
reader takes, of the plainest kind: what the driver's own small reader relies on."""
import os
import struct
import sys
import zipfile

archive, folder = sys.argv[1:]
data = open(archive, "rb").read()
names = sorted(name for name in os.listdir(folder) if not name.startswith("."))

end = struct.unpack("<IHHHHIIH", data[-22:])
assert end[0] == 0x06054B50, "the end record is not the last 22 bytes"
assert end[1:5] == (0, 0, len(names), len(names)) and end[7] == 0, end
assert end[6] + end[5] == len(data) - 22, "something lies around the directory"

at = end[6]
offset = 0
for name in names:
    central = struct.unpack("<IHHHHHHIIIHHHHHII", data[at:at + 46])
    assert central[0] == 0x02014B50
    assert data[at + 46:at + 46 + central[10]] == name.encode()
    assert central[11:16] == (0, 0, 0, 0, 0), "extra field, comment, disk or attributes"
    assert central[16] == offset, "a gap between members"
    at += 46 + central[10]
    local = struct.unpack("<IHHHHHIIIHH", data[offset:offset + 30])
    assert local[0] == 0x04034B50
    assert local[1:10] == central[2:11], "the two headers differ"
    assert local[2] == 0 and local[3] == 8, "flags, or a method other than deflate"
    assert local[10] == 0, "an extra field"
    assert data[offset + 30:offset + 30 + local[9]] == name.encode()
    offset += 30 + local[9] + local[7]
assert offset == end[6]

with zipfile.ZipFile(archive) as reader:
    assert reader.testzip() is None and reader.comment == b""
    assert reader.namelist() == names
    for name in names:
        assert reader.read(name) == open(os.path.join(folder, name), "rb").read(), name
        assert reader.getinfo(name).date_time == (2026, 1, 1, 0, 0, 0)
