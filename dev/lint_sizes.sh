# shellcheck shell=bash
# shellcheck disable=SC2154 # folders: lint.sh finds them
# What dev/lint.sh counts: files, columns, functions, classes, the host.

max_lines=600
max_columns=100
max_function_lines=60
# As large as the largest are: GridView, CMultiPageGrid.
max_class_lines=597
max_class_functions=59
max_readme_lines=12

check_lengths() {
    sources "${folders[@]}" tests bench | while read -r file; do
        lines=$(wc -l <"$file")
        if [ "$lines" -gt "$max_lines" ]; then
            echo "$file: $lines lines, over $max_lines; split it by concern"
        fi
    done
}

# As clang-format counts, which leaves strings alone: a Chinese character has two columns. By the
# bytes of UTF-8: three are two columns but for the dashes, arrows and quotes, four are two.
check_columns() {
    # shellcheck disable=SC2016 # the variables are those of awk
    sources "${folders[@]}" tests bench | xargs -r awk -v limit="$max_columns" '
        length($0) > limit {
            text = $0
            columns = length(text) - gsub(/[\302-\337]/, "", text) \
                - 2 * gsub(/\342[\200-\271]/, "", text) - gsub(/[\342-\357]/, "", text) \
                - 2 * gsub(/[\360-\364]/, "", text)
            if (columns > limit)
                print FILENAME ":" FNR ": " columns " columns, over " limit
        }'
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

# A class counted over all its files, with its body and what is written in it: neither "part 2" nor
# inline makes it smaller. A class of a source file is that file's own.
check_classes() {
    # shellcheck disable=SC2016 # the variables are those of awk
    sources "${folders[@]}" tests bench | xargs -r awk -v max_lines="$max_class_lines" \
        -v max_functions="$max_class_functions" -v max_function_lines="$max_function_lines" '
        function add(name, count, bodies) {
            class = (FILENAME, name) in own ? FILENAME " " name : top " " name
            lines[class] += count
            functions[class] += bodies
            if (!known[class, FILENAME]++) files[class] = files[class] " " FILENAME
        }
        function end_function(name) {
            if (match(head, /[A-Za-z_0-9]+(<[^<>]*>)?::(~?[A-Za-z_0-9]+|operator[^(]*)$/)) {
                name = substr(head, RSTART)
                sub(/[<:].*/, "", name)
                add(name, FNR - start + 1, 1)
            }
            start = inside = 0
        }
        function end_member() {
            add(body, 0, 1)
            if (FNR - member + 1 > max_function_lines)
                print FILENAME ":" member ": a function of " FNR - member + 1 " lines, over " max_function_lines
            member = in_member = 0
        }
        FNR == 1 {
            start = inside = member = in_member = 0
            body = begun = ""
            top = substr(FILENAME, 1, index(FILENAME, "/"))
        }

        # The body of a class.
        body != "" && /^};/ { add(body, FNR - body_start + 1, 0); body = ""; member = in_member = 0; next }
        body != "" && in_member { if ($0 ~ "^" indent "}$") end_member(); next }
        body != "" && !member && /^ +[A-Za-z_~[]/ && !/^ *((public|private|protected|signals|slots)[a-z ]*:|using |friend |(enum|struct|class|union) )/ {
            member = FNR
            match($0, /^ +/)
            indent = substr($0, 1, RLENGTH)
            called = 0
        }
        body != "" && member {
            if (/\(/) called = 1
            if (called && /\{.*\}$/) end_member()
            else if (/;( *\/\/.*)?$/ || /^[^(]*=.*\{$/) member = 0
            else if (called && /\{$/) in_member = 1
            else if (/[{}]$/) member = 0
            next
        }
        body != "" || /^template </ { next }
        !start && /^(class|struct) [A-Za-z_0-9 :]+/ && !/;$/ {
            begun = $0
            sub(/ (final )?[:{].*/, "", begun)
            sub(/ final$/, "", begun)
            sub(/.* /, "", begun)
            begun_at = FNR
        }
        begun != "" && /\{\}?;?$/ {
            if (/\{$/) {
                body = begun
                body_start = begun_at
                if (FILENAME ~ /\.cpp$/) own[FILENAME, body] = 1
            }
            begun = ""
            next
        }
        begun != "" { next }

        # Functions at the margin.
        inside { if (/^}/) end_function(); next }
        !start && /^[A-Za-z_~]/ && !/^(namespace|using|enum|struct|class|template (class|struct)) / {
            start = FNR
            head = ""
            named = 0
        }
        !start { next }
        !named { head = head $0; named = sub(/\(.*/, "", head) }
        /\{.*\}$/ || / = default;$/ { end_function(); next }
        /;( \/\/.*)?$/ { start = 0; next }
        /\{$/ { inside = 1 }
        END {
            for (class in lines)
                if (class !~ /^(tests|bench)\// && (lines[class] > max_lines || functions[class] > max_functions))
                    print class ": " lines[class] " lines in " functions[class] \
                        " functions, over " max_lines " or " max_functions ":" files[class]
        }' | sort
}

# The client shows what the module is for: at most two fifths of all code, since it sets up sites, too.
# What makes reports, spreadsheets and setups out of tables is no part of that: components that any
# host could have.
components='host/report host/sheet host/setup'
check_share() {
    local all host component lines
    all=$(sources "${folders[@]}" | xargs -r cat | wc -l)
    host=$(sources host | xargs -r cat | wc -l)
    for component in $components; do
        lines=$(sources "$component" | xargs -r cat | wc -l)
        host=$((host - lines))
    done
    if [ $((host * 5)) -gt $((all * 2)) ]; then
        echo "host/: $host of $all lines, more than two fifths"
    fi
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
