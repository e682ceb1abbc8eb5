#!/usr/bin/env bash
# Tests the language modules and the help as they ship, and what checks them: language_test.sh ROOT ARCHIVES
set -u
. "$(dirname "$0")/checks.sh"
root=$1
archives=$2
tools=$root/tools/language

# What ships.

mkdir -p "$work/base" "$work/ost"
check "the base archive has its modules and the sample label" \
  unzip -q "$archives/vt#base.ddz" 'base-r*' LabelSample.bmp -d "$work/base"
check "the family archive has its modules" unzip -q "$archives/vt#ost.ddz" 'ost-r*' -d "$work/ost"
check "the modules that ship have no mistakes" "$tools/check" "$work" "$root"
check "the sample label is the drawn one" cmp "$work/base/LabelSample.bmp" "$root/data/language/bitmaps/LabelSample.bmp"
check "the pictures are as drawn" "$root/tools/draw-pictures" --check
for language in enu deu; do
  check "the help file for $language has every page" diff \
    <(cd "$root/data/help/$language" && find base -name '*.html' | sort | sed 's|^|/|') \
    <(chmls list "$archives/ost$language.chm" 2>/dev/null | grep -o '/base/.*html' | sort)
done

# The same sources give the same bytes, wherever they lie.

cp -r "$root/data/language" "$work/sources"
"$tools/build-modules" "$work/sources" "$work/again"
for module in base/base-r[enu].dll base/base-r[deu].dll ost/ost-r[enu].dll ost/ost-r[deu].dll; do
  check "$module is the same byte for byte" cmp "$work/$module" "$work/again/$module"
done

# Without the compilers there are no modules and no help, and something is said.

missing() { # NAME OF VARIABLE, COMMAND...
  env "$1=no-such-program" "${@:2}" 2>&1 | grep -q 'no-such-program is missing'
}
check "a missing resource compiler is told" missing WINDRES "$tools/build-modules" "$work/sources" "$work/without"
check "the sample label is packed without it" test -f "$work/without/base/LabelSample.bmp"
check "no module is left behind without it" test ! -e "$work/without/base/base-r[enu].dll"
check "a missing linker is told" missing MINGW_LD "$tools/build-modules" "$work/sources" "$work/without"
check "a missing help compiler is told" missing CHMCMD "$tools/build-help" "$root/data/help" "$work/without"

# Mistakes. Each changes one file of a tree that has none.

fresh() {
  rm -rf "$work/tree"
  mkdir -p "$work/tree/data" "$work/tree/src/ui"
  cp -r "$root/data/language" "$root/data/help" "$work/tree/data/"
}

