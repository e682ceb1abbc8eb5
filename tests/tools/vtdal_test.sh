#!/usr/bin/env bash
# Tests the command-line tool: vtdal_test.sh VTDAL MODULE MONITOR [RUNNER]. With a runner (Windows programs)
# the spooler is that of the runner's system, so that printers are only asked for, not made.
set -u
vtdal=$1
module=$2
monitor=$3
runner=${4:-}
here=$(cd "$(dirname "$0")" && pwd)
. "$here/checks.sh"
export LC_ALL=C.UTF-8
unset OSTVT_MODULE

# Runs vtdal; leaves $status, $work/stdout and $work/stderr.
run() {
  # shellcheck disable=SC2086 # no runner is no word
  $runner "$vtdal" "$@" >"$work/stdout" 2>"$work/stderr"
  status=$?
}

exits() { [ "$status" = "$1" ] || { echo "exit status $status, not $1"; cat "$work/stderr"; false; }; }
silent() { [ ! -s "$work/stderr" ] || { cat "$work/stderr"; false; }; }
prints() { printf '%s\n' "$@" | diff - "$work/stdout"; }
prints_nothing() { [ ! -s "$work/stdout" ] || { cat "$work/stdout"; false; }; }
shows() { grep -qF -- "$1" "$work/stdout" || { cat "$work/stdout"; false; }; }
says() { grep -qxF -- "vtdal: $1" "$work/stderr" || { cat "$work/stderr"; false; }; }
json() { python3 -m json.tool "$work/stdout" >/dev/null; }

# done_with TEXT: the last run succeeded and said nothing on stderr.
done_with() {
  check "$1 succeeds" exits 0
  check "$1 says nothing on stderr" silent
}

# refuses STATUS MESSAGE ARGUMENT...: this run fails so and prints nothing.
refuses() {
  local code=$1 message=$2
  shift 2
  run "$@"
  check "'$*' exits with $code" exits "$code"
  check "'$*' says why" says "$message"
  check "'$*' prints nothing" prints_nothing
}

# Help and wrong usage.

run --help
done_with "--help"
for command in printers add remove caps devmode settings dither stretch get set list; do
  check "--help names $command" shows "  $command "
done
for command in printers add remove caps devmode dither stretch get set list; do
  run "$command" --help
  done_with "$command --help"
  check "$command --help shows its usage" shows "Usage: vtdal $command"
done
run --version
done_with "--version"
check "--version is the driver's" prints "vtdal 6.7.4"
refuses 2 "no command"
refuses 2 "unknown command 'paint'" paint
refuses 2 "unknown option '--paint'" --paint
refuses 2 "unknown option '--paint'" printers --paint
refuses 2 "unexpected argument 'x'" printers x
refuses 2 "too few arguments" caps
refuses 2 "unexpected argument 'b'" caps a b
refuses 2 "option '--json' takes no value" caps a --json=1
refuses 2 "option '--module' needs a value" caps a --module
refuses 2 "--json and --hex exclude each other" devmode a --json --hex
refuses 2 "--driver is missing" add a --port b
refuses 2 "--port is missing" add a --driver b

# The store.

key="1:SOFTWARE/vtdal test"
export OSTVT_STORE_DIR=$work/store
refuses 1 "no value '$key/Absent'" get "$key/Absent"
refuses 1 "no key '$key'" list "$key"

# stores TYPE TEXT VALUE...: written as TYPE, then read back as TEXT.
stores() {
  local type=$1 text=$2
  shift 2
  run set "$key/Value" --type "$type" -- "$@"
  done_with "set --type $type $*"
  check "set prints nothing" prints_nothing
  run get "$key/Value"
  done_with "get of a $type"
  check "$type '$*' reads as it was written" prints "$text"
}
stores string "Ж, \"日本\" 😀" "Ж, \"日本\" 😀"
stores string "" ""
stores string "--x" "--x"
stores dword 4294967295 0xFFFFFFFF
stores dword 0 0
stores int "fe ff ff ff" -2
stores int "00 00 00 80" 0x80000000
stores byte "ff" 255
stores hex "00 01 fe" "00,01 FE"
stores hex "" ""
stores multi $'a b\nc' "a b" "" c
stores multi "" ""

run set "$key/Plain" text
done_with "set without a type"
run get "$key/Plain"
check "the type is string without a word about it" prints text
run set "$key/Number" -7 --type=int
run get "$key/Number" --type int
check "an int has a sign" prints -7
run get "$key/Number" --type dword
check "a dword has none" prints 4294967289
refuses 1 "the value has 4 bytes, which is no byte" get "$key/Number" --type byte
refuses 2 "'4294967296' is no number of type dword" set "$key/A" 4294967296 --type dword
refuses 2 "'-1' is no number of type dword" set "$key/A" -1 --type dword
refuses 2 "'2147483648' is no number of type int" set "$key/A" 2147483648 --type int
refuses 2 "'256' is no number of type byte" set "$key/A" 256 --type byte
refuses 2 "'7 ' is no number of type byte" set "$key/A" "7 " --type byte
refuses 2 "'' is no number of type dword" set "$key/A" "" --type dword
refuses 2 "'0x' is no number of type dword" set "$key/A" 0x --type dword
refuses 2 "'abc' is no row of hexadecimal bytes" set "$key/A" abc --type hex
refuses 2 "'0g' is no row of hexadecimal bytes" set "$key/A" 0g --type hex
refuses 2 "unknown type 'word'" set "$key/A" 1 --type word
refuses 2 "unknown type ''" get "$key/A" --type ""
refuses 2 "the value is missing" set "$key/A"
refuses 2 "only a value of type multi has more than one part" set "$key/A" 1 2
refuses 2 "the path 'A/B' has no hive in front, as \"LOCAL:\"" get A/B
refuses 2 "the path ':A' has no hive in front, as \"LOCAL:\"" list :A
refuses 1 "no value '$key/A'" get "$key/A"
refuses 1 "can't write '9:A/B'" set 9:A/B x
refuses 1 "no printer named 'Nobody'" list DATA: --printer Nobody
refuses 1 "'DATA:' is a printer's: it needs --printer" get DATA:X
refuses 1 "'DATA:' is a printer's: it needs --printer" list DATA:
refuses 1 "'Stock:' is a printer's: it needs --printer" set Stock:X 1
refuses 1 "no value 'LOCAL:vtdal test/X'" get "LOCAL:vtdal test/X"

