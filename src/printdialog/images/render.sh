#!/bin/sh
# Draws the PNG files of this folder, at 1x and 2x, from their SVG sources.
# Needs rsvg-convert (Debian: librsvg2-bin).
set -eu
cd "$(dirname "$0")"
for source in svg/*.svg; do
    name=$(basename "$source" .svg)
    rsvg-convert --output "$name.png" "$source"
    rsvg-convert --zoom 2 --output "$name@2x.png" "$source"
done
