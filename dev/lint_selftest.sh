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
put console/Good.h '#pragma once'
put console/Good.cpp '#include "ui_Good.h"' '#include "viewers/Below.h"' 'using namespace Qt::StringLiterals;'
put console/Table.cpp 'const std::vector<int>& Table() {' "$(seq 60)" '}' 'int Short(int a,' '          int b) {' '}'
put tests/README.md tests
put tests/GoodTest.cpp '#include "console/Good.h"' '// sleeps for nobody'
# Just within the limits: 59 functions, 597 lines, a body and what is written in it counted too.
put console/GoodMany.cpp 'GoodMany::GoodMany(int a)' '    : m_a(a) {}' "$(seq -f 'int GoodMany::Get%g() { return 1; }' 48)"
put console/GoodMany.h 'class GoodMany final : public Base {' 'public:' "$(seq -f '    [[nodiscard]] int Get() const;
    int Inline%g(const int& a,
                 int b = 0) const {
        return a;
    }
    std::map<int, int> m_field{{1, 2}};' 9)" '    explicit GoodMany(int a) : m_a(a) {}' \
    '    enum class Kind {' '        One,' '    };' '    int m_a = 0;' '};'
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
put console/GoodWide.h 'template <class Row>' 'class GoodWide {' "$(seq -f '    int m_%g = 0;' 45)" '};'
# Classes of source files are each file's own.
for one in 1 2; do
    put "console/GoodLocal$one.cpp" 'namespace {' 'class GoodLocal {' "$(seq -f '    int Get%g() { return 1; }' 30)" '};' \
        'int GoodLocal::Last() {' '}' '}'
done
put site/README.md site
put site/sqlite/GoodEngine.cpp '#include <QSqlQuery>' 'const auto kText = u"SELECT id FROM bin"_s;' 'a = m_folder.Place() + kCache;'
put tests/GoodSql.cpp '#include <QSqlQuery>' 'u"SELECT id FROM bin"_s' 'site.Place() + u"/site.db"_s'
put console/GoodTexts.cpp 'Icon(u"delete"_s);' 'Say(u"Updated all"_s);' '#include "console/Good.h" // not "../Good.h"'
put console/GoodWidth.cpp "// $(printf '一%.0s' $(seq 48))x" "// $(printf '—%.0s' $(seq 97))"
put host/README.md host
put host/app/GoodPlace.cpp 'Show(m_session.Site().Place());' 'QRectF a = Place() + b;' 'u"/usr/share/bin"_s' 'QDir(path).exists()'
output=$("$here/lint.sh" "$tree") || fail 'a clean tree was refused'

# From any folder, by any path, a module that can't be read is noticed.
put build/dev/bin/libKXVeskPicture.so 'no module'
output=$(cd "$tree/console" && "$(realpath --relative-to "$tree/console" "$here")/lint.sh" "$tree") &&
    fail 'the exports were not looked at'
grep -q 'libKXVeskPicture.so' <<<"$output" || fail 'not found: the module'
rm -r "$tree/build"

put services/Up.h '#include "toolkit/Clock.h"'
put console/Aside.cpp '#include "reminder/Thread.h"'
put viewers/Above.cpp '#include "console/Good.h"'
put host/Inside.cpp '#include <frame/Facade.h>'
put host/Walked.cpp '#include "tour/Tour.h"'
put hands/Knowing.cpp '#include "host/ui/MainWindow.h"'
put host/ui/Window.cpp '#include "host/session/HostSession.h"' '#include "host/services/ServiceSet.h"' '#include "site/ISite.h"'
put host/ui/plan/Plan.cpp '#include "host/app/Client.h"'
put host/import/Job.cpp '#include "toolkit/Clock.h"'
put host/session/Desk.cpp '#include "host/ui/MainWindow.h"'
put host/services/Set.cpp '#include "host/app/Client.h"'
put host/pictures/Main.cpp '#include "site/ISite.h"'
put site/blobs/Store.cpp '#include "site/transfer/Transfer.h"'
put sample/render/Sun.cpp '#include "sample/scenes/Decals.h"'
put sample/site/Plan.cpp '#include "sample/render/Scene.h"'
put toolkit/Clock.cpp '#include "toolkit/grid/GridView.h"'
put toolkit/grid/Grid.cpp '#include "toolkit/media/Pcm.h"'
put toolkit/media/Pcm.cpp '#include "toolkit/sound/Sound.h"'
put reminder/marks/Marks.cpp '#include "reminder/feed/Feed.h"'
put reminder/feed/Feed.cpp '#include "reminder/popups/Toast.h"'
put console/sub/Rules.cpp '// a folder of its own'
put console/Up.cpp '#include "console/../host/Main.h"'
put tests/BracketTest.cpp '#include <console/Good.h>'
put frame/Outside.cpp '# include "host/Main.h"'
put base/Short.cpp '#include "Log.h"'
put toolkit/Umbrella.cpp '#include <QtWidgets>'
put base/Sql.cpp '#include <QSqlQuery>'
put site/Classes.cpp 'class QSqlDatabase;'
put site/blobs/Quoted.cpp '#include "QSqlQuery"'
put sample/Text.cpp 'Run(u"INSERT INTO bin VALUES (1)"_s);' 'R"sql( DELETE FROM bin)sql"' '    PRAGMA user_version' \
    'Run(u"SELECT 1"_s);'
