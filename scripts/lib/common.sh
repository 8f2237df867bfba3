# What the scripts share; sourced, not run. Sets $root, the project's folder, wherever the script is called from
# and through whatever link.
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.." && pwd)

# Prints the calling script's own description, the comment at its top, and ends.
show_help() {
    sed -n '2,/^[^#]/ { s/^# \{0,1\}//p }' "$(readlink -f "$0")"
    exit 0
}

fail() {
    echo "$(basename "$0"): $1" >&2
    exit "${2:-1}"
}

# quietly LOG COMMAND...: runs a command whose output matters only when it fails.
quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
}

# A compiler cache speeds up a fresh folder; CMake takes it up when it first configures one.
if [[ -z ${CMAKE_CXX_COMPILER_LAUNCHER:-} ]] && command -v ccache >/dev/null; then
    export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