run set "$key/List/b" 1 --type dword
run set "$key/List/a" x y --type multi
run set "$key/List/" the default
check "two words are no string" exits 2
run set "$key/List/" "the default"
run set "$key/List/c%2Fd%3A%25%09" "$(printf 'tab\there')"
run set "$key/List/long" --type hex "$(printf '%064d' 0)"
run set "$key/List/Sub%2Fkey/x" 1
run list "$key/List"
done_with "list"
check "list shows keys first, then values with type and content" prints \
  "Sub%2Fkey/" \
  "(default)       string  the default" \
  "a               multi   x, y" \
  "b               dword   1" \
  "c%2Fd%3A%25%09  string  tab\\x09here" \
  "long            binary  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ... (32 bytes)"
run get "$key/List/c%2Fd%3A%25%09"
check "a listed name can be asked for" prints "tab\\x09here"

# Nothing is lost in silence.

if [ -z "$runner" ]; then
  checks=$((checks + 1))
  if "$vtdal" --help >/dev/full 2>"$work/stderr"; then
    failures=$((failures + 1))
    echo "FAILED: output that can't be written is a success"
  fi
  check "output that can't be written is told" says "can't write the output"
fi

# Pictures.

make() { python3 "$here/vtdal_pictures.py" make "$1" "$work/$1"; }
pixels() { python3 "$here/vtdal_pictures.py" show "$1" >"$work/stdout"; }
# gives TEXT FILE ROW...: the picture in the file has these pixels.
gives() {
  local text=$1 file=$2
  shift 2
  check "$text leaves a picture" pixels "$file"
  check "$text gives the right pixels" prints "$@"
}
result=$work/result.bmp
for kind in four top-first eight-bit four-bit masks; do
  make "$kind"
  run stretch "$work/$kind" "$result" --size 2x2
  done_with "stretch of $kind"
  check "stretch prints nothing" prints_nothing
  gives "stretch of $kind" "$result" "ff0000 00ff00" "0000ff ffffff"
done
make one-bit
run stretch "$work/one-bit" "$result" --size=2x2
gives "stretch of one-bit" "$result" "00ff00 ff0000" "ff0000 00ff00"
make sixteen-bit
run stretch "$work/sixteen-bit" "$result" --size 1x1
gives "stretch of sixteen-bit" "$result" "1f0000"
run stretch "$work/four" "$result" --size 3x4
gives "stretch" "$result" "ff0000 ff0000 00ff00" "ff0000 ff0000 00ff00" "0000ff 0000ff ffffff" "0000ff 0000ff ffffff"
run stretch "$work/four" "$result" --size 1x2 --rect 1,0,1,2 --json
done_with "stretch --json"
check "its output is JSON" json
check "stretch --json tells the part" shows '"x": 1'
gives "stretch of a part" "$result" "00ff00" "ffffff"
run stretch "$work/top-first" "$result" --size 2x1 --rect 0,1,2,1
gives "stretch of the lower part" "$result" "0000ff ffffff"
make greys
run dither "$work/greys" "$result" --method none
done_with "dither"
check "dither prints nothing" prints_nothing
gives "dither without dots" "$result" "000000 ffffff ffffff"
run dither "$work/greys" "$result" --method ordered --size 2 --mirror --invert --json
done_with "dither --json"
check "its output is JSON" json
check "dither --json tells the flags" shows '"flags": 5'
gives "dither with flags" "$result" "ffffff 000000 ffffff"
run dither "$work/greys" "$result" --method ordered --size 2 --origin -1,0
gives "dither with an origin" "$result" "000000 ffffff ffffff"
run dither "$work/four" "$result" --mode palette --method none --colors 102030,Ffee00
gives "dither with colours" "$result" "102030 ffee00" "102030 ffee00"
run dither "$work/greys" "$result" --method ordered --size 2 --smooth
gives "dither --smooth" "$result" "7f7f7f 7f7f7f ffffff"

for option in "--method dots" "--mode cmyk" "--kernel stucki"; do
  # shellcheck disable=SC2086 # two words
  run dither "$work/four" "$result" $option
  check "dither $option is wrong usage" exits 2
  check "dither $option names the choices" grep -q "is none of ${option% *}'s: " "$work/stderr"
done
refuses 2 "'6' is none of --size's: 8, 4, 2" dither "$work/four" "$result" --method ordered --size 6
refuses 2 "--size belongs to the methods ordered and halftone" dither "$work/four" "$result" --method none --size 8
refuses 2 "'101' is no number for --red, -100 to 100" dither "$work/four" "$result" --red 101
refuses 2 "'20' is no number for --screen, 0 to 19" dither "$work/four" "$result" --screen 20
refuses 2 "'1' is no origin X,Y" dither "$work/four" "$result" --origin 1
for colors in "" 12345 1234567 12345g "$(printf '000000,%.0s' {1..16})000000"; do
  refuses 2 "'$colors' is no list of 1 to 16 colors as RRGGBB" dither "$work/four" "$result" --colors "$colors"
done
refuses 2 "'x.jpg' does not end with .bmp or .png" dither "$work/four" x.jpg
refuses 2 "'.png' does not end with .bmp or .png" dither "$work/four" .png
refuses 2 "--size is missing" stretch "$work/four" "$result"
for size in 0x1 1x0 10922x1 1x32768 2 2x 2x2x2 -1x2; do
  refuses 2 "'$size' is no size from 1x1 to 10921x32767" stretch "$work/four" "$result" "--size=$size"
done
for part in 0,0,0,1 0,0,3,1 2,0,1,1 0,2,1,1 1,1,1,2 0,0,1 -1,0,1,1; do
  refuses 1 "'$part' is no part X,Y,WIDTH,HEIGHT of a picture of 2 x 2" \
    stretch "$work/four" "$result" --size 1x1 "--rect=$part"
