#!/usr/bin/env bash
# Tests ddzpack with readers that are not ours: ddzpack_test.sh DDZPACK DEFINITIONS
set -u
ddzpack=$1
definitions=$2
here=$(cd "$(dirname "$0")" && pwd)
. "$here/checks.sh"

# Runs ddzpack; leaves $status, $work/stdout and $work/stderr.
run() {
  "$ddzpack" "$@" >"$work/stdout" 2>"$work/stderr"
  status=$?
}

exits() { [ "$status" = "$1" ] || { echo "exit status $status, not $1"; cat "$work/stderr"; false; }; }
silent() { [ ! -s "$work/stderr" ] || { cat "$work/stderr"; false; }; }
no_file() { [ ! -e "$1" ]; }

# The definitions that are shipped.

run --check "$definitions/base" "$definitions/ostrel"
check "the shipped definitions have no mistakes" exits 0
check "nothing is said about them" silent

run --unused "$definitions/base" "$definitions/ostrel"
check "every key that the driver reads is used once" exits 0
check "no unused key is listed" test ! -s "$work/stdout"

run --out "$work/out" "$definitions/base" "$definitions/ostrel"
check "packing succeeds" exits 0
check "unzip accepts the base archive" unzip -tq "$work/out/vt#base.ddz"
check "unzip accepts the family archive" unzip -tq "$work/out/vt#ost.ddz"
check "zipinfo finds every member" \
  test "$(zipinfo -1 "$work/out/vt#ost.ddz" | sort | tr '\n' ' ')" = "$(ls "$definitions/ostrel" | sort | tr '\n' ' ')"
check "the archives keep to the subset" python3 "$here/archive_subset.py" "$work/out/vt#base.ddz" "$definitions/base"
check "the archives keep to the subset" python3 "$here/archive_subset.py" "$work/out/vt#ost.ddz" "$definitions/ostrel"
check "the models make sense" python3 "$here/models_make_sense.py" "$work/out/vt#base.ddz" "$work/out/vt#ost.ddz"

# Reproducible whatever the time, the folder and the order in which files were made.

