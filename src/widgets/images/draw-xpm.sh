#!/bin/sh
# Writes the generic pictures of a printer and a scanner as XPM, the form in which the program
# compiles them in. The PNG files come first: ../../render-pictures.sh.
# Needs ImageMagick (Debian: imagemagick).
set -eu
cd "$(dirname "$0")"

# draw PNG NAME: the file NAME.xpm, which defines the array _NAME
draw()
{
    convert "$1" -channel A -threshold 50% +channel +dither -colors 80 -strip "$2.xpm"
    sed -i "s/^static char \*.*\[\] = {/static const char *const _$2[] = {/" "$2.xpm"
}

draw generic_printer.png GenericPrinterImage
draw generic_scanner.png GenericScannerImage