done
refuses 1 "can't open '$work/none.bmp'" dither "$work/none.bmp" "$result"
refuses 1 "can't write '$work/none/x.bmp'" dither "$work/four" "$work/none/x.bmp"
# is_refused KIND REASON: a file that is not taken for a picture.
is_refused() {
  make "$1"
  refuses 1 "can't read '$work/$1': $2" dither "$work/$1" "$result"
}
is_refused text "it is neither BMP nor PNG"
is_refused nothing "it is neither BMP nor PNG"
is_refused rle "its compression 1 is not known"
is_refused five-bit "it has 5 bits a pixel"
is_refused cut-off "the file is cut off"
is_refused head-only "the file is cut off"
is_refused far-bits "the file is cut off"
is_refused huge "its size is 2147483647 x 2147483647; 1 x 1 to 10921 x 32767 is possible"
is_refused upside "its size is 1 x 2147483648; 1 x 1 to 10921 x 32767 is possible"
is_refused empty "its size is 0 x 2; 1 x 1 to 10921 x 32767 is possible"
make wide
refuses 1 "its size is 10922 x 1; 10921 x 32767 is the largest" dither "$work/wide" "$result"
run stretch "$work/four" "$result" --size 10921x1
done_with "stretch to the widest picture"
run stretch "$result" "$result" --size 2x1
done_with "stretch of the widest picture"
if [ -n "$runner" ]; then
  make png
  refuses 1 "can't read '$work/png': a PNG can't be read on this system; use BMP" dither "$work/png" "$result"
  refuses 1 "a PNG can't be written on this system; use BMP" dither "$work/four" "$work/result.png"
else
  make png
  run stretch "$work/png" "$work/result.PNG" --size 2x2
  done_with "stretch of a PNG"
  gives "stretch of a PNG" "$work/result.PNG" "ff0000 00ff00" "0000ff ffffff"
  make png-alpha
  run stretch "$work/png-alpha" "$result" --size 2x1
  gives "stretch of a PNG that is see-through" "$result" "ff0000 ffffff"
  make png-bits
  run stretch "$work/png-bits" "$result" --size 2x1
  gives "stretch of a PNG of one bit" "$result" "000000 ffffff"
  is_refused png-huge "the file is cut off"
  is_refused png-wide "its size is 10922 x 1; 1 x 1 to 10921 x 32767 is possible"
  make png-cut-off
  run dither "$work/png-cut-off" "$result"
  check "a PNG that is cut off is refused" exits 1
  check "and its name told" grep -q "^vtdal: can't read '$work/png-cut-off': " "$work/stderr"
fi

# Printers.

run printers
done_with "printers"
refuses 1 "no printer named 'Nobody'" caps Nobody
refuses 1 "no printer named 'Nobody'" devmode Nobody
refuses 1 "no printer named 'Nobody'" remove Nobody
refuses 1 "no printer named ''" caps ""

finish() {
  echo "$checks checks, $failures failed"
  [ "$failures" -eq 0 ]
  exit
}

if [ -n "$runner" ]; then
  $runner reg.exe delete 'HKCU\SOFTWARE\vtdal test' /f >/dev/null 2>&1
  refuses 1 "the driver 'No Such Driver' is not installed" \
    add "vtdal test" --driver "No Such Driver" --port FILE: --module "$module"
  finish
fi

