#!/usr/bin/env bash
# Runs in a fresh system that has Orvane's packages in /work: installs them one after the other, each before anything
# that might hide a dependency it forgot, and uses what they bring. scripts/check-packages calls it.
set -euo pipefail
cd /work

say() { printf '\n== %s\n' "$*"; }
fail() { echo "$*" >&2; exit 1; }
add() {
    apt-get install -q -y --no-install-recommends -o APT::Keep-Downloaded-Packages=true "$@" > apt.log 2>&1 ||
        { tail -n 20 apt.log >&2; exit 1; }
}
# The package of that name, whatever its version.
package() { ls "$PWD/$1"_*.deb; }
# shows FILE COLOUR COUNT: the picture has at least so many pixels of a colour.
shows() {
    local found
    found=$(convert "$1" txt:- | grep -ic "$2" || true)
    [ "$found" -ge "$3" ] || fail "$1 shows $found pixels of $2, and should show $3"
}
# opens PROGRAM KEY SHOT: the program opens flat.png on a display of its own and shows it; the key ends it.
opens() {
    # shellcheck disable=SC2016  # expanded inside
    xvfb-run -a -s '-screen 0 1280x900x24' bash -euc '
        openbox & manager=$!
        timeout 120 "$1" flat.png & program=$!
        timeout 60 sh -c "until xdotool search --onlyvisible --name flat.png > found; do sleep 0.5; done"
        sleep 2
        import -window root "$3"
        xdotool key "$2"
        wait $program
        kill $manager' opens "$@"
    shows "$3" '#00c878' 30000
}
apt-get update -q > apt.log 2>&1 || { cat apt.log >&2; exit 1; }

say "orvane: a picture from the command line"
add "$(package orvane)"
orvane BitmapBackColor=0x78c800 NewImage 240 160 -o flat.png
orvane LoadImage flat.png Temperature 12 -o warm.png
[ "$(orvane LoadImage warm.png ImageWidth?)" = "$(printf 'LoadImage: true\nImageWidth: 240')" ]
dpkg -s liborvane1 > /dev/null 2>&1 && fail "the program should need no library of ours"

say "gir1.2-orvane-1.0: the widget from Python"
add "$(package liborvane1)" "$(package liborvane-gtk4-1)" "$(package gir1.2-orvane-1.0)"
add python3-gi xvfb xauth imagemagick xdotool openbox
ldconfig -p | grep -q liborvane-gtk4.so.1 || fail "the linker's cache was not refreshed"
xvfb-run -a python3 examples/python/batch.py made temperature 12 -- flat.png
compare -metric AE warm.png made/flat.png null: || fail "Python and the command line make different pixels"
echo " pixels differ"

if ls orvane-studio_*.deb > /dev/null 2>&1; then
    say "orvane-studio: opens a picture"
    add "$(package orvane-studio)"
    opens orvane-studio ctrl+q studio.png
fi

say "liborvane-dev: programs by CMake and by pkg-config"
apt-get install -q -y --no-install-recommends g++ cmake make pkgconf > apt.log 2>&1
add "$(package liborvane-dev)"
for example in first_program c; do
    cmake -S "examples/$example" -B "built/$example" > cmake.log || { cat cmake.log >&2; exit 1; }
    cmake --build "built/$example" > cmake.log || { cat cmake.log >&2; exit 1; }
done
built/first_program/first_program flat.png first.png
# shellcheck disable=SC2046  # words
cc examples/c/viewer.c $(pkg-config --cflags --libs orvane-gtk4) -o by_pkgconfig
opens built/c/viewer ctrl+w viewer-cmake.png
opens ./by_pkgconfig ctrl+w viewer-pkgconfig.png

say "All can be removed again"
apt-get purge -q -y orvane liborvane1 > apt.log 2>&1 || { cat apt.log >&2; exit 1; }
left=$(dpkg -l | grep -i orvane || find /usr -name '*orvane*')
[ -z "$left" ] || fail "left behind: $left"
