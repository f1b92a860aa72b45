# What the scripts share: where the project is, and how it is built. Sourced, never run.
# All messages go to standard error, because standard output belongs to the program that is run.
# shellcheck shell=bash
set -euo pipefail

root=$(CDPATH='' cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

# configure NAME [CMAKE_OPTION...]: configures build/NAME with the preset of that name, or with `dev`
# if there is none. Does nothing if that was done since the presets last changed: other changes are
# noticed by Ninja, which then configures again by itself.
configure() {
    local folder=$root/build/$1 presets=$root/CMakePresets.json preset=$1
    if [[ $folder/build.ninja -nt $presets ]]; then return; fi
    grep -q "\"name\": \"$preset\"" "$presets" || preset=dev
    echo "Configuring $folder; building it for the first time takes some minutes." >&2
    cmake -S "$root" --preset "$preset" -B "$folder" "${@:2}" >/dev/null
}

# build NAME [TARGET...]: builds these targets, or all, in build/NAME; silent unless that fails.
build() {
    local folder=$root/build/$1 output
    shift
    if ! output=$(cmake --build "$folder" --target "${@:-all}" -- --quiet 2>&1); then
        printf '%s\n' "$output" >&2
        return 1
    fi
}
