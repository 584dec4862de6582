#!/bin/sh
# Takes pictures of the tabs of the properties dialog in several looks, in a private world on a
# virtual display: screenshots.sh PROGRAM FOLDER, with the program that the target
# printerpropertiesdialog_screenshot builds.
root=$(realpath "$(dirname "$0")/../../..")
. "$root/tests/support/screenshots.sh"

all_tabs() {
    look=$1
    shift
    shot "$look-general" "$@" --tab 0
    shot "$look-text" "$@" --tab 1
    shot "$look-graphics" "$@" --tab 2
    shot "$look-advanced" "$@" --tab 3 --row InputSlot
}

all_tabs light "$program"
all_tabs set "$program" --set orientation-requested=5 --set Duplex=DuplexTumble \
    --set number-up=4 --set page-left=40 --set columns=3 --set prettyprint= --set hue=120 \
    --set ppi=300 --set position=top-right
all_tabs dark "$program" --dark
all_tabs scale2 env QT_SCALE_FACTOR=2 "$program"
all_tabs mirrored "$program" --mirrored --set position=top-left
all_tabs long "$program" --long
all_tabs screen "$program" --size 1024x768
shot custom "$program" --printer Photo --tab 3 --row PageSize --set PageSize=Custom.300x400
shot conflict "$program" --tab 3 --set Duplex=DuplexTumble --set MediaType=Labels --row Duplex
shot plain-general "$program" --printer Plain --tab 0
shot plain-advanced "$program" --printer Plain --tab 3
