#!/usr/bin/env bash
# dev/lint.sh [ROOT]: rules of the code that the compiler doesn't know. One line for each fault;
# exit code 1 if there is one.
set -euo pipefail
export LC_ALL=C
root=${1:-$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)}
cd "$root"

module_folders=(base console editors frame issues reminder report richtext viewers)
plain_folders=(services include toolkit hands site sample tour host)
folders=("${plain_folders[@]}" "${module_folders[@]}")
max_lines=600
max_function_lines=60
max_class_lines=550
max_class_functions=55
max_readme_lines=12

# What each folder may include, itself included. A folder that isn't named may include all.
may_include() {
    case "$1" in
    services) echo services ;;
    include) echo services include ;;
    toolkit) echo toolkit ;;
    site) echo services site ;;
    sample) echo services site sample ;;
    hands) echo toolkit hands ;;
    tour) echo include services toolkit hands site sample host tour ;;
    host) echo include services toolkit site sample host ;;
    base) echo include services toolkit base ;;
    editors | richtext | report) echo include services toolkit base "$1" ;;
    viewers) echo include services toolkit base editors richtext report viewers ;;
    issues | reminder) echo include services toolkit base editors richtext report viewers "$1" ;;
    console) echo include services toolkit base editors richtext report viewers issues console ;;
    frame) echo include services toolkit "${module_folders[@]}" ;;
    esac
}

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

