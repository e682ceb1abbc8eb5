#!/usr/bin/env python3
"""Checks the built module as a file: what it exports and imports, how it is hardened, how large it is.

Usage: module_file_test.py MODULE [--release]
The kind of module is seen from its first bytes.
"""
import os
import re
import subprocess
import sys

EXPORTS = """
DAL_Printer_Action DAL_Printer_ActionFlag DAL_Printer_ActionUI DAL_Printer_Close DAL_Printer_Open
DAL_Printer_SendFile DAL_Settings_Export DAL_Settings_Import DAL_Settings_Load DAL_Settings_Reset
DAL_Settings_Save DAL_Stock_Add DAL_Stock_Enumerate DAL_Stock_EnumerateName DAL_Stock_EnumerateUpdate
DAL_Stock_Remove DAL_Stock_RemoveName DevQueryPrintEx DllInitialize DrvConvertDevMode
DrvDeviceCapabilities DrvDevicePropertySheets DrvDocumentEvent DrvDocumentPropertySheets
DrvPrinterEvent DrvUpgradePrinter MonitorInterface X16_Base64_Decode X16_Base64_Encode X16_CRC16
X16_CRC32 X16_CommitShadow X16_CreateShadow X16_DocumentProperties X16_ImageDither_Dither
X16_ImageDither_DitherSmooth X16_ImageStretch_Stretch X16_Install X16_LZ77_Decode X16_LZ77_Encode
X16_LZ77_RawDecode X16_LZ77_RawEncode X16_OFile_GetTime X16_OFile_SetTime
""".split()

SYSTEM_DLLS = {"kernel32.dll", "advapi32.dll", "user32.dll", "gdi32.dll", "winspool.drv", "version.dll", "msvcrt.dll"}
SYSTEM_OBJECTS = re.compile(
    r"^(libc|libm|libdl|libpthread|libgcc_s|libstdc\+\+|libsqlite3|libicuuc|libicudata|libz|ld-linux-x86-64)\.so[.\d]*$"
)
SANITIZER = re.compile(r"^lib(asan|ubsan|tsan)\.so")

SIZE_LIMIT = 1536 * 1024

problems = []


def expect(condition, message):
    if not condition:
        problems.append(message)


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def compare_exports(found):
    expect(not set(EXPORTS) - set(found), f"not exported: {sorted(set(EXPORTS) - set(found))}")
    expect(not set(found) - set(EXPORTS), f"exported too: {sorted(set(found) - set(EXPORTS))}")


def check_windows(path):
    headers = run("x86_64-w64-mingw32-objdump", "-p", path)
    table = headers.split("[Ordinal/Name Pointer] Table", 1)[1]
    compare_exports(re.findall(r"^\s+\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+(?:[0-9a-f]+\s+)?)?(\S+)$",
                               table.split("\n\n", 1)[0], re.M))
    imports = {name.lower() for name in re.findall(r"DLL Name: (\S+)", headers)}
    expect(imports, "no imports found")
    expect(imports <= SYSTEM_DLLS, f"imports {sorted(imports - SYSTEM_DLLS)}")
    for flag in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
        expect(flag in headers, f"{flag} is not set")
    expect("Base Relocation Directory [.reloc]" in headers, "no relocations, so it can't be moved")
    symbols = open(path, "rb").read()
    for text in ("Vantrel", "Product Tag", "SCM Revision", "000004B0"):
        expect(text.encode("utf-16-le") in symbols, f"no {text!r} in the version record")


def check_linux(path, release):
    names = [line.split()[-1] for line in run("nm", "-D", "--defined-only", path).splitlines()]
    compare_exports([name.split("@")[0] for name in names])
    dynamic = run("readelf", "-dW", path)
    imports = set(re.findall(r"Shared library: \[([^\]]+)\]", dynamic))
    strangers = [name for name in imports
                 if not SYSTEM_OBJECTS.match(name) and (release or not SANITIZER.match(name))]
    expect(imports, "no imports found")
    expect(not strangers, f"imports {sorted(strangers)}")
    expect("TEXTREL" not in dynamic, "has text relocations")
    expect("BIND_NOW" in dynamic or re.search(r"FLAGS.*NOW", dynamic), "not bound at load")
    expect("SYMBOLIC" in dynamic, "not bound to itself")
    expect("RPATH" not in dynamic and "RUNPATH" not in dynamic, "looks for libraries by path")
    segments = run("readelf", "-lW", path)
    expect("GNU_RELRO" in segments, "no read-only relocations")
    stack = re.search(r"GNU_STACK.*", segments)
    expect(stack and "RWE" not in stack.group(0), "the stack can be run")
    writable = [line for line in segments.splitlines() if line.split()[:1] == ["LOAD"] and "RWE" in line]
    expect(not writable, "a segment can be written and run")
    if release:
        expect("__stack_chk_fail" in run("nm", "-D", "--undefined-only", path), "no stack protector")


def main():
    path = sys.argv[1]
    release = "--release" in sys.argv[2:]
    with open(path, "rb") as module:
        kind = module.read(2)
    if kind == b"MZ":
        check_windows(path)
    else:
        check_linux(path, release)
    size = os.path.getsize(path)
    if release:
        expect(size < SIZE_LIMIT, f"{size} bytes, more than {SIZE_LIMIT}")
    for problem in problems:
        print(f"{os.path.basename(path)}: {problem}", file=sys.stderr)
    print(f"{os.path.basename(path)}: {size} bytes, {len(problems)} problems")
    return 1 if problems else 0


sys.exit(main())
