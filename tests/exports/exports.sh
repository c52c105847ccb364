#!/usr/bin/env bash
# Compares what the shared library exports with what this folder holds, or writes it anew.
#   exports.sh symbols check|update LIBRARY [LIST]   the list of exported symbols, exported_symbols.txt or LIST; and that no
#                                             lock of a local static is imported
#   exports.sh dll check LIBRARY              the same symbols in a DLL
#   exports.sh data check LIBRARY             the data that the library can write: writable_data.txt
#   exports.sh abi check|update LIBRARY       types, layouts and signatures, vexor.abi; LIBRARY has
#                                             debug information
# An intended change is made with scripts/update-abi and shows in the review as a change of these files.
set -euo pipefail
export LC_ALL=C
folder=$(cd "$(dirname "$0")" && pwd)
kind=$1 action=$2 library=$3
list=$folder/${4:-exported_symbols.txt}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Every symbol once, demangled: a constructor in its two forms is one line.
list_symbols() {
    nm --dynamic --defined-only --format=posix "$library" | cut -d' ' -f1 | c++filt | sort -u
}

# The same of a DLL, from the table of names that the tool in OBJDUMP prints.
list_symbols_of_dll() {
    "${OBJDUMP:-objdump}" -p "$library" |
        awk '/Name Pointer\] Table/ { inside = 1 } inside && /^\t\[/ { print $NF } /^$/ { inside = 0 }' |
        c++filt | sort -u
}

# Without paths, addresses and parameter names, and without what the library keeps to itself. Types are
# numbered by what they are and not in sequence, so that a change stays where it happens.
dump_abi() {
    abidw --suppressions "$folder/internals.abignore" --headers-dir "$folder/../../vexor" --drop-private-types \
        --exported-interfaces-only --no-corpus-path --no-comp-dir-path --no-elf-needed --no-show-locs \
        --no-parameter-names --no-write-default-sizes --type-id-style hash --out-file "$1" "$library"
}

case "$kind" in
symbols)
    list_symbols >"$work/symbols"
    if grep -E '^(non-virtual thunk to |(vtable|typeinfo|typeinfo name|guard variable) for )?(std|__gnu_cxx|__cxxabiv1)::|^operator (new|delete)|^[a-z0-9]+_$|_LAPACK|openblas' "$work/symbols"; then
        echo "The library exports the above, which are not its own." >&2
        exit 1
    fi
    # A local static with an initialiser takes a lock at its first use. The library takes none.
    if nm --dynamic --undefined-only "$library" | grep '__cxa_guard'; then
        echo "The library imports the above: a local static has an initialiser that runs at first use." >&2
        exit 1
    fi
    if [ "$action" = update ]; then
        cp "$work/symbols" "$list"
    elif [ ! -s "$list" ] || ! diff -u "$list" "$work/symbols"; then
        echo "The exported symbols have changed. If that is intended, run scripts/update-abi." >&2
        exit 1
    fi
    ;;
dll)
    list_symbols_of_dll >"$work/symbols"
    # A record of a type brings its name along.
    grep -v '^typeinfo name for ' "$folder/exported_symbols.txt" >"$work/expected"
    if ! diff -u "$work/expected" "$work/symbols"; then
        echo "The DLL exports other symbols than the shared library on Linux." >&2
        exit 1
    fi
    ;;
data)
    # Data in .data.rel.ro, .got and the like is read-only once the library is loaded.
    name=$(basename "$library" | sed 's/^lib//; s/\.so.*//')
    objdump --syms "$library" |
        awk -F'\t' '$1 ~ / \.(data|bss|tdata|tbss)$/ { n = split($2, field, " "); if (field[n] !~ /^\./) print field[n] }' |
        c++filt | sed 's/^completed\.[0-9]*$/completed/' | sort -u >"$work/data"
    awk -v name="$name" '/^[^#]/ && ($2 == name || $2 == "both") { print $1 }' "$folder/writable_data.txt" |
        sort >"$work/allowed"
    # Each library has state of its own: an empty list means that nothing was read.
    grep -q '^vexor::' "$work/data" || { echo "exports.sh: no data found in $library" >&2; exit 1; }
    if comm -23 "$work/data" "$work/allowed" | grep .; then
        echo "The library can write the above. Shared state needs a reason in writable_data.txt." >&2
        exit 1
    fi
    ;;
abi)
    dump_abi "$work/vexor.abi"
    if [ "$action" = update ]; then
        cp "$work/vexor.abi" "$folder/vexor.abi"
    elif ! abidiff "$folder/vexor.abi" "$work/vexor.abi"; then
        echo "The binary interface has changed. If that is intended, run scripts/update-abi." >&2
        exit 1
    fi
    ;;
*)
    echo "exports.sh: symbols, dll, data or abi, not '$kind'" >&2
    exit 2
    ;;
esac
