#!/usr/bin/env bash
# dev/style.sh: is the code formatted as .clang-format says, and are the scripts sound?
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck source=dev/setup.sh
. "$root/dev/setup.sh"
vesk_setup "$root" style
cd "$root"

# The first version that inserts braces; others break some lines elsewhere.
git ls-files -z '*.h' '*.cpp' | xargs -0 -r clang-format-15 --dry-run --Werror
shellcheck -x -s bash run test .ci/run dev/check dev/bench dev/fuzz dev/monkey dev/*.sh
echo 'style: no faults'
