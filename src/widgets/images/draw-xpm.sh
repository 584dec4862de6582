#!/bin/sh
# Writes the generic pictures of a printer and a scanner as XPM, the form in which the program
# compiles them in.
# Needs rsvg-convert and ImageMagick (Debian: librsvg2-bin, imagemagick).
set -eu
cd "$(dirname "$0")"

# draw SVG NAME: the file NAME.xpm, which defines the array _NAME
draw()
{
    rsvg-convert "$1" | convert - -channel A -threshold 50% +channel +dither -colors 80 -strip "$2.xpm"
    sed -i "s/^static char \*.*\[\] = {/static const char *const _$2[] = {/" "$2.xpm"
}

draw svg/generic_printer.svg GenericPrinterImage
draw svg/generic_scanner.svg GenericScannerImage
