#!/usr/bin/env bash
# dev/lint.sh [ROOT]: rules of the code that the compiler doesn't know. One line for each fault;
# exit code 1 if there is one.
set -euo pipefail
export LC_ALL=C
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=${1:-$here/..}
# shellcheck source=dev/lint_layers.sh
. "$here/lint_layers.sh"
# shellcheck source=dev/lint_sizes.sh
. "$here/lint_sizes.sh"
cd "$root"

# All that have sources, those that the table of layers doesn't know too.
mapfile -t folders < <(find . \( -name build -o -path './.[!.]*' -o -path ./tests -o -path ./bench \
    -o -path ./dev \) -prune -o -type f -path './*/*' \( -name '*.h' -o -name '*.cpp' \) -print |
    cut -d/ -f2 | sort -u)

# sources FOLDER...: our C++ files below the folders that exist.
sources() {
    local folder
    for folder in "$@"; do
        if [ -d "$folder" ]; then
            find "$folder" -name build -prune -o -type f \( -name '*.h' -o -name '*.cpp' \) -print
        fi
    done | sort
}

# grep_sources PATTERN FOLDER...: file:line:text of what matches.
grep_sources() {
    local pattern="$1"
    shift
    sources "$@" | xargs -r grep -HnE "$pattern" || true
}

check_umbrellas() {
    grep_sources '#[[:space:]]*include[[:space:]]*<(Qt(Core|Gui|Widgets|Sql|Svg|Test)/)?Qt(Core|Gui|Widgets|Sql|Svg|Test)>' \
        "${folders[@]}" tests bench | sed 's/$/   : include the class, not the whole of Qt/'
}

check_sleeps() {
    grep_sources '\<(sleep_for|sleep_until|QThread::(m|u)?sleep|qSleep|qWait|usleep|nanosleep)\>' tests |
        sed 's/$/   : wait on a condition (WaitFor) or turn the clock by hand/'
}

# Several files of a target share one translation unit under the sanitizers.
check_namespaces() {
    grep_sources '^using namespace' "${folders[@]}" tests bench |
        grep -v 'using namespace Qt::StringLiterals;' |
        sed 's/$/   : no using-directive for a whole file/' || true
}

check_exports() {
    local module story
    for module in build/*/bin/libKXVeskPicture.so; do
        if [ -f "$module" ] && ! story=$("$here/exports.sh" "$module" 2>&1); then
            echo "${story:-$module: its exports could not be read}"
        fi
    done
}

faults=$(
    check_includes
    check_umbrellas
    check_sql
    check_places
    check_sleeps
    check_namespaces
    check_lengths
    check_columns
    check_functions
    check_classes
    check_share
    check_readmes
    check_exports
)
if [ -n "$faults" ]; then
    echo "$faults"
    echo "lint: $(wc -l <<<"$faults") faults"
    exit 1
fi
echo 'lint: no faults'
