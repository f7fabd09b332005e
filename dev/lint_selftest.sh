#!/usr/bin/env bash
# Shows dev/lint.sh one tree with every fault that it knows, and one without.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT

put() {
    mkdir -p "$tree/$(dirname "$1")"
    printf '%s\n' "${@:2}" >"$tree/$1"
}

fail() {
    echo "lint self-test: $1"
    echo "$output"
    exit 1
}

put services/README.md services
put services/Good.h '#include <QString>' '#include "services/Other.h"'
put console/README.md console
put console/Good.cpp '#include "ui_Good.h"' '#include "viewers/Below.h"' 'using namespace Qt::StringLiterals;'
put console/Table.cpp 'const std::vector<int>& Table() {' "$(seq 60)" '}' 'int Short(int a,' '          int b) {' '}'
put tests/README.md tests
put tests/GoodTest.cpp '#include "console/Good.h"' '// sleeps for nobody'
# Just within the limits: 55 functions, 550 lines.
put console/GoodMany.cpp 'GoodMany::GoodMany(int a)' '    : m_a(a) {}' "$(seq -f 'int GoodMany::Get%g() { return 1; }' 54)"
put console/GoodWide.cpp "$(seq -f 'std::map<int, int> GoodWide<Row>::Make%g(int a,
    std::function<int(int)> b) {
    int c = 0;
    for (int i = 0; i < a; ++i) {
        c += b(i);
    }
    return {};
    // and so on
    // and so on
    // and so on
}' 30)"
put console/GoodWideMore.cpp "$(seq -f 'GoodWide<Row>& GoodWide<Row>::operator+=(int a%g) {
    // 1
    // 2
    // 3
    // 4
    // 5
    // 6
    // 7
    // 8
    // 9
}' 18)" 'const int& GoodWide::Last() const {' "$(seq -f '    // %g' 20)" '}'
output=$("$here/lint.sh" "$tree") || fail 'a clean tree was refused'

put services/Up.h '#include "toolkit/Clock.h"'
put console/Aside.cpp '#include "reminder/Thread.h"'
put viewers/Above.cpp '#include "console/Good.h"'
put host/Inside.cpp '#include <frame/Facade.h>'
put host/Walked.cpp '#include "tour/Tour.h"'
put hands/Knowing.cpp '#include "host/ui/MainWindow.h"'
put frame/Outside.cpp '# include "host/Main.h"'
put base/Short.cpp '#include "Log.h"'
put toolkit/Umbrella.cpp '#include <QtWidgets>'
put base/Sql.cpp '#include <QSqlQuery>'
put host/Engine.cpp '#include "site/sqlite/Database.h"'
put site/Down.cpp '#include "site/blobs/FileStore.h"'
put site/transfer/Around.cpp '#include "site/sqlite/Database.h"'
put tests/SleepTest.cpp 'std::this_thread::sleep_for(1s);'
put tests/WaitTest.cpp 'QTest::qWait(10);'
put base/Using.cpp 'using namespace std;'
put base/Long.cpp "$(seq 601)"
put base/Function.cpp 'int Short() {' '}' '' '[[nodiscard]] int Long(int a,' '    int b) {' "$(seq 58)" '}'
put base/Many.cpp "$(seq -f 'int Many::Get%g() { return 1; }' 40)"
put base/ManyMore.cpp "$(seq -f 'bool Many::Has%g() const {
}' 31)"
put base/Wide.cpp "$(seq -f 'void Wide::Do%g() {
    // 1
    // 2
    // 3
    // 4
    // 5
    // 6
    // 7
}' 40)"
put base/WideMore.cpp "$(seq -f 'void Wide::Redo%g() {
    // 1
    // 2
    // 3
    // 4
    // 5
    // 6
    // 7
    // 8
    // 9
    // 10
    // 11
}' 29)"
put tests/deep/README.md "$(seq 13)"

output=$("$here/lint.sh" "$tree") && fail 'a tree full of faults was let through'
for fault in \
    'services/Up.h:1: services/ must not include toolkit/Clock.h' \
    'console/Aside.cpp:1: console/ must not include reminder/Thread.h' \
    'viewers/Above.cpp:1: viewers/ must not include console/Good.h' \
    'host/Inside.cpp:1: host/ must not include frame/Facade.h' \
    'host/Walked.cpp:1: host/ must not include tour/Tour.h' \
    'hands/Knowing.cpp:1: hands/ must not include host/ui/MainWindow.h' \
    'frame/Outside.cpp:1: frame/ must not include host/Main.h' \
    'base/Short.cpp:1: include "Log.h" from the top folder' \
    'toolkit/Umbrella.cpp:1:' \
    'base/Sql.cpp:1:' \
    'host/Engine.cpp:1:' \
    'site/Down.cpp:1:' 'site/transfer/Around.cpp:1:' \
    'tests/SleepTest.cpp:1:' \
    'tests/WaitTest.cpp:1:' \
    'base/Using.cpp:1:' \
    'base/Long.cpp: 601 lines' \
    'base/Function.cpp:4: a function of 61 lines' \
    'base/ Many: 102 lines in 71 functions, over 550 or 55: base/Many.cpp base/ManyMore.cpp' \
    'base/ Wide: 737 lines in 69 functions, over 550 or 55: base/Wide.cpp base/WideMore.cpp' \
    'viewers: has no README.md' \
    './tests/deep/README.md: 13 lines'; do
    grep -qF "$fault" <<<"$output" || fail "not found: $fault"
done
grep -qE 'Good|Table' <<<"$(grep -v 'console/Good.h' <<<"$output")" && fail 'a good file was refused'
echo 'lint self-test: passed'
