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

with_photo() {
    name=$1
    shift
    shot "$name" "$@" --driver "$root/world/ppd/Photo.ppd"
}

# both NAME DRIVER OPTIONS...: light and dark.
both() {
    name=$1
    driver=$2
    shift 2
    shot "$name" "$program" "$@" --driver "$driver"
    shot "$name-dark" "$program" --dark "$@" --driver "$driver"
}

laser=$root/world/ppd/Laser.ppd
photo=$root/world/ppd/Photo.ppd
largest=$(mktemp --suffix .ppd)
trap 'rm -f "$largest"' EXIT
PYTHONPATH=$root/tests/corpus python3 -B -c '
import sys
from ppd_archive import Archive
archive = Archive()
sys.stdout.buffer.write(archive.text(archive.largest()))' > "$largest"

conflict='--mark OptionDuplex=False --mark Duplex=DuplexNoTumble'

# The pages of the editors.
both nothing "$laser"
both list "$laser" --select InputSlot
both boolean "$laser" --select Collate
both number "$laser" --number Density
both page-size "$photo" --mark PageSize=Custom.300x400pt --select PageSize
both installed "$laser" --select OptionTrays
both installed-boolean "$laser" --select OptionDuplex
both pick-many "$laser" --select Enhancements

# The parameters of all types.
both curve "$photo" --mark ToneCurve=Custom.1.75 --select ToneCurve
both inverse-curve "$photo" --mark InkLimit=Custom.2.5 --select InkLimit
both int-real "$photo" --mark 'Screen={Ruling=150 Angle=22.5}' --select Screen
both points "$photo" --mark 'Shift={Across=36.5 Up=72.25}' --select Shift
both fixed "$photo" --mark 'Zoom={Factor=2 Fixed=1}' --select Zoom
both passcode "$photo" --mark Release=Custom.12345 --select Release
both password "$photo" --mark Lock=Custom.secret --select Lock
both string "$photo" --mark 'Watermark=Custom.Top Secret' --select Watermark
both custom-disabled "$photo" --select Sharpness

both conflict "$laser" $conflict
both conflict-selected "$laser" $conflict --select Duplex
both conflict-closed "$laser" $conflict --close Duplex
both largest "$largest"
both largest-selected "$largest" --select Gutter

german='env LC_ALL=de_DE.UTF-8'
with_photo german-page-size $german "$program" --mark PageSize=Custom.300x400pt --select PageSize
with_photo german-points $german "$program" --mark 'Shift={Across=36.5 Up=72.25}' --select Shift
with_laser german-number $german "$program" --number Density
with_laser german-nothing $german "$program" $conflict

with_laser mirrored "$program" --mirrored $conflict --select InputSlot
with_laser scale2 env QT_SCALE_FACTOR=2 "$program" --select InputSlot
with_photo page-size-scale2 env QT_SCALE_FACTOR=2 "$program" \
    --mark PageSize=Custom.300x400pt --select PageSize
with_laser scale15 env QT_SCALE_FACTOR=1.5 "$program" $conflict
with_laser narrow "$program" --width 400
with_laser narrow-mirrored "$program" --mirrored --width 400
