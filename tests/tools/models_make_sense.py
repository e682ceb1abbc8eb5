"""models_make_sense.py ARCHIVE...: follows each driver name through the definitions with a reader of
its own and checks what no single value shows."""
import sys
import zipfile

members = {}
for path in reversed(sys.argv[1:]):
    with zipfile.ZipFile(path) as archive:
        for name in archive.namelist():
            members[name] = archive.read(name).decode("ascii")


def section(path):
    file, name = path.split(":")
    values, inside, found = {}, False, False
    for line in members[file + ".d"].splitlines():
        if line.startswith("!") or not line:
            continue
        if line.startswith("["):
            inside = line in (f"[{name}]", "[.default]")
            found = found or line == f"[{name}]"
        elif inside and "+=" in line:
            key, value = (part.strip() for part in line.split("+=", 1))
            values[key] = values[key] + "," + value if values.get(key) else value
        elif inside:
            key, value = (part.strip() for part in line.split("=", 1))
            values[key] = value
    assert found, path
    return values


def mm(text):
    number, unit = text.split()
    return float(number) * {"in": 25.4, "mm": 1, "cm": 10, "mils": 0.0254, "pts": 25.4 / 72}[unit]


YES = ("true", "yes", "on", "1")
EDGES = 2 * 1.27
drivers = [line[1:-1] for line in members["Driver.d"].splitlines() if line.startswith("[") and line != "[.default]"]
assert len(drivers) >= 6, drivers
seen = {}
for driver in drivers:
    chain = section("Driver:" + driver)
    maker = section(chain["Manufacturer"])
    assert maker["CompanyName"] == "Vantrel" and maker["Fonts.Prefix"] == "Ostrel"
    assert section(chain["Manufacturer(KD)"])["CompanyName"].startswith("Keldrum")
    model = section(chain["Model"])
    for axis in "XY":
        low, usual, high, printable = (
            mm(model[f"Stock.{word}.{axis}"]) for word in ("Minimum", "Default", "Maximum", "Printable"))
        assert low < usual <= printable <= high, (driver, axis)
        if axis == "X":
            assert usual + EDGES <= high, (driver, "the default page is too wide")
            assert mm(model["Stock.UnprintableWidth"]) * 2 < low, driver
    first = int(model["Resolution"].split(",")[0].split("x")[0])
    features = section(model["Features"])
    font = section(model["Font"])
    groups = font["Fonts"].split(",")
    classes = {font.get("Encodings.TrueType.Class"), font.get("Encodings.TTSymbolFont.Class")}
    for group in groups:
        values = section(group)
        assert values["Font"]
        classes.add(values["Encoding.Class"])
    # Each class that the model's fonts ask for leads to an encoding.
    offered = {item for key, value in section(font["Encodings"]).items() if key.endswith(".Classes")
               for item in value.split(";")}
    assert classes - {None} <= offered, (driver, classes - offered)
    section(model["BarCode"]), section(model["Drawing"]), section(model["Method"]), section(model["~CustomData"])
    rfid = section(model["RFID"]) if "RFID" in model else {}
    seen[driver] = {
        "inches": round(mm(model["Stock.Printable.X"]) / 25.4),
        "dpi": first,
        "u1": features["~Commands.U1"].lower() in YES,
        "clock": features["~RTC"].lower() in YES,
        "rfid": any(key in rfid for key in ("EPCGen2", "ISO15693")),
        "colour": model.get("Color", "").lower() in YES,
    }

expected = {
    "Ostrel M2 Mobile": (2, 203, False, False, False, False),
    "Ostrel M4 Mobile": (4, 203, True, True, False, False),
    "Ostrel D4-203": (4, 203, False, False, False, False),
    "Ostrel D4-300": (4, 300, False, False, False, False),
    "Ostrel R4 RFID": (4, 203, False, True, True, False),
    "Ostrel R4-HF RFID": (4, 203, False, True, True, False),
    "Ostrel C4 Colour": (4, 600, False, False, False, True),
}
assert {name: tuple(row.values()) for name, row in seen.items()} == expected, seen
