#!/bin/sh
# check_exports.sh LIBRARY HEADERS: every symbol that the shared library shows belongs to a class or is a function
# that the public headers mark with ORVANE_EXPORT.
set -eu
library=$1
headers=$2

classes=$(sed -nE 's/^ *(class|struct) ORVANE_EXPORT ([A-Za-z0-9_]+).*/\2/p' "$headers"/*.h | paste -sd '|')
functions=$(sed -nE 's/^ *(extern "C" )?ORVANE_EXPORT .*[ *&]([A-Za-z0-9_]+)\(.*/\2/p' "$headers"/*.h | paste -sd '|')
shown=$(nm -D --defined-only -C "$library" | cut -d ' ' -f 3-)
if [ -z "$classes" ] || [ -z "$shown" ]; then
    echo "the library shows nothing, or the headers export nothing" >&2
    exit 1
fi
meant="^(orvane::($classes)::|(vtable|typeinfo|typeinfo name) for orvane::($classes)$|(orvane::)?(${functions:-none})(\(|$))"
extra=$(printf '%s\n' "$shown" | grep -vE "$meant" || true)
if [ -n "$extra" ]; then
    printf 'not marked ORVANE_EXPORT in the headers:\n%s\n' "$extra" >&2
    exit 1
fi
echo "$(printf '%s\n' "$shown" | wc -l) symbols, all of the interface"
