#!/bin/bash
# Puts every picture of the program on one sheet, contact-sheet.png: at 1x and 2x, on a light and on
# a dark ground. Takes the pictures of a build: contact-sheet.sh [BUILD], by default ../build-dev.
# Needs ImageMagick (Debian: imagemagick).
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

pictures=$(realpath "${1:-../build-dev}")/src

light='#ffffff'
dark='#232629'
paper='#f3f5f8'
font='DejaVu-Sans'
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

# tile PICTURE: 1x and 2x side by side, on light above dark, and the name
tile()
{
    local pair=("$1" "${1%.png}@2x.png" -bordercolor none -border 4 -background none
        -gravity center +append -size 120x1 xc:none +size -append)
    convert -gravity center \
        \( "${pair[@]}" -background "$light" -alpha remove \) \
        \( "${pair[@]}" -background "$dark" -alpha remove \) \
        -append -background "$paper" -fill black -font "$font" -pointsize 11 \
        \( "label:$(basename "$1" .png)" \) -append miff:-
}

# section FOLDER NUMBER: its name, and a block of narrow tiles above one of wide tiles
section()
{
    local picture block
    for picture in "$1"/*.png; do
        [[ $picture == *@2x.png ]] && continue
        block=$work/$2-$(identify -format '%[fx:w<=100?1:2]' "$picture")
        mkdir -p "$block"
        tile "$picture" > "$block/$(basename "$picture" .png).miff"
    done
    convert -background "$paper" -fill black -font "$font" -pointsize 15 "label:${1#"${pictures%src}"}" \
        -bordercolor "$paper" -border 8x8 "$work/$2-0.miff"
    for block in "$work/$2"-*/; do
        montage "$block"/*.miff -background "$paper" -geometry +8+6 -gravity north \
            -tile "$(columns "$block")x" "${block%/}.miff"
    done
}

# columns FOLDER: as many tiles as fit beside each other
columns()
{
    local widest
    widest=$(identify -format '%w\n' "$1"/*.miff | sort -n | tail -1)
    echo $((1400 / (widest + 16)))
}

number=10
while read -r folder; do
    section "$folder" "$number"
    number=$((number + 1))
done < <(find "$pictures" -name '*@2x.png' -printf '%h\n' | sort -u)
convert -gravity northwest -background "$paper" "$work"/*.miff -append \
    -strip -depth 8 -define png:compression-level=9 contact-sheet.png
