# What the scripts share that take pictures of windows; sourced. Before that, root is the root of the
# sources, and the arguments are the program that shows the window and the folder for the pictures.
# The texts are English unless LC_ALL says otherwise.
set -eu
program=$(realpath "$1")
folder=$(realpath -m "$2")
mkdir -p "$folder"
export LC_ALL="${LC_ALL:-C.UTF-8}" LANGUAGE=

# shot NAME COMMAND...: the picture NAME of the window that the command shows, in a private world and
# on a virtual display.
shot() {
    name=$1
    shift
    printf '%s: ' "$name"
    "$root/world/world" --relocated -- xvfb-run -a -s '-screen 0 2400x1800x24' \
        env QT_QPA_PLATFORM=xcb "$@" "$folder/$name.png"
}
