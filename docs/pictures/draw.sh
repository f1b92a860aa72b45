#!/bin/sh
# Makes the rigs and draws the pictures of this folder: docs/pictures/draw.sh [--check] TOLVANE
# With --check it only compares them with those that are there.
set -eu
folder=$(dirname "$0")
target=$folder
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
if [ "$1" = --check ]; then
    target=$work
    shift
fi
python3 -B "$folder/make_rigs.py" "$work"
for rig in turned_walk.smd swimmer.bvh animal.bvh; do
    picture=${rig%.*}.svg
    "$1" run -q "$work/$rig" --svg "$target/$picture"
    cmp "$target/$picture" "$folder/$picture"
done
