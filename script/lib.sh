# SPDX-License-Identifier: GPL-3.0-or-later
# Shared by the scripts in this folder: where the project is, and how they speak.
# Leaves the shell in the project's folder; the folder it was called from is in $called_from.
set -euo pipefail
called_from=$PWD
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$project"

say() { printf '%s\n' "$*" >&2; }

die() {
    say "$*"
    exit 1
}

# configure PRESET: into build/PRESET; takes a moment when nothing changed.
configure() {
    local preset=$1 log
    log=$(cmake --preset "$preset" 2>&1) || {
        say "$log"
        die "Configuring '$preset' failed; the lines above say why."
    }
}

# configure_and_build PRESET [TARGET...]: two lines when there is nothing to build.
configure_and_build() {
    local preset=$1
    shift
    configure "$preset"
    cmake --build --preset "$preset" ${1:+--target "$@"} >&2 ||
        die "Building '$preset' failed; the lines above say why."
}