# The driver without factory settings, so that a printer begins with nothing.
shipped=$module
module=$work/plain/${shipped##*/}
mkdir "$work/plain"
cp -p "$shipped" "${shipped%/*}/ostvt.dat" "${shipped%/*}"/*.ddz "$work/plain/"

name='Ж, "日本" 😀/100%'
check "a store without printers lists nothing" prints_nothing
run add "$name" --driver "Ostrel D4-203" --port "file:$work/labels.prn" --module "$module"
done_with "add"
check "add prints nothing" prints_nothing
run add "Second" --driver "Ostrel D4-203" --port "socket://host:6160" --share Two --module "$module"
done_with "add of a second printer"
run printers
done_with "printers"
check "printers has titles" grep -qx 'Printer  *Driver  *Port' "$work/stdout"
check "printers shows name, driver and port" shows "$name  Ostrel D4-203  file:$work/labels.prn"
blanks=${name//?/ }
check "its columns stand below each other" shows "Second${blanks:6}  Ostrel D4-203  socket://host:6160"
check "it has a line for each printer" test "$(wc -l <"$work/stdout")" = 3
refuses 1 "there is a printer named 'second' already" add second --driver D --port P
refuses 1 "a printer needs a name" add "" --driver D --port P
for port in P cups: file: socket:// socket://:6160 socket://host socket://host: \
  socket://host:0 socket://host:65536 socket://host:6x; do
  refuses 1 "'$port' is no port: cups:QUEUE, socket://HOST:PORT or file:PATH" \
    add Third --driver "Ostrel D4-203" --port "$port" --module "$module"
done
for port in cups:labels socket://host:65535 "socket://[::1]:9100" file:x; do
  run add Third --driver "Ostrel D4-203" --port "$port" --module "$module"
  done_with "add with the port $port"
  run remove Third
done
drivers="PRINT:Environments/Linux x64/Drivers/Version-3"
run list "$drivers"
cp "$work/stdout" "$work/drivers"
refuses 1 "no model named 'Nonsense'" \
  add Third --driver Nonsense --port file:x --module "$module"
refuses 1 "no printer named 'Third'" remove Third
run list "$drivers"
check "a driver without a model is forgotten" diff "$work/drivers" "$work/stdout"
run list "$drivers/Ostrel D4-203"
cp "$work/stdout" "$work/drivers"
mkdir "$work/elsewhere"
cp "$module" "$work/elsewhere/"
refuses 1 "can't add 'a\b': the name is no printer's name, or the store can't be written" \
  add 'a\b' --driver "Ostrel D4-203" --port file:x --directory "$work/elsewhere"
run list "$drivers/Ostrel D4-203"
check "a known driver's record stays as it is" diff "$work/drivers" "$work/stdout"
refuses 1 "the name has 221 characters; 220 are allowed" add "$(printf '%0221d' 0)" --driver D --port P
refuses 1 "can't add 'a\\b': the name is no printer's name, or the store can't be written" \
  add 'a\b' --driver "Ostrel D4-203" --port file:x --module "$module"
refuses 1 "no module at '/nowhere/libostvt.so'; name it by --module" \
  add Third --driver "New Model" --port file:x --module /nowhere/libostvt.so

export OSTVT_MODULE=$module
run caps "$name"
done_with "caps"
check "caps has a row for every index" test "$(grep -c '^DC_' "$work/stdout")" = 33
check "caps shows resolutions" shows "203 x 203 dpi"
check "caps shows what the driver doesn't answer" grep -qx 'DC_MANUFACTURER *-' "$work/stdout"
check "caps shows extents in millimetres" grep -Eqx 'DC_MINEXTENT +0x[0-9A-F]{8}  [0-9.]+ x [0-9.]+ mm' "$work/stdout"
run caps "$name" --json
done_with "caps --json"
check "its output is JSON" json
cp "$work/stdout" "$work/caps"
check "its values are the driver's" python3 "$here/vtdal_json.py" caps "$work/caps"
run devmode "$name" --hex
done_with "devmode --hex"
cp "$work/stdout" "$work/hex"
run devmode "$name" --json
done_with "devmode --json"
check "its output is JSON" json
cp "$work/stdout" "$work/devmode"
check "its values are those of the block" python3 "$here/vtdal_json.py" devmode "$work/devmode" "$work/hex"
run devmode "$name"
done_with "devmode"
check "devmode shows the public part" grep -Eqx 'dmOrientation +1 +portrait' "$work/stdout"
check "devmode shows lengths in millimetres" grep -Eqx 'dmPaperLength +[0-9]+ +[0-9.]+ mm' "$work/stdout"
check "devmode shows the halftone block" grep -Eqx 'Signature +"MDTN"' "$work/stdout"
check "devmode shows the model record" grep -Eqx 'feedRate +1000' "$work/stdout"
run devmode second --json
check "a printer is found in any case" exits 0

# Stock.

run stock --help
done_with "stock --help"
check "stock --help shows its usage" shows "Usage: vtdal stock list"
refuses 2 "too few arguments" stock list
refuses 2 "too few arguments" stock show "$name"
refuses 2 "too few arguments" stock add "$name" Shelf
refuses 2 "unexpected argument 'x'" stock remove "$name" Shelf x
refuses 2 "unknown action 'paint'" stock paint "$name"
refuses 2 "add prints nothing, so it takes no --json" stock add "$name" Shelf 50x25mm --json
refuses 2 "--left goes with add only" stock list "$name" --left 1mm
refuses 1 "no printer named 'Nobody'" stock list Nobody
run stock list "$name"
done_with "stock list"
check "a new printer has the user form" prints \
  "Stock  Number  Size               Kind" \
  "USER   256     104.14 x 152.4 mm  user form"
run stock add "$name" Shelf 100mm x 50mm
done_with "stock add"
check "stock add prints nothing" prints_nothing
run stock add "$name" "Ж 日本" "4x6 in" --left 2mm --right=0mm --top "1.5 mm" --bottom 10mils
done_with "stock add with margins"
run stock list "$name"
check "stock list shows what was added" prints \
  "Stock  Number  Size               Kind" \
  "USER   256     104.14 x 152.4 mm  user form" \
  "Ж 日本   257     101.6 x 152.4 mm   removable" \
  "Shelf  258     100 x 50 mm        removable"
run get "LOCAL:Paper Sizes/Form 02:: Data"
check "it is stored as seven numbers" prints \
  "b4 7c 01 00 50 c3 00 00 f6 04 00 00 f6 04 00 00 00 00 00 00 00 00 00 00 04 00 00 00"
run caps second --json
check "programs see it" shows '"Shelf"'
run stock show "$name" "Ж 日本"
done_with "stock show"
check "stock show shows margins" prints \
  "Name           Ж 日本" \
  "Number         257" \
  "Size           101.6 x 152.4 mm" \
  "Printable      99.6 x 150.646 mm" \
  "Left margin    2 mm" \
  "Right margin   0 mm" \
  "Top margin     1.5 mm" \
  "Bottom margin  0.254 mm" \
  "Kind           removable"
run stock show "$name" Shelf --json
done_with "stock show --json"
check "its output is JSON" json
check "its lengths are millimetres" shows '"leftMarginMm": 1.27,'
run stock list "$name" --json
done_with "stock list --json"
check "its output is JSON" json
check "stock list --json has every stock" test "$(grep -c '"name"' "$work/stdout")" = 3
for size in 5 5x "5 x 5" "100mm x -5mm" x "5mm x 5 feet" "1.mm x 5 mm" "12345678mm x 5mm"; do
  refuses 2 "'$size' is no size, as \"100mm x 50mm\"" stock add "$name" New "$size"
done
refuses 2 "'2' is no length, as \"2mm\"" stock add "$name" New 50x25mm --top 2
range="is out of the printer's range, 19.05 x 6.35 mm to 118.11 x 990.6 mm"
refuses 1 "1000 x 25 mm $range" stock add "$name" New 1000mm x 25mm
refuses 1 "50 x 1 mm $range" stock add "$name" New 50mm x 1mm
refuses 1 "the margins leave nothing to print on" stock add "$name" New 50x25mm --top 25mm
refuses 1 "a stock needs a name" stock add "$name" "" 50x25mm
refuses 1 "the name has 65 characters; 64 are allowed" \
  stock add "$name" "$(printf '%065d' 0)" 50x25mm
refuses 1 "'user defined' is the user form's name" stock add "$name" "user defined" 50x25mm
refuses 1 "there is a stock named 'Shelf' already" stock add "$name" Shelf 50x25mm
refuses 1 "the stock 'USER' can't be removed" stock remove "$name" USER
refuses 1 "no stock named 'shelf'" stock remove "$name" shelf
refuses 1 "no stock named 'New'" stock show "$name" New
run stock remove "$name" "Ж 日本"
done_with "stock remove"
check "stock remove prints nothing" prints_nothing
run stock remove "$name" Shelf
run stock list "$name"
check "what was removed is gone" test "$(wc -l <"$work/stdout")" = 2

# Presets.

run presets --help
done_with "presets --help"
check "presets --help shows its usage" shows "Usage: vtdal presets list"
refuses 2 "too few arguments" presets list
refuses 2 "unknown action 'show'" presets show "$name"
refuses 1 "no printer named 'Nobody'" presets list Nobody
run presets list "$name"
done_with "presets list"
check "a printer without presets lists nothing" prints_nothing
block=$(cut -d'|' -f1 "$work/hex" | cut -c10- | tr -d ' \n')
preset() { # NUMBER NAME DESCRIPTION BLOCK
  run set "Presets:Preset 0$1:: Name" "$2" --printer "$name"
  run set "Presets:Preset 0$1:: Description" "$3" --printer "$name"
  run set "Presets:Preset 0$1:: DEVMODE" "$4" --type hex --printer "$name"
  run set "Presets:Total" "$1" --type dword --printer "$name"
}
preset 1 "Ж wide" "for shelves" "${block:0:152}0200${block:156}"
preset 2 "As it is" "" "$block"
run presets list "$name"
done_with "presets list"
check "presets list shows the presets and which is in force" prints \
  "   Preset    Size              Resolution     Orientation  Description" \
  "*  As it is  104.1 x 152.4 mm  203 x 203 dpi  portrait" \
  "   Ж wide    104.1 x 152.4 mm  203 x 203 dpi  landscape    for shelves"
run presets list "$name" --json
done_with "presets list --json"
check "its output is JSON" json
check "it says which is in force" test "$(grep -c '"isDefault": true' "$work/stdout")" = 1
run set "Presets:Total" 0 --type dword --printer "$name"

# Encodings.

run encodings --help
done_with "encodings --help"
check "encodings --help shows its usage" shows "Usage: vtdal encodings"
refuses 2 "too few arguments" encodings
refuses 1 "no printer named 'Nobody'" encodings Nobody
run encodings "$name"
done_with "encodings"
check "encodings names the system's page first" \
  grep -Eqx '1252 +0 +Western \(ANSI\)' <(sed -n 2p "$work/stdout")
check "encodings shows one without a character set" \
  grep -Eqx 'Ostrel-Symbols +- +Western;Ostrel Symbols' "$work/stdout"
sets="DATA:Custom Character Sets/My Ж set"
run set "$sets/Name" "My Ж set" --printer "$name"
run set "$sets/Source Code Page" 850 --type dword --printer "$name"
run set "$sets/Encoding Table" "00 00 41 00 ac 20" --type hex --printer "$name"
run set "Settings:Fonts/Encoding" 850 UTF-8 1250 --type multi --printer "$name"
run encodings "$name"
check "encodings shows the user's order and sets" prints \
  "Encoding  Set  Description" \
  "850       0    Western (OEM)" \
  "UTF-8     -    UTF-8 (Unicode)" \
  "1250      238  Central European (ANSI)" \
  "" \
  "Character set  Page  Codes" \
  "My Ж set       850   2"
run encodings "$name" --json
done_with "encodings --json"
cp "$work/stdout" "$work/encodings"
check "its values are the store's and the model's" \
  python3 "$here/vtdal_json.py" encodings "$work/encodings"
run set "Settings:Fonts/Encoding" --type multi --printer "$name"

# Fonts.

run fonts --help
done_with "fonts --help"
check "fonts --help shows its usage" shows "Usage: vtdal fonts"
refuses 2 "unknown action 'show'" fonts show "$name"
refuses 2 "too few arguments" fonts list
refuses 2 "too few arguments" fonts export "$name"
refuses 2 "unexpected argument 'x'" fonts list "$name" x
refuses 2 "export prints nothing, so it takes no --json" fonts export "$name" x --json
refuses 1 "no printer named 'Nobody'" fonts list Nobody
refuses 1 "can't read '$work/no fonts'" fonts import "$name" "$work/no fonts"
refuses 1 "can't write '$work/no folder/x'" fonts export "$name" "$work/no folder/x"
run fonts list "$name"
done_with "fonts list"
check "fonts list shows the resident fonts" \
  grep -Eqx 'resident +Sans Bold +group Scalable, encodingClass Scalable' "$work/stdout"
printf "<driver version='6.6'>\r\n\r\n%s" "<font type='Bar Code'>
Name=Ж code
</font>
<font type='Alias'>
AliasName=Plain
PrinterFont=Sans
HorizontalRatio=87.5%
</font>
<font type='Substitution' model='Nobody'>
FontName=Arial
FullName=Arial
PrinterFont=Sans
</font>
<font type='Optional'>
FontName=Serif
FontGroup=FontGroup:Card.pfg
Provider=Ostrel Font Card
Location=E
</font>
<font type='Downloaded'>
FontName=Verdana
FullName=Verdana Bold
Type=TrueType
</font>
" >"$work/fonts.sds"
run fonts import "$name" "$work/fonts.sds"
done_with "fonts import"
check "fonts import counts what it took in" prints \
  "1 bar codes" "1 aliases" "1 downloaded fonts" "1 optional fonts"
run fonts list "$name"
check "fonts list shows an alias" \
  grep -Eqx 'alias +Plain +printerFont Sans, horizontalRatio 87.5%, verticalRatio 100%, nominalWidth 100%' "$work/stdout"
check "fonts list shows a bar code" grep -Eqx 'barcode +Ж code +symbology Code39, .*resolution 203' "$work/stdout"
check "an optional font brings its group" grep -Eqx 'resident +Serif Bold +group Card, .*' "$work/stdout"
run fonts list "$name" --json
done_with "fonts list --json"
check "its output is JSON" json
run fonts export "$name" "$work/export.sds"
done_with "fonts export"
check "fonts export prints nothing" prints_nothing
check "the export has a record for each font" test "$(grep -c "^<font type='" "$work/export.sds")" = 4
run fonts import second "$work/export.sds" --json
done_with "fonts import --json"
check "fonts import --json counts every kind" prints "{" '  "barCodes": 1,' '  "rfid": 0,' \
  '  "aliases": 1,' '  "substitutions": 0,' '  "downloaded": 1,' '  "optional": 1' "}"
run fonts export second "$work/second.sds"
check "what was exported is imported whole" diff "$work/export.sds" "$work/second.sds"
printf 'SBF1\377\377\377\377' >"$work/fonts.sbf"
run fonts import "$name" "$work/fonts.sbf" --json
check "a damaged binary file holds no bar codes" prints "{" '  "barCodes": 0' "}"

# Driver options.

run options --help
done_with "options --help"
check "options --help shows its usage" shows "Usage: vtdal options"
refuses 2 "too few arguments" options list
refuses 2 "too few arguments" options get "$name"
refuses 2 "too few arguments" options set "$name" "Logging/Logging"
refuses 2 "unexpected argument 'x'" options list "$name" x
refuses 2 "unknown action 'show'" options show "$name"
refuses 2 "no driver option named 'Logging'" options get "$name" Logging
refuses 2 "set prints nothing, so it takes no --json" options set "$name" Logging/Logging on --json
refuses 1 "no printer named 'Nobody'" options list Nobody
run options list "$name"
done_with "options list"
check "options list has a row for every option" test "$(wc -l <"$work/stdout")" = 26
check "options list shows defaults" grep -Eqx 'Status/Write Timeout +30000 +30000' "$work/stdout"
# sets OPTION VALUE SHOWN STORED: this option, set so, is shown and stored so.
sets() {
  run options set "$name" "$1" "$2"
  done_with "options set $1 $2"
  check "options set prints nothing" prints_nothing
  run options get "$name" "$1"
  check "'$1' reads as it was set" prints "$3"
  run get "SETTINGS:$1" --printer "$name"
  check "'$1' is stored in its form" prints "$4"
}
sets "Logging/Logging" on on 01
sets "logging/logging" No off 00
sets "Status/Query Interval" 5000 5000 "88 13 00 00"
sets "Specifications/Tracking" -1 -1 "ff ff ff ff"
sets "Function Character" "§" "§" "§"
sets "Logging/Directory" "C:\\Ж" "C:\\Ж" "C:\\Ж"
refuses 2 "'maybe' is neither on nor off" options set "$name" Logging/Logging maybe
refuses 2 "'1x' is no number" options set "$name" "Status/Query Interval" 1x
refuses 2 "the number '2147483647' is too large" options set "$name" "Status/Query Interval" 2147483647
refuses 2 "'ab' is not one character" options set "$name" "Function Character" ab
run options get "$name" "status/query interval" --json
done_with "options get --json"
check "options get --json gives a number" prints "{" '  "Status/Query Interval": 5000' "}"
run options list "$name" --json
done_with "options list --json"
check "its output is JSON" json
check "options list --json gives flags and texts" shows '"Data Fonts/Office Compatibility": true'
run options set "$name" "Disable Copies Limit" on
run caps "$name" --json
check "an option that the model's figures depend on counts at once" shows '"result": 32767'
run options set "$name" "Disable Copies Limit" off

# All settings.

run settings --help
done_with "settings --help"
check "settings --help shows its usage" shows "Usage: vtdal settings"
refuses 2 "too few arguments" settings export "$name"
refuses 2 "too few arguments" settings reset
refuses 2 "unexpected argument 'x'" settings reset "$name" x
refuses 2 "unknown action 'save'" settings save "$name" x
refuses 2 "unknown section 'paper'" settings export "$name" x --sections stock,paper
refuses 2 "unknown section ''" settings export "$name" x --sections ""
refuses 2 "reset prints nothing, so it takes no --json" settings reset "$name" --json
refuses 1 "no printer named 'Nobody'" settings export Nobody "$work/x"
refuses 1 "no printer named 'Nobody'" settings reset Nobody
refuses 1 "can't read '$work/no settings'" settings import "$name" "$work/no settings"
refuses 1 "can't write '$work/no folder/x'" settings export "$name" "$work/no folder/x"
printf '\357\273\277%s' "<stock>
Name=Ж shelf
</stock>
<stock model='Nobody'>
Name=Other
</stock>
<font type='Alias'>
AliasName=Thin
PrinterFont=Sans
</font>
<options model='Ostrel*'>
[DATA:\Settings\Status]
\"Query Interval\"=hex:c4,09,00,00
</options>" >"$work/settings.sds"
refuses 1 "nothing in '$work/settings.sds' is for '$name'" settings import "$name" "$work/settings.sds" --sections presets
run settings import "$name" "$work/settings.sds" --sections stock,aliases
done_with "settings import"
check "settings import counts what it took in" prints "1 label sizes" "1 aliases"
run settings import "$name" "$work/settings.sds" --json
done_with "settings import --json"
check "settings import --json counts every section" prints "{" '  "stock": 1,' '  "presets": 0,' '  "dataFonts": 0,' \
  '  "aliasFonts": 1,' '  "substitutions": 0,' '  "downloadedFonts": 0,' '  "optionalFonts": 0,' '  "options": true,' \
  '  "defaultDevMode": false,' '  "network": false' "}"
run options get "$name" "Status/Query Interval"
check "settings import sets options" prints 2500
run stock list "$name"
check "settings import adds label sizes" shows "Ж shelf"
run settings export "$name" "$work/export.sds" --sections stock,aliases
done_with "settings export"
check "settings export counts too" shows "label sizes"
check "settings export writes the chosen sections" test "$(grep -c '^<font\|^<options\|^<preset' "$work/export.sds")" = \
  "$(grep -c "^<font type='Alias'>" "$work/export.sds")"
run settings export "$name" "$work/first.sds"
done_with "settings export of all"
run settings import "$name" "$work/first.sds" --sections stock,data-fonts,aliases,substitutions,downloaded,optional,options,devmode
done_with "settings import of all but presets"
run settings export "$name" "$work/second.sds"
check "what was exported is imported whole" diff "$work/first.sds" "$work/second.sds"
head -c 70000000 /dev/zero >"$work/zeros"
refuses 1 "nothing in '$work/zeros' is for '$name'" settings import "$name" "$work/zeros"
cp "$module" "$work/"
printf '<stock>\nName=Factory\n</stock>\n' >"$work/Defaults.sds"
run settings reset "$name" --sections stock,options --module "$work/${module##*/}"
done_with "settings reset"
check "settings reset prints nothing" prints_nothing
run options get "$name" "Status/Query Interval"
check "settings reset brings options back" prints 1000
run stock list "$name"
check "settings reset takes in what lies beside the module" shows "Factory"
check "settings reset removes label sizes" test "$(grep -c 'Ж shelf' "$work/stdout")" = 0
run settings import "$name" "$here/../../data/install/Defaults.sds"
done_with "settings import of the factory's file"

