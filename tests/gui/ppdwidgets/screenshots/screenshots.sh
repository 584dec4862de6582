#!/bin/sh
# Takes pictures of a driver's options in several looks, on a virtual display:
# screenshots.sh PROGRAM FOLDER, with the program that the target ppdwidgets_screenshot builds.
root=$(realpath "$(dirname "$0")/../../../..")
. "$root/tests/support/screenshots.sh"

with_laser() {
    name=$1
    shift
    shot "$name" "$@" --driver "$root/world/ppd/Laser.ppd"
}

conflict='--mark OptionDuplex=False --mark Duplex=DuplexNoTumble'

with_laser light "$program" --select InputSlot
with_laser dark "$program" --dark --select InputSlot
with_laser boolean "$program" --select Collate
with_laser installed "$program" --select OptionTrays
with_laser conflict "$program" $conflict
with_laser conflict-dark "$program" --dark $conflict
with_laser conflict-selected "$program" $conflict --select Duplex
with_laser conflict-closed "$program" $conflict --close Duplex
with_laser conflict-closed-dark "$program" --dark $conflict --close Duplex
with_laser mirrored "$program" --mirrored $conflict --select InputSlot
with_laser scale2 env QT_SCALE_FACTOR=2 "$program" --select InputSlot
with_laser scale15 env QT_SCALE_FACTOR=1.5 "$program" $conflict
with_laser narrow "$program" --width 400
with_laser narrow-mirrored "$program" --mirrored --width 400
