#!/bin/sh
# Takes pictures of a driver's options in several looks, on a virtual display:
# screenshots.sh PROGRAM FOLDER, with the program that the target ppdwidgets_screenshot builds.
set -eu
program=$(realpath "$1")
folder=$(realpath -m "$2")
laser=$(realpath "$(dirname "$0")/../../../../world/ppd/Laser.ppd")
mkdir -p "$folder"

shot() {
    name=$1
    shift
    printf '%s: ' "$name"
    xvfb-run -a -s '-screen 0 2400x1800x24' \
        env QT_QPA_PLATFORM=xcb "$@" --driver "$laser" "$folder/$name.png"
}

conflict='--mark OptionDuplex=False --mark Duplex=DuplexNoTumble'

shot light "$program" --select InputSlot
shot dark "$program" --dark --select InputSlot
shot boolean "$program" --select Collate
shot installed "$program" --select OptionTrays
shot conflict "$program" $conflict
shot conflict-dark "$program" --dark $conflict
shot conflict-selected "$program" $conflict --select Duplex
shot conflict-closed "$program" $conflict --close Duplex
shot conflict-closed-dark "$program" --dark $conflict --close Duplex
shot mirrored "$program" --mirrored $conflict --select InputSlot
shot scale2 env QT_SCALE_FACTOR=2 "$program" --select InputSlot
shot scale15 env QT_SCALE_FACTOR=1.5 "$program" $conflict
shot narrow "$program" --width 400
shot narrow-mirrored "$program" --mirrored --width 400
