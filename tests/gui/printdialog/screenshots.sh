#!/bin/sh
# Takes pictures of the print dialog in several looks, in a private world on a virtual display:
# screenshots.sh PROGRAM FOLDER, with the program that the target printdialog_screenshot builds.
root=$(realpath "$(dirname "$0")/../../..")
. "$root/tests/support/screenshots.sh"

shot default "$program"
shot full "$program" --properties --copies 2 --printer Photo
shot dark "$program" --dark --properties --copies 2
shot scale2 env QT_SCALE_FACTOR=2 "$program" --properties
shot scale15 env QT_SCALE_FACTOR=1.5 "$program" --properties
shot mirrored "$program" --mirrored --properties
shot long "$program" --long --properties --printer Rejecting
shot stopped "$program" --printer Stopped
shot wide "$program" --width 1000
shot narrow "$program" --width 100