# Network settings.

run network --help
done_with "network --help"
check "network --help shows its usage" shows "Usage: vtdal network"
refuses 2 "too few arguments" network get
refuses 2 "too few arguments" network set "$name" port
refuses 2 "unexpected argument 'x'" network get "$name" port x
refuses 2 "unknown action 'show'" network show "$name"
refuses 2 "no setting 'ports'" network get "$name" ports
refuses 2 "set prints nothing, so it takes no --json" network set "$name" port 1 --json
refuses 1 "no printer named 'Nobody'" network get Nobody
run network get "$name"
done_with "network get"
check "network get has a row for every setting" test "$(wc -l <"$work/stdout")" = 8
run network get "$name" --json
check "network get --json gives all defaults" prints "{" '  "communication": true,' '  "tcp": true,' \
  '  "port": 6160,' '  "timeout": 1000,' '  "retries": 2,' '  "address-override": false,' \
  '  "address": ""' "}"
# stores_network SETTING VALUE SHOWN KEY STORED: this setting, set so, is shown and stored so.
stores_network() {
  run network set "$name" "$1" "$2" --module /nowhere/module
  check "network set $1 $2 succeeds" exits 0
  check "network set prints nothing" prints_nothing
  run network get "$name" "$1"
  check "'$1' reads as it was set" prints "$3"
  run get "NETWORK:$4" --printer "$name"
  check "'$1' is stored in its form" prints "$5"
}
stores_network communication off off "Network Communication" 00
stores_network tcp No off "TCP Enabled" 00
stores_network PORT 0x1811 6161 "TCP Port" "11 18 00 00"
stores_network timeout 2500 2500 "Connection Timeout" "c4 09 00 00"
stores_network retries 0 0 "Connection Retries" "00 00 00 00"
stores_network address-override on on "Server Address Override" 01
stores_network address "bür.o" "bür.o" "Server Address" "bür.o"
run network set "$name" communication off --module /nowhere/module
check "network set tells that nobody restarts the network" \
  says "the port monitor can't be reached; it takes the setting when it starts next"
