# SPDX-License-Identifier: GPL-3.0-or-later
# Shared by the scripts in this folder: where the project is, and how they speak.
set -euo pipefail
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$project"

say() { printf '%s\n' "$*" >&2; }

die() {
    say "$*"
    exit 1
}

# configure_and_build PRESET [TARGET...]: builds into build/PRESET, quietly when nothing changed.
configure_and_build() {
    local preset=$1
    shift
    cmake --preset "$preset" >"build-$preset.log" 2>&1 || {
        cat "build-$preset.log" >&2
        die "Configuring '$preset' failed; the lines above say why."
    }
    rm -f "build-$preset.log"
    cmake --build --preset "$preset" ${1:+--target "$@"} >&2
}
