#!/usr/bin/env bash
# Makes the Debian package of a finished build and tries what is in it: package_test.sh BUILD-DIRECTORY
set -u
build=$1
top=$(cd "$(dirname "$0")/../.." && pwd)
. "$top/tests/tools/checks.sh"
same() { diff <(printf '%s\n' "$1") <(printf '%s\n' "$2"); }
contains() { grep -qF -- "$2" <<<"$1" || { echo "no '$2' in:"; echo "$1"; false; }; }

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work/cpack" >"$work/log" 2>&1 || {
  cat "$work/log"
  echo "1 failed"
  exit 1
}
package=$(find "$work/cpack" -maxdepth 1 -name '*.deb')
version=$(sed -nE 's/^project\(ostvt VERSION ([0-9.]+).*/\1/p' "$top/CMakeLists.txt")

# What the package says, and what is in it.

check "the package is named as Debian names packages" \
  same "ostvt_${version}_amd64.deb" "$(basename "$package")"
check "the version is the driver's" same "$version" "$(dpkg-deb -f "$package" Version)"
check "it depends on the libraries that its files need" \
  contains "$(dpkg-deb -f "$package" Depends)" libsqlite3-0
check "nothing else is in it" same "$(sort <<'LIST'
./usr/bin/vtdal
./usr/lib/ostvt/3/Defaults.sds
./usr/lib/ostvt/3/libostvt.so
./usr/lib/ostvt/3/ostvt.dat
./usr/lib/ostvt/3/vt#base.ddz
./usr/lib/ostvt/3/vt#ost.ddz
./usr/lib/ostvt/3/vtnetmon.d64
./usr/share/bash-completion/completions/vtdal
./usr/share/doc/ostvt/changelog.gz
./usr/share/doc/ostvt/copyright
./usr/share/man/man1/vtdal.1.gz
LIST
)" "$(dpkg-deb -c "$package" | awk '$1 !~ /^d/ {print $6}' | sort)"
check "all belongs to root, and nobody else may write" \
  same "" "$(dpkg-deb -c "$package" | awk '$2 != "root/root" || $1 ~ /^.{5}w|^.{8}w/')"

# The tool runs from where it was unpacked, on a store of its own.

root=$work/root
dpkg-deb -x "$package" "$root"
place=$root/usr/lib/ostvt/3
vtdal=$root/usr/bin/vtdal
unset OSTVT_MODULE OSTVT_MODULE_DIR
export OSTVT_STORE_DIR=$work/store
mkdir "$OSTVT_STORE_DIR"
for file in libostvt.so vtnetmon.d64; do
  check "$file needs no library that isn't there" \
    same "" "$(ldd "$place/$file" 2>&1 | grep 'not found')"
done
check "the tool tells its version" same "vtdal $version" "$("$vtdal" --version)"
check "a printer is added" "$vtdal" add "Packing Table" --driver "Ostrel D4-203" --port "file:$work/out"
check "its driver's files are those of the package" \
  contains "$("$vtdal" get --printer "Packing Table" \
    'LOCAL_MACHINE:SYSTEM/CurrentControlSet/Control/Print/Environments/Linux x64/Drivers/Version-3/Ostrel D4-203/Configuration File')" \
  "$place/libostvt.so"
check "the packed module knows its model" contains "$("$vtdal" caps "Packing Table")" 203
check "the factory settings were laid down with the printer" \
  "$vtdal" get --printer "Packing Table" "DATA:Initial DevMode"
check "the printer is reset to the packed factory settings" "$vtdal" settings reset "Packing Table"

# The manual page and the completion know what the tool knows.

commands=$("$vtdal" --help | sed -nE 's/^  ([a-z][a-z-]*) .*/\1/p' | sort)
page=$(gzip -dc "$root/usr/share/man/man1/vtdal.1.gz")
check "the manual page describes every command and no other" same "$commands" \
  "$(sed -n '/^\.SH COMMANDS/,/^\.SH EXIT/p' <<<"$page" | sed -nE '/^\.TP/{n;s/^\.BI? ([a-z]+).*/\1/p}' | sort)"
check "the manual page is of this version" contains "$page" "vtdal $version"

# What bash offers behind the words.
offers() {
  env -i PATH="$root/usr/bin:$PATH" OSTVT_STORE_DIR="$OSTVT_STORE_DIR" bash -c '
    . "$1"
    shift
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    _vtdal vtdal
    printf "%s\n" "${COMPREPLY[@]}"
  ' - "$root/usr/share/bash-completion/completions/vtdal" "$@" | sort
}
check "every command is offered" same "$(printf '%s\n' $commands --help --version | sort)" "$(offers vtdal "")"
check "the beginning of a command is completed" same "status
stock
stretch" "$(offers vtdal st)"
check "the actions of a command are offered" same "add
list
remove
show" "$(offers vtdal stock "")"
check "a printer's name is offered behind an action" same 'Packing\ Table' "$(offers vtdal stock list P)"
check "a printer's name is offered behind a command" same 'Packing\ Table' "$(offers vtdal caps 'Packing\ T')"
check "no printer's name is offered where there is one already" same "" "$(offers vtdal caps X "")"
check "options are offered" same "--help
--json
--module" "$(offers vtdal caps X --)"

report_checks
