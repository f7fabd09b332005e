# shellcheck shell=bash
# shellcheck disable=SC2154 # folders: lint.sh finds them
# What dev/lint.sh knows of the layers: who may include whom, and who knows SQL and the data folder.

# A row for each folder that has sources, itself included in it; what stands in no row is forbidden.
# Circles, all between rooms of one library: toolkit, toolkit/windows and toolkit/controls;
# host/ui with host/ui/marks, host/ui/pick and host/ui/plan; sample with sample/drawings, sample/render, sample/scenes, sample/site.
layers='
services: services
include: include services
toolkit: toolkit toolkit/windows
toolkit/compare: toolkit/compare
toolkit/controls: toolkit toolkit/controls toolkit/windows
toolkit/grid: toolkit toolkit/controls toolkit/grid toolkit/windows
toolkit/media: toolkit toolkit/media
toolkit/richtext: toolkit toolkit/media toolkit/richtext toolkit/windows
toolkit/sound: toolkit/media toolkit/sound
toolkit/windows: toolkit toolkit/controls toolkit/windows
base: base include services toolkit toolkit/controls toolkit/windows
editors: base editors include services toolkit toolkit/controls toolkit/windows
report: report toolkit/windows
richtext: base include richtext services toolkit toolkit/controls toolkit/richtext toolkit/windows
viewers: base editors report richtext services toolkit toolkit/controls toolkit/media toolkit/richtext toolkit/windows viewers
issues: base editors include issues report services toolkit toolkit/controls toolkit/windows viewers toolkit/media
console: base console editors include issues services toolkit toolkit/controls toolkit/grid toolkit/media toolkit/windows viewers
reminder/feed: base include reminder/feed services toolkit toolkit/windows
reminder/marks: base include reminder/marks services toolkit
reminder/popups: base reminder/popups services toolkit toolkit/controls toolkit/windows viewers
frame: base console editors frame include issues reminder/feed reminder/marks reminder/popups services toolkit toolkit/windows viewers
hands: hands
site: services site
site/blobs: site site/blobs
site/transfer: site site/blobs site/transfer
site/sqlite: services site site/blobs site/sqlite site/transfer
sample: sample sample/render sample/scenes sample/site site
sample/drawings: sample sample/drawings
sample/render: sample sample/render
sample/scenes: sample sample/render sample/scenes
sample/site: sample sample/drawings sample/scenes sample/site site
sheets: sheets
host: host/app
host/app: host/app host/drawings host/import host/qr host/reminders host/report host/services host/session host/setup host/sheet host/ui host/ui/catchup host/ui/drawing host/ui/filing host/ui/issues host/ui/marks host/ui/photo host/ui/pick host/ui/plan host/ui/report host/ui/rich host/ui/setup host/ui/statistics include sample services sheets site site/transfer toolkit toolkit/controls toolkit/grid toolkit/media toolkit/richtext toolkit/windows
host/drawings: host/drawings
host/drawings/reader: host/drawings host/drawings/reader
host/import: host/import services site
host/pictures: host/pictures
host/qr: host/qr
host/report: host/report toolkit/media toolkit/richtext
host/reminders: host/reminders host/session site toolkit
host/services: host/services host/session services site site/transfer toolkit
host/setup: host/setup services sheets site
host/sheet: host/sheet services sheets site toolkit
host/session: host/session services site site/transfer toolkit
host/ui: host/qr host/ui host/ui/catchup host/ui/drawing host/ui/marks host/ui/photo host/ui/pick host/ui/plan host/ui/statistics include services toolkit toolkit/controls toolkit/windows
host/ui/catchup: host/ui/catchup toolkit toolkit/controls
host/ui/drawing: host/drawings host/ui host/ui/drawing toolkit toolkit/controls
host/ui/filing: host/ui host/ui/filing services toolkit toolkit/controls toolkit/windows
host/ui/marks: host/ui host/ui/marks services toolkit toolkit/controls
host/ui/issues: host/ui host/ui/issues host/ui/pick services toolkit toolkit/controls toolkit/media toolkit/windows
host/ui/photo: host/ui/photo toolkit
host/ui/pick: host/ui host/ui/pick host/ui/plan toolkit toolkit/controls
host/ui/report: host/report host/ui host/ui/report toolkit toolkit/controls toolkit/media toolkit/windows
host/ui/rich: host/ui host/ui/rich toolkit toolkit/compare toolkit/controls toolkit/media toolkit/richtext toolkit/windows
host/ui/setup: host/setup host/ui host/ui/setup site toolkit toolkit/windows
host/ui/statistics: host/ui/statistics toolkit
host/ui/plan: host/ui host/ui/marks host/ui/pick host/ui/plan toolkit
tour: hands host/app host/services host/ui/drawing host/ui/pick host/ui/plan host/ui/report services tour
'
# These may include all, and know the engine.
free_folders='tests bench'