mkdir -p "$work/copy/ostrel" "$work/copy/base"
for name in $(ls -r "$definitions/ostrel"); do cp "$definitions/ostrel/$name" "$work/copy/ostrel/"; done
cp "$definitions"/base/* "$work/copy/base/"
touch -d 2031-05-06 "$work/copy/ostrel/Driver.d"
run --out "$work/again" "$work/copy/base/" "$work/copy/ostrel/"
check "the base archive is the same byte for byte" cmp "$work/out/vt#base.ddz" "$work/again/vt#base.ddz"
check "the family archive is the same byte for byte" cmp "$work/out/vt#ost.ddz" "$work/again/vt#ost.ddz"

before=$(stat -c '%i %Y %Z' "$work/out/vt#ost.ddz")
run --out "$work/out" "$definitions/base" "$definitions/ostrel"
check "an archive that would not change is left alone" test "$before" = "$(stat -c '%i %Y %Z' "$work/out/vt#ost.ddz")"
check "no other file is left behind" test "$(ls -A "$work/out" | tr '\n' ' ')" = "vt#base.ddz vt#ost.ddz "

# The format, against bytes written by hand: member "a.txt" with the one byte "a".

mkdir "$work/tiny"
printf a >"$work/tiny/a.txt"
run --out "$work/out" --maker kd --time "2024-02-29 13:37:41" "$work/tiny"
hand="504b0304 1400 0000 0800 b46c 5d58 43beb7e8 03000000 01000000 0500 0000 612e747874 4b0400
 504b0102 1400 1400 0000 0800 b46c 5d58 43beb7e8 03000000 01000000 0500 0000 0000 0000 0000 00000000 00000000 612e747874
 504b0506 0000 0000 0100 0100 33000000 26000000 0000"
check "the maker and the first three letters of the folder name the archive" test -f "$work/out/kd#tin.ddz"
check "the archive is as written by hand" \
  test "$(od -An -v -tx1 "$work/out/kd#tin.ddz" | tr -d ' \n')" = "$(echo "$hand" | tr -d ' \n')"

# Members that are no definitions.

mkdir "$work/mixed"
head -c 300000 /dev/urandom >"$work/mixed/noise.bin"
: >"$work/mixed/empty.txt"
printf hidden >"$work/mixed/.hidden"
run --out "$work/out" "$work/mixed"
check "bytes that cannot be packed tighter and no bytes at all" \
  python3 "$here/archive_subset.py" "$work/out/vt#mix.ddz" "$work/mixed"
run --out "$work/out" "$work/Mixed-up" "$work/mixed"
check "a missing folder is an error" exits 1
check "the missing folder is named" grep -q "^$work/Mixed-up: cannot be read: " "$work/stderr"

mkdir -p "$work/more/Mix"
printf more >"$work/more/Mix/more.txt"
run --out "$work/out" "$work/mixed" "$work/more/Mix"
check "folders for one archive are packed together" \
  test "$(unzip -Z1 "$work/out/vt#mix.ddz" | tr '\n' ' ')" = "empty.txt noise.bin more.txt "

# Mistakes. Each changes one file of a small tree that has none.

fresh() {
  rm -rf "$work/t"
  mkdir -p "$work/t/base" "$work/t/ost"
  printf '[V]\nCompanyName=V\n' >"$work/t/base/Manufacturer.d"
  printf '! the drivers\n[.default]\nManufacturer=Manufacturer:V\n[D]\nModel=Model:M\n' >"$work/t/ost/Driver.d"
  printf '[M]\nResolution=203\n' >"$work/t/ost/Model.d"
}

lint() { run --out "$work/lint" "$work/t/base" "$work/t/ost"; }

fresh
lint
check "the small tree has no mistakes" exits 0

# mistake WHAT FILE CONTENT LINE MESSAGE: the one message, its place and the exit status.
mistake() {
  fresh
  rm -rf "$work/lint"
  printf "$3" >"$work/t/$2"
  lint
  check "$1: exit status" exits 1
  check "$1: message" diff <(echo "$work/t/$2:$4: $5") "$work/stderr"
  check "$1: nothing is written" no_file "$work/lint"
}
good() { # WHAT FILE CONTENT
  fresh
  printf "$3" >"$work/t/$2"
  lint
  check "$1" exits 0
}

mistake "unknown key" ost/Model.d '[M]\n\nStock.Max.X=4 in\n' 3 "Stock.Max.X: nobody reads this key of Model.d"
mistake "keys differ by case" ost/Model.d '[M]\ncolor=Yes\n' 2 "color: nobody reads this key of Model.d"
mistake "unknown key with maker code" ost/Model.d '[M]\nStock.Max.X(VT)=4 in\n' 2 "Stock.Max.X(VT): nobody reads this key of Model.d"
mistake "maker code in lower case" ost/Model.d '[M]\nColor(vt)=Yes\n' 2 "Color(vt): nobody reads this key of Model.d"
good "maker code" ost/Model.d '[M]\nStock.Maximum.X(VT)=4 in\n'
mistake "unknown file" ost/Modell.d '[M]\n' 1 "nobody reads a definition file Modell"

mistake "text too long for its field" base/Manufacturer.d '[V]\nProductName=12345678901234567890123456789012\n' 2 \
  "ProductName: text of 32 bytes, of which 31 fit the record"
good "text that just fits" base/Manufacturer.d '[V]\nProductName=1234567890123456789012345678901\n'
mistake "fonts prefix too long" base/Manufacturer.d '[V]\nFonts.Prefix=123456789012\n' 2 \
  "Fonts.Prefix: text of 12 bytes, of which 11 fit the record"
mistake "default font too long behind the longest prefix" ost/Font.d '[F]\nDefaultFont.Text.Name=12345678901234567890\n' 2 \
  "DefaultFont.Text.Name: text of 20 bytes, of which 19 fit the record"
mistake "human readable font too long" ost/BarCode.d '[B]\nHR.Font.Name=12345678901234567890123456789012\n' 2 \
  "HR.Font.Name: text of 32 bytes, of which 31 fit the record"

mistake "measure with an unknown unit" ost/Model.d '[M]\nStock.Maximum.X=12 furlongs\n' 2 \
  'Stock.Maximum.X: length "12 furlongs" reads as 0'
mistake "measure without a unit" ost/Model.d '[M]\nStock.Maximum.X=5\n' 2 'Stock.Maximum.X: length "5" reads as 0'
mistake "measure cut to nothing" ost/Model.d '[M]\n~TopOfForm.Maximum=0.0009 in\n' 2 \
  '~TopOfForm.Maximum: length "0.0009 in" reads as 0'
mistake "negative measure" ost/Model.d '[M]\nStock.Default.X=-1 in\n' 2 'Stock.Default.X: length "-1 in" is negative'

mistake "link to a missing section" ost/Driver.d '[D]\nManufacturer=Manufacturer:V\nModel=Model:N\n' 3 \
  "Model: leads to [N], which Model.d does not have"
mistake "link by another case" ost/Driver.d '[D]\nManufacturer=Manufacturer:V\nModel=Model:m\n' 3 \
  "Model: leads to [m], which Model.d does not have"
mistake "link to the defaults" ost/Driver.d '[.default]\nManufacturer=Manufacturer:V\nModel=Model:.default\n' 3 \
  "Model: leads to [.default], which Model.d does not have"
mistake "link without file" ost/Driver.d '[D]\nManufacturer=V\n' 2 \
  'Manufacturer: link "V" does not lead to Manufacturer:SECTION'
mistake "link to a file of another kind" ost/Driver.d '[D]\nModel=Manufacturer:V\n' 2 \
  'Model: link "Manufacturer:V" does not lead to Model:SECTION'
mistake "link to a missing file" ost/Model.d '[M]\nRFID=RFID:Reader\n' 2 "RFID: leads to RFID.d, which is missing"
mistake "font groups without their file" ost/Font.d '[F]\nFonts=A\n' 2 "Fonts: leads to FontGroup.d, which is missing"
mistake "missing font group" ost/OptionalFont.d '[F]\n~FontGroup=FontGroup:A.pfg\n' 2 \
  "~FontGroup: leads to FontGroup.d, which is missing"
mistake "model's key of an older kind" ost/Model.d '[M]\nFontGroup=FontGroup:Set\n' 2 \
  "FontGroup: nobody reads this key of Model.d"
mistake "font provider without fonts" ost/Font.d '[F]\n~FontOptions.Providers=Card\n' 2 \
  "~FontOptions.Providers: leads to ~FontOptions.Card, which is missing"

mistake "boolean" ost/Model.d '[M]\nColor=Maybe\n' 2 'Color: "Maybe" is neither yes nor no'
good "boolean in any case" ost/Model.d '[M]\nColor=tRuE\n'
mistake "number" ost/Method.d '[M]\nCopies.Limit=many\n' 2 'Copies.Limit: "many" is no number'
mistake "number out of range" ost/Method.d '[M]\nCopies.Limit=32768\n' 2 'Copies.Limit: 32768 is above 32767'
mistake "number beyond all ranges" ost/Method.d '[M]\nCopies.Limit=99999999999999999999\n' 2 \
  'Copies.Limit: 99999999999999999999 is above 32767'
mistake "word" ost/Model.d '[M]\nStock.Tracking=Middle\n' 2 'Stock.Tracking: "Middle" is none of: Right Left Center'
mistake "word of a list" ost/Features.d '[F]\nStatus.Ports=USB,Paralell\n' 2 \
  'Status.Ports: "Paralell" is none of: Serial Parallel USB TCP/IP Firewire'
mistake "blank in a list" ost/Features.d '[F]\nStatus.Ports=USB, Serial\n' 2 \
  'Status.Ports: a blank beside the separator belongs to " Serial"'
mistake "empty element" ost/Features.d '[F]\nStatus.Ports=USB,\n' 2 'Status.Ports: an empty element in a list'
good "case is free in most lists" ost/Features.d '[F]\nStatus.Ports=usb\n'
mistake "case counts in lists of bar codes" ost/BarCode.d '[B]\nCode39.Ratio=2:1,variable\n' 2 \
  'Code39.Ratio: "variable" is none of: Variable 2:1 11:5 9:4 7:3 12:5 5:2 13:5 8:3 11:4 14:5 3:1'
mistake "resolution" ost/Model.d '[M]\nResolution=203,300x\n' 2 'Resolution: "300x" is no resolution'
mistake "resolution of three axes" ost/Model.d '[M]\nResolution=1x2x3\n' 2 'Resolution: "1x2x3" is no resolution'
mistake "resolution 0" ost/Model.d '[M]\nResolution=0\n' 2 'Resolution: "0" is no resolution'
mistake "a ninth resolution" ost/Model.d '[M]\nResolution=1,2,3,4,5,6,7\nResolution+=8,9\n' 3 \
  'Resolution: 9 resolutions, of which 8 are used'
good "eight resolutions" ost/Model.d '[M]\nResolution=1,2,3,4,5,6,7\nResolution+=8\n'
mistake "a list that grows out of the defaults" ost/Drawing.d '[.default]\nLine.Pen=White\n[A]\nLine.Pen+=Gold\n' 4 \
  'Line.Pen: "Gold" is none of: Color White Inverse'
mistake "a default that is wrong" ost/Drawing.d '[.default]\nLine.Pen=Gold\n[A]\nLine.Pen=White\n' 2 \
  'Line.Pen: "Gold" is none of: Color White Inverse'

mistake "option of another symbology" ost/BarCode.d '[B]\nQRCode.Ratio=2:1\n' 2 "QRCode.Ratio: nobody reads this key of BarCode.d"
mistake "unknown symbology" ost/BarCode.d '[B]\nCode40=Yes\n' 2 "Code40: nobody reads this key of BarCode.d"
mistake "option with several meanings alone" ost/BarCode.d '[B]\nMode=Auto\n' 2 "Mode: nobody reads this key of BarCode.d"
mistake "words differ by symbology" ost/BarCode.d '[B]\nQRCode.Mode=Auto\nMaxiCode.Mode=Auto\n' 3 \
  'MaxiCode.Mode: "Auto" is none of: 2 3 4 5 6'
mistake "own option alone" ost/BarCode.d '[B]\nFullASCII=Yes\n' 2 "FullASCII: nobody reads this key of BarCode.d"
mistake "option of other symbologies" ost/BarCode.d '[B]\nEAN-8.SplitDigit=None\n' 2 "EAN-8.SplitDigit: nobody reads this key of BarCode.d"
mistake "extension in upper case" ost/Extra.D '[F]\nRubbish=1\n' 1 "a definition file's name ends in \".d\", in lower case"
good "option alone, with prefix, with prefix and maker" ost/BarCode.d '[B]\nHR=On\nEAN-8.HR=Off\nEAN-8.HR(VT)=On,Off\n'
mistake "types of another tag" ost/RFID.d '[R]\nEPC.Types=Class2\n' 2 'EPC.Types: "Class2" is none of: Class1 Class0+ Class0'
mistake "tag without types" ost/RFID.d '[R]\nTagIt.Types=Class1\n' 2 "TagIt.Types: nobody reads this key of RFID.d"
mistake "no option alone for tags" ost/RFID.d '[R]\nSegments=All\n' 2 "Segments: nobody reads this key of RFID.d"

mistake "no key, section or comment" ost/Model.d '[M]\n\n  Resolution 203\n' 3 \
  '"Resolution 203" is neither a key, a section nor a comment'
mistake "value without key" ost/Model.d '[M]\n = 5\n' 2 "a value without a key"
mistake "indented comment" ost/Model.d '[M]\n !Color=Yes\n' 2 "a comment begins at the left edge"
mistake "blank in a header" ost/Model.d '[M]\n[x ]\n' 2 '"[x ]" is no section header: [NAME], with no blank around'
mistake "header without end, and the keys behind it are let be" ost/Model.d '[M]\n[x\nNothing=1\n' 2 '"[x" is no section header: [NAME], with no blank around'
mistake "key above all sections" ost/Model.d 'Color=Yes\n[M]\n' 1 "key Color stands above the first section"
mistake "key set twice" ost/Model.d '[M]\nColor=Yes\n\nColor=No\n' 4 "key Color is set twice in [M]"
mistake "section twice" ost/Model.d '[M]\nColor=Yes\n[N]\n[M]\n' 4 "section [M] begins a second time"
mistake "defaults below a section" ost/Model.d '[M]\n[.default]\nColor=Yes\n' 2 \
  "section [.default] stands below others and would override their keys"
mistake "empty value" ost/Model.d '[M]\nColor=\n' 2 "Color: an empty value, with no default to take back"
good "empty value that takes a default back" ost/Model.d '[.default]\nColor.Spot=2\n[M]\nColor.Spot=\n'
mistake "letter outside ASCII" base/Manufacturer.d '[V]\nCompanyName=Caf\303\251\n' 2 "a character outside printable ASCII"
mistake "NUL" ost/Model.d '[M]\nColor=Yes\n\000\n' 3 "a character outside printable ASCII"
good "CR LF, no LF at the end, tabs" ost/Model.d '[M]\r\n\tResolution\t=\t203\r\nColor = Yes'

fresh
printf '[V]\n' >"$work/t/ost/manufacturer.D"
lint
check "a member hidden by one of the base archive: exit status" exits 1
check "a member hidden by one of the base archive: message" \
  grep -qxF "$work/t/ost/manufacturer.D: is hidden by $work/t/base/Manufacturer.d" "$work/stderr"

fresh
mkdir "$work/t/ost/sub"
lint
check "a folder inside a folder: exit status" exits 1
check "a folder inside a folder: message" \
  grep -qxF "$work/t/ost/sub: a folder inside a folder cannot be packed" "$work/stderr"

fresh
printf '[M]\nA=1\nB=2\n' >"$work/t/ost/Model.d"
printf '[F]\nC=3\n' >"$work/t/ost/Features.d"
lint
check "all mistakes are told, in order" diff - "$work/stderr" <<END
$work/t/ost/Features.d:2: C: nobody reads this key of Features.d
$work/t/ost/Model.d:2: A: nobody reads this key of Model.d
$work/t/ost/Model.d:3: B: nobody reads this key of Model.d
END

fresh
printf file >"$work/blocked"
run --out "$work/blocked" "$work/t/base" "$work/t/ost"
check "an archive that cannot be written: exit status" exits 1
check "an archive that cannot be written: message" \
  grep -qxF "ddzpack: $work/blocked/vt#base.ddz cannot be written" "$work/stderr"

run --unused "$work/t/base" "$work/t/ost"
check "unused keys: exit status" exits 1
check "unused keys: one a line" grep -qx "Model: Stock.Tracking" "$work/stdout"
printf '[M]\nStock.Tracking=Left\nPorts.Bidirectional=parallel\n' >"$work/t/ost/Model.d"
printf '[B]\nCode39=Yes\nCode39.HR=On\n' >"$work/t/ost/BarCode.d"
run --unused "$work/t/base" "$work/t/ost"
check "unused words: one a line" grep -qx "Model: Ports.Bidirectional=USB" "$work/stdout"
check "unused words: no used one" bash -c "! grep -qx 'Model: Ports.Bidirectional=Parallel' '$work/stdout'"
check "unused words: of options too" grep -qx "BarCode: HR=Off" "$work/stdout"
check "unused words: not of unused keys" bash -c "! grep -q 'Code39.HR.Placement=\|HR.Placement=' '$work/stdout'"
run --unused "$work/t/base" "$work/t/ost"
check "unused keys: no used one" bash -c "! grep -qx 'Model: Stock.Tracking' '$work/stdout'"

# The command line.

run --help
check "--help succeeds" exits 0
check "--help speaks on the standard output" grep -q "^Usage: ddzpack" "$work/stdout"
for arguments in "" "--out $work/x" "$work/t/base" "--out" "--frob $work/t/base" "--check --maker v $work/t/base" "--check --maker VT $work/t/base" "--check --maker a/ $work/t/base" \
  "--check --time 2026-13-01_00:00:00 $work/t/base"; do
  run $arguments
  check "usage error '$arguments': exit status" exits 2
  check "usage error '$arguments': message" grep -q "^ddzpack: " "$work/stderr"
done
run --check --time "2026-01-01 24:00:00" "$work/t/base"
check "an hour 24 is no time" exits 2

report_checks