run network set "$name" timeout 2500 --module /nowhere/module
done_with "network set of what restarts nothing"
refuses 2 "'65536' is not from 1 to 65535" network set "$name" port 65536
refuses 2 "'-1' is not from 0 to 2000000000" network set "$name" retries -1
refuses 2 "'maybe' is neither on nor off" network set "$name" tcp maybe

# Talking to the printer.

for command in send command query status; do
  run "$command" --help
  done_with "$command --help"
  check "$command --help shows its usage" shows "Usage: vtdal $command"
done
refuses 2 "too few arguments" send "$name"
refuses 2 "no command 'jump'" command "$name" jump
refuses 2 "'a\"b' is no variable's name" query "$name" 'a"b'
refuses 1 "no printer named 'Nobody'" status Nobody
refuses 1 "can't read '$work/none'" send "$name" "$work/none"
refuses 1 "can't read '$work'" send "$name" "$work"
# A file of the system's that states a size of a page and holds less.
refuses 1 "can't read '/sys/kernel/mm/transparent_hugepage/enabled'" \
  send "$name" /sys/kernel/mm/transparent_hugepage/enabled
# Files that state no size, and hold something or are devices.
for path in /proc/version /dev/zero /dev/null; do
  refuses 1 "can't read '$path'" send "$name" "$path"