put site/transfer/Text.cpp 'Run(" UPDATE %1 SET a = 1");'
put host/app/Paths.cpp 'a = m_site.Place() + b;' 'QDir(m_session.Site().Place()).filePath(b)' 'b = u"%1/site.db"_s;' \
    'c = folder + u"/store/"_s;' 'd = u"/bin/"_s + uuid;' 'e = u"cache/%1"_s;' 'f = site::place::kWork;' 'g = site->Place() % b;'
put host/Engine.cpp '#include "site/sqlite/Database.h"'
put site/Down.cpp '#include "site/blobs/FileStore.h"'
put site/transfer/Around.cpp '#include "site/sqlite/Database.h"'
put tests/SleepTest.cpp 'std::this_thread::sleep_for(1s);'
put tests/WaitTest.cpp 'QTest::qWait(10);'
put base/Using.cpp 'using namespace std;'
put base/Long.cpp "$(seq 601)"
put base/Function.cpp 'int Short() {' '}' '' '[[nodiscard]] int Long(int a,' '    int b) {' "$(seq 58)" '}'
put base/Columns.cpp "$(printf 'x%.0s' $(seq 101))" "// $(printf '一%.0s' $(seq 49))x"
put base/Inline.h 'class Inline {' '    int Long() const {' "$(seq -f '        // %g' 59)" '    }' '};'
put base/InHeader.h 'class InHeader {' "$(seq -f '    int Get%g() { return 1; }' 60)" '};'
put base/InBody.h 'template <class Row>' 'struct InBody {' "$(seq -f '    int m_%g = 0;' 400)" '};'
put base/InBody.cpp "$(seq -f 'void InBody::Do%g() {
    // 1
    // 2
}' 49)"
put host/Much.cpp "$(seq -f '// %g' 3000)"
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
    'host/Inside.cpp:1: include frame/Facade.h in quotes' \
    'host/Walked.cpp:1: host/ must not include tour/Tour.h' \
    'hands/Knowing.cpp:1: hands/ must not include host/ui/MainWindow.h' \
    'frame/Outside.cpp:1: frame/ must not include host/Main.h' \
    'base/Short.cpp:1: include "Log.h" from the top folder' \
    'host/ui/Window.cpp:1: host/ui/ must not include host/session/HostSession.h' \
    'host/ui/Window.cpp:2: host/ui/ must not include host/services/ServiceSet.h' \
    'host/ui/Window.cpp:3: host/ui/ must not include site/ISite.h' \
    'host/ui/plan/Plan.cpp:1: host/ui/plan/ must not' \
    'host/import/Job.cpp:1: host/import/ must not' \
    'host/session/Desk.cpp:1: host/session/ must not' \
    'host/services/Set.cpp:1: host/services/ must not' \
    'host/pictures/Main.cpp:1: host/pictures/ must not' \
    'host/Engine.cpp:1: host/ must not include site/sqlite/Database.h' \
    'site/Down.cpp:1: site/ must not include site/blobs/FileStore.h' \
    'site/transfer/Around.cpp:1: site/transfer/ must not' \
    'site/blobs/Store.cpp:1: site/blobs/ must not' \
    'sample/render/Sun.cpp:1: sample/render/ must not' \
    'sample/site/Plan.cpp:1: sample/site/ must not' \
    'toolkit/Clock.cpp:1: toolkit/ must not' \
    'toolkit/grid/Grid.cpp:1: toolkit/grid/ must not' \
    'toolkit/media/Pcm.cpp:1: toolkit/media/ must not' \
    'reminder/marks/Marks.cpp:1: reminder/marks/ must not' \
    'reminder/feed/Feed.cpp:1: reminder/feed/ must not' \
    'console/sub/: has no row in the table' \
    'console/Up.cpp:1: include "console/../host/Main.h" from the top folder' \
    'tests/BracketTest.cpp:1: include console/Good.h in quotes' \
    'site/Classes.cpp:1:' 'site/blobs/Quoted.cpp:1:#include "QSqlQuery"   : SQL' \
    'sample/Text.cpp:1:' 'sample/Text.cpp:2:' 'sample/Text.cpp:3:' 'sample/Text.cpp:4:' 'site/transfer/Text.cpp:1:' \
    'host/app/Paths.cpp:1:' 'host/app/Paths.cpp:2:' 'host/app/Paths.cpp:3:' 'host/app/Paths.cpp:4:' \
    'host/app/Paths.cpp:5:' 'host/app/Paths.cpp:6:' 'host/app/Paths.cpp:7:' 'host/app/Paths.cpp:8:' \
    'base/Columns.cpp:1: 101 columns' 'base/Columns.cpp:2: 102 columns' \
    'base/Inline.h:2: a function of 61 lines' \
    'base/ InHeader: 62 lines in 60 functions' \
    'base/ InBody: 598 lines in 49 functions' \
    'lines, more than two fifths' \
    'toolkit/Umbrella.cpp:1:' \
    'base/Sql.cpp:1:' \
    'tests/SleepTest.cpp:1:' \
    'tests/WaitTest.cpp:1:' \
    'base/Using.cpp:1:' \
    'base/Long.cpp: 601 lines' \
    'base/Function.cpp:4: a function of 61 lines' \
    'base/ Many: 102 lines in 71 functions, over 597 or 59: base/Many.cpp base/ManyMore.cpp' \
    'base/ Wide: 737 lines in 69 functions, over 597 or 59: base/Wide.cpp base/WideMore.cpp' \
    'viewers: has no README.md' \
    './tests/deep/README.md: 13 lines'; do
    grep -qF "$fault" <<<"$output" || fail "not found: $fault"
done
grep -qE 'Good|Table' <<<"$(grep -v 'console/Good.h' <<<"$output")" && fail 'a good file was refused'
echo 'lint self-test: passed'
