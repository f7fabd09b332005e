#!/usr/bin/env bash
# dev/exports.sh MODULE: fails unless the module exports its two functions and nothing else.
set -euo pipefail
module="$1"
expected=$(printf '%s\n' GetKXVeskPicData GetKXVeskPicture)
# The name of a symbol version is an absolute symbol (A), nothing that could be called.
found=$(nm -D --defined-only "$module" | awk '$2 != "A" { print $3 }' | sed 's/@.*//' | LC_ALL=C sort)
if [ "$found" != "$expected" ]; then
    echo "$module exports other things than GetKXVeskPicture and GetKXVeskPicData:"
    LC_ALL=C comm -3 <(echo "$expected") <(echo "$found") | head -20
    exit 1
fi
