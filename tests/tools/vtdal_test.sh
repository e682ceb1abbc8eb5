#!/usr/bin/env bash
# Tests the command-line tool: vtdal_test.sh VTDAL MODULE [RUNNER]. With a runner (Windows programs)
# the spooler is that of the runner's system, so that printers are only asked for, not made.
set -u
vtdal=$1
module=$2
runner=${3:-}
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8
unset OSTVT_MODULE
checks=0
failures=0

check() { # TEXT COMMAND...
  local text=$1
  shift
  checks=$((checks + 1))
  if ! "$@" >"$work/output" 2>&1; then
    failures=$((failures + 1))
    echo "FAILED: $text"
    sed 's/^/    /' "$work/output"
  fi
}

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
for command in printers add remove caps devmode get set list; do
  check "--help names $command" shows "  $command "
done
for command in printers add remove caps devmode get set list; do
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

OSTVT_STORE_DIR=/dev/null/store refuses 1 \
  "can't make the driver 'D' known: the store can't be written, or the name is no driver's name" \
  add Third --driver D --port file:x --module "$module"
finish
