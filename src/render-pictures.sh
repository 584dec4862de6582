#!/bin/sh
# Draws the PNG files, at 1x and 2x, of the folders given, or of every folder below this one that
# has a folder "svg" with their SVG sources.
# Needs rsvg-convert (Debian: librsvg2-bin).
set -eu

draw_folder()
{
    for source in "$1"/svg/*.svg; do
        picture=$1/$(basename "$source" .svg)
        rsvg-convert --output "$picture.png" "$source"
        rsvg-convert --zoom 2 --output "$picture@2x.png" "$source"
    done
}

if [ $# -eq 0 ]; then
    cd "$(dirname "$0")"
    exec find . -type d -name svg -execdir "$PWD/$(basename "$0")" . \;
fi
for folder in "$@"; do
    draw_folder "$folder"
done