# Includes of our own are written from the top ("toolkit/Clock.h"); generated ones have no folder.
check_includes() {
    local folder allowed
    for folder in "${folders[@]}"; do
        allowed=" $(may_include "$folder") "
        grep_sources '^[[:space:]]*#[[:space:]]*include[[:space:]]+["<]' "$folder" |
            awk -v folder="$folder" -v allowed="$allowed" -v ours=" ${folders[*]} tests bench " '
            {
                quoted = match($0, /"[^"]+"/)
                if (!quoted) match($0, /<[^>]+>/)
                path = substr($0, RSTART + 1, RLENGTH - 2)
                slash = index(path, "/")
                top = slash ? substr(path, 1, slash - 1) : ""
                where = $0
                sub(/:[^:]*#.*/, "", where)
                if (quoted && !slash && path ~ /^ui_.*\.h$|\.moc$|^moc_.*\.cpp$/) next
                if (quoted && !index(ours, " " top " "))
                    print where ": include \"" path "\" from the top folder"
                else if (index(ours, " " top " ") && !index(allowed, " " top " "))
                    print where ": " folder "/ must not include " path
            }'
    done
}

check_umbrellas() {
    grep_sources '#[[:space:]]*include[[:space:]]*<(Qt(Core|Gui|Widgets|Sql|Svg|Test)/)?Qt(Core|Gui|Widgets|Sql|Svg|Test)>' \
        "${folders[@]}" tests bench | sed 's/$/   : include the class, not the whole of Qt/'
}

check_sql() {
    grep_sources '#[[:space:]]*include[[:space:]]*<(QtSql/|QSql|sqlite3)' \
        include services toolkit hands sample tour host "${module_folders[@]}" |
        sed 's/$/   : SQL belongs to site\//'
}

# Behind the interfaces of a site: its engine and its store. Nobody above knows them.
check_engines() {
    grep_sources '#[[:space:]]*include[[:space:]]*"site/(sqlite|blobs)/' \
        sample tour host | sed 's/$/   : ask the site by its interfaces/'
    grep_sources '#[[:space:]]*include[[:space:]]*("site/sqlite/|<QSql|<sqlite3)' \
        site/blobs site/transfer | sed 's/$/   : only the engine knows the database/'
    sources site | grep -v '/.*/' | xargs -r grep -HnE \
        '#[[:space:]]*include[[:space:]]*"site/[a-z]+/' | sed 's/$/   : the engine stands on the interfaces/' || true
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

check_lengths() {
    sources "${folders[@]}" tests bench | while read -r file; do
        lines=$(wc -l <"$file")
        if [ "$lines" -gt "$max_lines" ]; then
            echo "$file: $lines lines, over $max_lines; split it by concern"
        fi
    done
}

# By the form that clang-format gives: bodies of functions begin and end at the margin. Functions
# that give a table are as long as the table.
check_functions() {
    # shellcheck disable=SC2016 # the variables are those of awk
    sources "${folders[@]}" tests bench | xargs -r awk -v limit="$max_function_lines" '
        FNR == 1 { inside = 0; start = 0 }
        inside && /^}/ {
            lines = FNR - start + 1
            if ($0 == "}" && lines > limit && name !~ /^(static )?const std::vector<.*>& /)
                print FILENAME ":" start ": a function of " lines " lines, over " limit
            inside = 0
            start = 0
            next
        }
        inside { next }
        /^[A-Za-z_~[]/ && !/^(namespace|using)/ && !start { start = FNR; name = $0 }
        /;( \/\/.*)?$/ { start = 0 }
        /\{$/ && !/^namespace/ && start { inside = 1 }'
}

# A class counted over all its files: "part 2" makes it no smaller.
check_classes() {
    # shellcheck disable=SC2016 # the variables are those of awk
    sources "${folders[@]}" | { grep '\.cpp$' || true; } | xargs -r awk \
        -v max_lines="$max_class_lines" -v max_functions="$max_class_functions" '
        function count() {
            if (match(head, /[A-Za-z_0-9]+(<[^<>]*>)?::(~?[A-Za-z_0-9]+|operator[^(]*)$/)) {
                class = substr(head, RSTART)
                sub(/[<:].*/, "", class)
                class = substr(FILENAME, 1, index(FILENAME, "/")) " " class
                lines[class] += FNR - start + 1
                ++functions[class]
                if (!known[class, FILENAME]++) files[class] = files[class] " " FILENAME
            }
            start = inside = 0
        }
        FNR == 1 { start = inside = 0 }
        inside { if (/^}/) count(); next }
        !start && /^[A-Za-z_~]/ && !/^(namespace|using|enum|struct|class|template (class|struct)) / {
            start = FNR
            head = ""
            named = 0
        }
        !start { next }
        !named { head = head $0; named = sub(/\(.*/, "", head) }
        /\{.*\}$/ || / = default;$/ { count(); next }
        /;( \/\/.*)?$/ { start = 0; next }
        /\{$/ { inside = 1 }
        END {
            for (class in lines)
                if (lines[class] > max_lines || functions[class] > max_functions)
                    print class ": " lines[class] " lines in " functions[class] \
                        " functions, over " max_lines " or " max_functions ":" files[class]
        }' | sort
}

check_readmes() {
    local folder
    for folder in "${folders[@]}" tests bench; do
        if [ -n "$(sources "$folder" | head -n 1)" ] && [ ! -f "$folder/README.md" ]; then
            echo "$folder: has no README.md"
        fi
    done
    find . \( -path ./build -o -path './.[!.]*' -o -path ./README.md \) -prune -o \
        -name README.md -print | sort | while read -r file; do
        lines=$(wc -l <"$file")
        if [ "$lines" -gt "$max_readme_lines" ]; then
            echo "$file: $lines lines, over $max_readme_lines"
        fi
    done
}

check_exports() {
    local here module
    here=$(dirname "${BASH_SOURCE[0]}")
    for module in build/*/bin/libKXVeskPicture.so; do
        if [ -f "$module" ]; then
            "$here/exports.sh" "$module" || true
        fi
    done
}

faults=$(
    check_includes
    check_umbrellas
    check_sql
    check_engines
    check_sleeps
    check_namespaces
    check_lengths
    check_functions
    check_classes
    check_readmes
    check_exports
)
if [ -n "$faults" ]; then
    echo "$faults"
    echo "lint: $(wc -l <<<"$faults") faults"
    exit 1
fi
echo 'lint: no faults'
