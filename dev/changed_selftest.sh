#!/usr/bin/env bash
# Shows dev/changed.sh a tree with every kind of change.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
unset GIT_DIR GIT_WORK_TREE GIT_INDEX_FILE
cd "$tree"

as_nobody() {
    git -c user.name=nobody -c user.email=nobody@localhost -c commit.gpgsign=false "$@"
}

# expect WHAT SOURCE...: exactly these are to be looked at.
expect() {
    local found wanted
    found=$("$here/changed.sh" HEAD)
    wanted=$([ $# -eq 1 ] || printf '%s\n' "${@:2}")
    if [ "$found" != "$wanted" ]; then
        echo "changed self-test: $1: found $found, not $wanted"
        exit 1
    fi
    as_nobody add -A
    as_nobody commit -qm next --allow-empty
}

git init -q .
mkdir a
echo build/ >.gitignore
for name in Kept Changed Gone Paired; do
    echo "int $name();" >"a/$name.cpp"
done
echo 'int p;' >a/Paired.h
echo 'int l;' >a/Lone.h
echo '#include "a/Deep.h"' >a/Between.h
echo 'int d;' >a/Deep.h
echo 'int n;' >a/Nobodys.h
printf '%s\n' '#include "a/Lone.h"' '#include "a/Between.h"' >a/Kept.cpp
echo '#include "a/Lone.h"' >a/Zeta.cpp
as_nobody add -A
as_nobody commit -qm first

expect 'nothing changed'
echo 'int c;' >>a/Changed.cpp
rm a/Gone.cpp
expect 'a changed source and one that is gone' a/Changed.cpp
mkdir build
echo 'int n;' | tee a/New.cpp build/Made.cpp >a/新.cpp
expect 'new sources that git does not know' a/New.cpp a/新.cpp
echo 'int q;' >>a/Paired.h
expect 'a header with a source of its name' a/Paired.cpp
echo 'int q;' | tee -a a/Paired.h >>a/Paired.cpp
expect 'both of a pair' a/Paired.cpp
echo 'int m;' >>a/Lone.h
expect 'a header without one' a/Kept.cpp
echo 'int e;' >>a/Deep.h
expect 'a header that only a header includes' a/Kept.cpp
echo 'int o;' >>a/Nobodys.h
expect 'a header that nobody includes'
echo 'int f;' >a/Fresh.h
echo '#include "a/Fresh.h"' >a/User.cpp
expect 'a new header with its new user' a/User.cpp
mkdir a/below
cd a/below
echo 'int c;' >>../Changed.cpp
expect 'asked from a folder below' a/Changed.cpp
echo 'changed self-test: passed'