# Includes of our own are written from the top in quotes ("toolkit/Clock.h"); generated ones have no
# folder.
check_includes() {
    sources "${folders[@]}" | sed 's|/[^/]*$||' | sort -u | awk -v rows="$layers" '
        BEGIN {
            n = split(rows, row, "\n")
            for (i = 1; i <= n; ++i) known[substr(row[i], 1, index(row[i], ":") - 1)] = 1
        }
        !known[$0] { print $0 "/: has no row in the table of dev/lint_layers.sh" }'
    # shellcheck disable=SC2016 # the variables are those of awk
    grep_sources '^[[:space:]]*#[[:space:]]*include[[:space:]]*["<]' "${folders[@]}" tests bench |
        awk -v rows="$layers" -v free="$free_folders" '
        function folder_of(path) {
            return sub(/\/[^\/]*$/, "", path) ? path : ""
        }
        BEGIN {
            n = split(free, row, " ")
            for (i = 1; i <= n; ++i) ours[row[i]] = 1
            n = split(rows, row, "\n")
            for (i = 1; i <= n; ++i) {
                split(row[i], side, ": ")
                m = split(side[2], may, " ")
                ours[substr(side[1], 1, index(side[1] "/", "/") - 1)] = 1
                for (j = 1; j <= m; ++j) allowed[side[1], may[j]] = 1
            }
        }
        {
            where = $0
            sub(/:[[:space:]]*#.*/, "", where)
            folder = folder_of(where)
            rest = substr($0, length(where) + 1)
            quoted = match(rest, /"[^"]+"/)
            if (!quoted) match(rest, /<[^>]+>/)
            path = substr(rest, RSTART + 1, RLENGTH - 2)
            slash = index(path, "/")
            own = slash && (substr(path, 1, slash - 1) in ours)
            if (quoted && !slash && path ~ /^ui_.*\.h$|\.moc$|^moc_.*\.cpp$/) next
            if (quoted && !own || path ~ /(^|\/)\.\.?\//)
                print where ": include \"" path "\" from the top folder"
            else if (own && !quoted)
                print where ": include " path " in quotes, it is our own"
            else if (own && folder !~ /^(tests|bench)(\/|$)/ && !allowed[folder, folder_of(path)])
                print where ": " folder "/ must not include " path
        }'
}

# Sources that are neither the engine nor a test.
outside_the_engine() {
    sources "${folders[@]}" | { grep -v '^site/sqlite/' || true; }
}

# The engine alone knows the database: its classes, its headers, its language.
check_sql() {
    local word='(SELECT|INSERT|UPDATE|DELETE|CREATE|DROP|ALTER|PRAGMA)[[:space:]]+[A-Za-z0-9_%*(]'
    outside_the_engine | xargs -r grep -HnE '\<QSql[A-Z]|\<QtSql\>|\<sqlite3' |
        sed 's/$/   : SQL belongs to site\/sqlite\//' || true
    # In a string's beginning, of a raw one too; a raw one may begin with the next line.
    outside_the_engine | xargs -r grep -HnE "\"([A-Za-z_]*\\()?[[:space:]]*$word|^[[:space:]]*$word" |
        sed 's/$/   : SQL text belongs to site\/sqlite\//' || true
}

# Where a site has its files is the site's own affair: nobody else puts paths below its folder together.
check_places() {
    local place='(\.|->)Place\(\)' folder='site\.db|store/|/bin/|cache/|sample\.(lock|part)|set-aside'
    local appended='[[:space:]]*(\+|%|\.(append|push_back)\>)' below='\.[a-z]*([pP]ath|[dD]ir|cd|exists|remove)\('
    sources "${folders[@]}" | { grep -v '^site/' || true; } | xargs -r grep -HnE \
        "${place}$appended|QDir[ a-zA-Z_]*[({][^;]*${place}[)}]*$below|\"[^\"]*($folder)|\"/?(store|cache)\"|\<place::k" |
        sed 's/$/   : paths below the data folder belong to site\//' || true
}
