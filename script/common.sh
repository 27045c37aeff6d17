# shellcheck shell=bash
# What the scripts beside this file share; each of them sources it first.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck disable=SC2034 # script/run goes back there.
caller=$PWD
cd -- "$root"

# Messages go to standard error: standard output belongs to the program that a script starts.
say() {
    printf '%s\n' "$*" >&2
}

# fail MESSAGE...: ends the script.
fail() {
    say "script/${0##*/}: $*"
    exit 1
}

# quietly WHAT COMMAND...: says in one line what is being done; the command's output is shown only if it fails,
# and the script ends then.
quietly() {
    local what=$1 output
    shift
    say "$what"
    if ! output=$("$@" 2>&1 </dev/null); then
        printf '%s\n' "$output" >&2
        fail "$what: failed"
    fi
}

# configure PRESET [OPTION...]: the options are CMake's, and stay set in the preset's build.
configure() {
    quietly "Configuring ($1)" cmake --preset "$@"
}

# build PRESET [TARGET...]: without a target, everything.
build() {
    local preset=$1 command
    shift
    command=(cmake --build --preset "$preset" --parallel "$(nproc)")
    [[ $# -eq 0 ]] || command+=(--target "$@")
    quietly "Building ($preset): minutes the first time, seconds later" "${command[@]}" -- --quiet
}