done
truncate -s 2147483648 "$work/huge.prn"
refuses 1 "'$work/huge.prn' is larger than 2 GiB" send "$name" "$work/huge.prn"
rm "$work/huge.prn"
rm -f "$work/labels.prn"
printf '! 0 200 200 10 1\r\nPRINT\r\n' >"$work/label.prn"
run send "$name" "$work/label.prn"
done_with "send"
check "send passes the file on as it is" cmp "$work/label.prn" "$work/labels.prn"
run command "$name" cut
done_with "command cut"
printf '! 0 0 0 0 1\r\nCUT\r\nPRINT\r\n' >>"$work/label.prn"
check "command sends its lines" cmp "$work/label.prn" "$work/labels.prn"
head -c 3000000 /dev/zero >"$work/long.prn"
run send "$name" "$work/long.prn"
check "send of a long file succeeds" exits 0
check "send of a long file tells how far it is" says "60 % sent"
check "send of a long file tells its end" says "100 % sent"
rm -f "$work/labels.prn" "$work/long.prn"
refuses 1 "the printer '$name' has no variables" query "$name" appl.version
run command "$name" reset
check "a command that the model lacks fails" says "the printer '$name' doesn't know this command"
refuses 1 "the status of '$name' is unknown" status "$name" --module /nowhere/module

mkdir "$work/driver"
cp "$monitor" "$work/driver/"
python3 - "$work/port" "$work/received" <<'PRINTER' &
import os, socket, sys

listener = socket.socket()
listener.bind(("127.0.0.1", 0))
listener.listen(5)
with open(sys.argv[1] + ".new", "w") as port:
    port.write(str(listener.getsockname()[1]))
os.rename(sys.argv[1] + ".new", sys.argv[1])
while True:
    connection, _ = listener.accept()
    data = b""
    while piece := connection.recv(4096):
        data += piece
        if data.endswith(b'! U1 getvar "appl.version"\r\n'):
            connection.sendall(b'"2.5"')
        if data.endswith(b"\x1bh\x1bi"):
            connection.sendall(b"\x02\x00")
    with open(sys.argv[2], "ab") as received:
        received.write(data)
    connection.close()
PRINTER
printer=$!
for _ in $(seq 100); do [ -s "$work/port" ] || sleep 0.1; done
run add Asked --driver "Ostrel M4 Mobile" --port "socket://127.0.0.1:$(cat "$work/port")" --module "$module"
done_with "add of a socket's printer"
export OSTVT_MODULE_DIR=$work/driver
run query Asked appl.version --module "$work/driver/module"
done_with "query"
check "query prints the variable" prints "2.5"
run status Asked --module "$work/driver/module"
done_with "status"
check "status tells the condition" shows "65537"
check "status shows the answer" shows "02 00"
refuses 1 "the printer 'Asked' doesn't answer" query Asked appl.name --module "$work/driver/module"
# Two at once: each gets the answer to its own question, although the printer serves one at a time.
for turn in 1 2 3; do
  "$vtdal" query Asked appl.version --module "$work/driver/module" >"$work/first" 2>&1 &
  first=$!
  "$vtdal" status Asked --module "$work/driver/module" >"$work/second" 2>&1 &
  second=$!
  wait "$first"
  wait "$second"
  check "a query beside a status gets its own answer ($turn)" grep -qx 2.5 "$work/first"
  check "a status beside a query gets its own answer ($turn)" grep -q "65537" "$work/second"
  check "it has the status's bytes ($turn)" grep -q "02 00" "$work/second"
