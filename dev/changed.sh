#!/usr/bin/env bash
# dev/changed.sh BASE: the sources that clang-tidy is to look at, one a line: those that changed since
# BASE, new ones that git doesn't know yet too, and for a header its own source or one that includes it.
set -euo pipefail
cd "$(git rev-parse --show-toplevel)"

# changed PATTERN...: files that changed and are still there.
changed() {
    git -c core.quotePath=false diff --name-only --diff-filter=d "$base" -- "$@"
    git -c core.quotePath=false ls-files --others --exclude-standard -- "$@"
}

# includers HEADER PATTERN: files that include the header.
includers() {
    git -c core.quotePath=false grep -l --untracked -F "#include \"$1\"" -- "$2" | sort || true
}

# source_of HEADER: a source by which the header is compiled, through other headers if need be.
source_of() {
    local header="$1" source by
    if [ -n "${seen[$header]:-}" ]; then
        return 0
    fi
    seen[$header]=yes
    if [ -f "${header%.h}.cpp" ]; then
        echo "${header%.h}.cpp"
        return 0
    fi
    source=$(includers "$header" '*.cpp' | head -n 1)
    if [ -n "$source" ]; then
        echo "$source"
        return 0
    fi
    while read -r by; do
        source=$(source_of "$by")
        if [ -n "$source" ]; then
            echo "$source"
            return 0
        fi
    done < <(includers "$header" '*.h')
}

base="$1"
declare -A seen=()
{
    changed '*.cpp'
    changed '*.h' | while read -r header; do
        seen=()
        source_of "$header"
    done
} | sort -u