# finds WHAT FILE SED_SCRIPT MESSAGE: the message is among what the check says, and it fails.
finds() {
  fresh
  sed -i "$3" "$work/tree/data/$2"
  if cmp -s "$work/tree/data/$2" "$root/data/$2"; then
    check "$1: the change takes" false
  fi
  local modules=$work/again
  if [[ $2 == language/*.rc ]]; then
    modules=$work/tree/modules
    "$tools/build-modules" "$work/tree/data/language" "$modules" >"$work/output" 2>&1
  fi
  "$tools/check" "$modules" "$work/tree" >"$work/said" 2>&1
  local status=$?
  check "$1: exit status" test $status -eq 1
  check "$1: message" grep -F -- "$4" "$work/said"
}

fresh
"$tools/build-modules" "$work/tree/data/language" "$work/tree/modules"
check "the tree has no mistakes" "$tools/check" "$work/tree/modules" "$work/tree"

finds "a missing string" language/deu/base.rc '/IDS_STOCK_NEW_NAME/d' "deu: string 1326 is in one of enu and deu only"
finds "a string too many" language/deu/ost.rc 's/^  2406/  2999 "Mehr"\n&/' "deu: string 2999 is in one of enu and deu only"
finds "a missing template" language/deu/base.rc 's/^"\*:ABOUT"/"*:OTHER"/' "deu: template *:ABOUT is in one of enu and deu only"
finds "another control" language/deu/base.rc 's/IDC_MIRROR/IDC_NEGATIVE/' "differ in id, style or class"
finds "a control less" language/deu/base.rc '/IDC_MIRROR/d' "deu: *:PAGE_SETUP: another style or number of controls"
finds "a mark less" language/deu/ost.rc 's/%1 bis %2/%1/' "differ in their marks"
finds "other marks" language/deu/base.rc 's/„%s“/„%1“/' "differ in their marks"
finds "dots less" language/deu/base.rc 's/"&Neu\.\.\."/"\&Neu"/' "differ in their marks"
finds "a forgotten translation" language/deu/base.rc 's/"Abbrechen"/"Cancel"/' '"Cancel" is not translated'
finds "two translations" language/deu/base.rc '0,/"Abbrechen"/s//"Verwerfen"/' '"Cancel" is translated in several ways'
finds "no access key" language/enu/base.rc 's/"&Delete"/"Delete"/' 'enu: *:PAGE_SETUP: control 1004 "Delete" has no access key'
finds "an access key twice" language/enu/base.rc 's/"&Delete"/"D\&elete"/' "access key E of control 1004"
finds "the key of a text put in later" language/enu/base.rc 's/"V&iew\.\.\."/"\&View..."/' "access key V of control 1013"
finds "the sheet's key" language/enu/base.rc 's/"&Delete"/"Delet\&a"/' "access key A of control 1004"
finds "a key on Cancel" language/enu/base.rc 's/"Cancel"/"\&Cancel"/' "needs no access key"
finds "a label without key" language/enu/base.rc 's/"&Width:"/"Width:"/' "control 1102 has no label with an access key in front"
finds "a label behind its edit box" language/enu/base.rc '/"&Width:"/{h;d};/IDC_STOCK_WIDTH/G' "control 1102 has no label with an access key in front"
finds "a label below its edit box" language/enu/base.rc 's/"&Width:", IDC_STATIC, 14, 42/"\&Width:", IDC_STATIC, 14, 52/' "stands behind what it labels"
finds "a narrow margin" language/enu/base.rc 's/IDC_STOCK_NEW, 60/IDC_STOCK_NEW, 6/' "is nearer than 7 to the left or upper edge"
finds "a control that sticks out" language/enu/base.rc 's/IDC_STOCK_NAME, 55, 7, 154/IDC_STOCK_NAME, 55, 7, 164/' "is nearer than 7 to the right or lower edge"
finds "a wide margin" language/enu/base.rc 's/STOCK" DIALOGEX 0, 0, 216, 173/STOCK" DIALOGEX 0, 0, 216, 183/' "the lower margin isn't 7"
finds "an overlap" language/enu/base.rc 's/IDC_STOCK_EDIT, 123/IDC_STOCK_EDIT, 110/' "overlap or are too near"
finds "buttons too near" language/enu/base.rc 's/IDC_STOCK_EDIT, 123/IDC_STOCK_EDIT, 121/' "overlap or are too near"
finds "out of its group" language/enu/base.rc 's/IDC_MARGIN_TOP, 55, 97/IDC_MARGIN_TOP, 55, 106/' "overlap or are too near"
finds "a low button" language/enu/base.rc 's/IDC_STOCK_NEW, 60, 25, 59, 14/IDC_STOCK_NEW, 60, 25, 59, 12/' "is 12 high, not 14"
finds "a narrow button" language/enu/base.rc 's/IDC_STOCK_NEW, 60, 25, 59/IDC_STOCK_NEW, 60, 25, 40/' "is narrower than a button"
finds "a clipped button" language/deu/base.rc 's/"Ver&walten\.\.\."/"Voreinstellungen ver\&walten..."/' "wide, and has 51"
finds "a clipped line" language/deu/base.rc 's/"&Breite:"/"\&Breite des Etiketts:"/' "needs more room than 38 by 8"
finds "a paragraph too long" language/deu/base.rc 's/gehören diese Optionen/gehören diese Optionen, wie schon lange und in allen Versionen des Treibers üblich, immer nur/' "needs more room than 238 by 17"
finds "a page of another size" language/enu/base.rc 's/"\*:ABOUT" DIALOGEX 0, 0, 252, 218/"*:ABOUT" DIALOGEX 0, 0, 252, 200/' "a page is 252 by 218"
finds "another font" language/enu/base.rc '0,/FONT 8/s//FONT 9/' "font (9, 400, 0, 1, 'MS Shell Dlg')"
finds "no tab stop" language/enu/base.rc 's/\(IDC_STOCK, .*\) | WS_TABSTOP/\1/' "control 1001 cannot be reached by the Tab key"
finds "radio buttons without a group" language/enu/base.rc 's/\(IDC_ORIENTATION_PORTRAIT, .*\), WS_GROUP | WS_TABSTOP/\1/' "doesn't begin a group"
finds "a group without end" language/enu/base.rc 's/\(IDC_MIRROR, .*\), WS_GROUP | WS_TABSTOP/\1/' "doesn't end the group before it"
finds "a letter beyond the code page" language/deu/base.rc 's/"Kyrillisch"/"Кириллица"/' "goes beyond the code page of the language"
finds "an unused id" language/resource.h 's/^#define IDC_STOCK 1001/&\n#define IDC_UNUSED 1999/' "resource.h: no template has IDC_UNUSED"
finds "an unused string id" language/resource.h 's/^#define IDC_STOCK 1001/&\n#define IDS_UNUSED 9999/' "resource.h: no module has IDS_UNUSED"
finds "one number for two" language/resource.h 's/IDC_STOCK_NEW 1002/IDC_STOCK_NEW 1001/' "resource.h: IDC_STOCK and IDC_STOCK_NEW are the same"
finds "a control without name" language/enu/base.rc 's/IDC_ABOUT_VERSION/1799/' "resource.h: control 1799 has no name"
finds "a help page without a target" help/enu/base/About.html 's/Introduction.html/Intro.html/' "leads to Intro.html, which is missing"
finds "a page that isn't compiled" help/deu/ostdeu.hhp '/About/d' "help deu: base/About.html is not in the project"

fresh
echo 'GetHelpTopic() { return "/base/Nowhere.html"; }' >"$work/tree/src/ui/Page.cpp"
"$tools/build-modules" "$work/tree/data/language" "$work/tree/modules"
check "a topic without a page" bash -c "! '$tools/check' '$work/tree/modules' '$work/tree' | grep -v 'help topic /base/Nowhere.html is missing' | grep -v ': 1 mistakes'"

report_checks