done
check "no brackets reach the printer" bash -c "! grep -q xpml '$work/received'"
kill "$printer"
wait "$printer" 2>/dev/null
refuses 1 "can't reach the printer 'Asked'" command Asked cut
refuses 1 "the status of 'Asked' is unknown" status Asked --module "$work/driver/module"
unset OSTVT_MODULE_DIR
refuses 1 "can't ask the printer 'Asked': there is no port monitor" query Asked appl.version --module /nowhere/module
# A printer of another machine, whose monitor nobody can reach: one line, and the job goes on.
missed="the port monitor of the print server doesn't answer for 'Asked'; going on with this machine's settings"
run set "PRINT:Printers/Asked/Port" '\\server\labels' --type string
check "the printer becomes another machine's" exits 0
run list "NETWORK:" --printer Asked
before=$(cat "$work/stdout")
run command Asked cut --module /nowhere/module
check "the missed monitor is told" says "$missed"
check "it is told once" test "$(grep -c "port monitor" "$work/stderr")" = 1
run list "NETWORK:" --printer Asked
check "no network setting has changed" test "$before" = "$(cat "$work/stdout")"
run network get Asked communication
check "communication is still on" prints on
run network set Asked communication off --module /nowhere/module
run command Asked cut --module /nowhere/module
check "who turned communication off is told nothing" bash -c "! grep -q 'port monitor' '$work/stderr'"

# What a client edits goes to its server, whose store the port monitor keeps for this test.

run network set Asked communication on --module /nowhere/module
export VTNETMON_SERVER=server
there="1:SOFTWARE/Vantrel/Network Monitor/Servers/server/2/SOFTWARE/Vantrel/Drivers"
theirs="1:SOFTWARE/Vantrel/Network Monitor/Servers/server/2/SYSTEM/CurrentControlSet/Control/Print/Printers/Asked"
theirs=$theirs/PrinterDriverData/Settings
near=$work/driver/module
# server_has TEXT PATH VALUE
server_has() {
  run get "$2"
  check "$1" prints "$3"
}
run set "$theirs/Status/Query Interval" --type hex 88130000
run stock add Asked Shelf 80x50mm --module "$near"
done_with "stock add on a client"
server_has "a stock that was added on a client reaches the server" "$there/Paper Sizes/Form 01:: Name" Shelf
run options get Asked "Status/Query Interval"
check "the client has what the server had" prints 5000
run set "$theirs/Status/Query Interval" --type hex 70170000
run options set Asked "Status/Write Timeout" 20000 --module "$near"
done_with "options set on a client"
server_has "an option that was set on a client reaches the server" "$theirs/Status/Write Timeout" "20 4e 00 00"
server_has "what the server changed before stays" "$theirs/Status/Query Interval" "70 17 00 00"
run fonts import Asked "$work/fonts.sds" --module "$near"
done_with "fonts import on a client"
run list "${theirs%/*}"
check "fonts that were imported on a client reach the server" shows "Fonts/"
run settings import Asked "$work/settings.sds" --sections stock,options --module "$near"
done_with "settings import on a client"
server_has "settings that were imported on a client reach the server" "$theirs/Status/Query Interval" "c4 09 00 00"
run stock remove Asked Shelf --module "$near"
done_with "stock remove on a client"
server_has "a stock that was removed on a client is gone on the server" "$there/Paper Sizes/Total" 1
# refused_by_server ARGUMENT...: this edit is made, but only here.
refused_by_server() {
  run "$@" --module /nowhere/module
  check "'$*' without the server's monitor fails" exits 1
  check "'$*' tells that the monitor is missed" says "$missed"
  check "'$*' tells that the server hasn't got the change" \
    says "the print server doesn't take the change of 'Asked'; its own settings come back when it answers"
  check "'$*' tells each once" test "$(wc -l <"$work/stderr")" = 2
}
refused_by_server stock add Asked Other 80x50mm
run stock list Asked
check "the change is on this machine" shows Other
refused_by_server options set Asked "Status/Write Timeout" 10000
refused_by_server fonts import Asked "$work/fonts.sds"
refused_by_server settings import Asked "$work/settings.sds" --sections stock
run stock show Asked Other --module "$near"
done_with "a command that changes nothing"
run stock add Asked Third 80x50mm --module "$near"
done_with "an edit when the server answers again"
server_has "it reaches the server" "$there/Paper Sizes/Total" 2
unset VTNETMON_SERVER
run remove Asked
done_with "remove of a socket's printer"

# Which module is asked.

refuses 1 "can't load the driver's module '$work/stdout'" caps "$name" --module "$work/stdout"
unset OSTVT_MODULE

run caps "$name" --json
done_with "caps with the installed module"
check "the printer's own module is asked" shows "\"module\": \"$(realpath "$module")\""
refuses 1 "no module at '/nowhere'" caps "$name" --module /nowhere
OSTVT_MODULE=/nowhere refuses 1 "no module at '/nowhere'" devmode "$name"
other=$(realpath "$(ldd "$vtdal" | awk '$1 ~ /^libc\.so/ { print $3 }')")
refuses 1 "'$other' is not this driver's module" caps "$name" --module "$other"

# Settings of a printer.

run set DATA:Test/A 5 --type dword --printer second
done_with "set with a printer"
run get SETTINGS:X --printer Second
check "another alias is another key" exits 1
run get "PRINT:Printers/Second/PrinterDriverData/Test/A"
check "it is below the printer" prints 5

run remove Second
done_with "remove"
check "remove prints nothing" prints_nothing
refuses 1 "no printer named 'Second'" remove Second
refuses 1 "no value 'PRINT:Printers/Second/PrinterDriverData/Test/A'" \
  get "PRINT:Printers/Second/PrinterDriverData/Test/A"

# What a new printer begins with.

run add Made --driver "Ostrel D4-203" --port file:x --module "$shipped"
done_with "add with factory settings beside the module"
run stock list Made
check "a new printer gets the factory's label sizes" shows "4 x 6 in"
run fonts list Made
check "a new printer gets the factory's fonts" shows "barcode   Code 39"
run remove Made

OSTVT_STORE_DIR=/dev/null/store refuses 1 \
  "can't make the driver 'D' known: the store can't be written, or the name is no driver's name" \
  add Third --driver D --port file:x --module "$module"
finish
