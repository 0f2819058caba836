#!/bin/sh
# check_widget_exports.sh LIBRARY HEADER...: the widget's library shows the functions that its headers declare, and
# nothing else.
set -eu
library=$1
shift
declared=$({
    echo orvane_vistrel_get_type  # declared by a macro
    grep -ohE '^ORVANE_GTK_EXPORT [^(;]*\(' "$@" | sed -nE 's/.*[ *]([a-z0-9_]+)\($/\1/p'
} | sort)
shown=$(nm -D --defined-only "$library" | cut -d ' ' -f 3 | sort)
if [ "$declared" != "$shown" ]; then
    echo "declared, but not shown, or the other way round:" >&2
    printf '%s\n' "$declared" "$shown" | sort | uniq -u >&2
    exit 1
fi
echo "$(printf '%s\n' "$shown" | wc -l) functions, all of the headers"
