# What the scripts share: where the project is, and how it is built. Sourced, never run.
# Everything said here goes to standard error: standard output belongs to the program being run.
# shellcheck shell=bash
set -euo pipefail

root=$(CDPATH='' cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)

# configure NAME [CMAKE_OPTION...]: makes build/NAME, unless it is there, after the preset of that
# name, or after `dev` where there is none.
# Ninja then configures again by itself where that is needed, but knows nothing of the presets.
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
