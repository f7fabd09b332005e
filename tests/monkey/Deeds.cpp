#include "tests/monkey/Deeds.h"

#include <numeric>
#include <random>

namespace monkey {

using namespace Qt::StringLiterals;

int Deed::Of(int die, qsizetype sides) const {
    return sides <= 0 ? 0 : int(dice[size_t(die)] % quint32(sides));
}

bool Deed::Chance(int die, int percent) const {
    return Of(die, 100) < percent;
}

const std::vector<KindRow>& KindTable() {
    static const std::vector<KindRow> rows = {
        {Kind::Click, u"click"_s, 30},
        {Kind::RightClick, u"right click"_s, 4},
        {Kind::DoubleClick, u"double click"_s, 6},
        {Kind::Cell, u"cell"_s, 10},
        {Kind::Flag, u"flag"_s, 3},
        {Kind::Hover, u"hover"_s, 4},
        {Kind::Wheel, u"wheel"_s, 5},
        {Kind::Drag, u"drag"_s, 5},
        {Kind::Type, u"type"_s, 5},
        {Kind::Edit, u"edit"_s, 8},
        {Kind::Key, u"key"_s, 12},
        {Kind::Shortcut, u"shortcut"_s, 7},
        {Kind::Close, u"close"_s, 4},
        {Kind::Resize, u"resize"_s, 3},
        {Kind::Move, u"move"_s, 1},
        {Kind::Minimise, u"minimise"_s, 1},
        {Kind::Maximise, u"maximise"_s, 1},
        {Kind::Restore, u"restore"_s, 2},
        {Kind::Activate, u"activate"_s, 4},
        {Kind::Project, u"project"_s, 1},
        {Kind::Neighbour, u"neighbour"_s, 3},
        {Kind::Transfers, u"transfers"_s, 1},
        {Kind::Drop, u"drop"_s, 1},
        {Kind::Wait, u"wait"_s, 5},
    };
    return rows;
}

QString NameOf(Kind kind) {
    for (const KindRow& row : KindTable()) {
        if (row.kind == kind) {
            return row.name;
        }
    }
    return {};
}

Deed DeedAt(quint64 seed, int number) {
    // A generator of its own for each deed: leaving one out doesn't change the others.
    std::seed_seq words{quint32(seed), quint32(seed >> 32), quint32(number)};
    std::mt19937 generator(words);
    const auto& rows = KindTable();
    const int all = std::accumulate(rows.begin(), rows.end(), 0,
                                    [](int sum, const KindRow& row) { return sum + row.weight; });
    int left = int(generator() % quint32(all));
    Deed deed;
    deed.number = number;
    for (const KindRow& row : rows) {
        deed.kind = row.kind;
        left -= row.weight;
        if (left < 0) {
            break;
        }
    }
    for (quint32& die : deed.dice) {
        die = quint32(generator());
    }
    return deed;
}

const QStringList& Texts() {
    static const QStringList texts = {
        u"a"_s,
        u"1"_s,
        u"-1"_s,
        u"0"_s,
        u"2023-11-15"_s,
        u"99999999999999999999"_s,
        u"照片"_s,
        u"地下一层 质量 张伟"_s,
        u"新工程"_s,
        u"𠮷😀"_s,
        u"%1%2%n"_s,
        u"<b>&amp;&x"_s,
        u"'; DROP TABLE bim_photo; --"_s,
        u"../../x"_s,
        u"con.jpg"_s,
        u" "_s,
        u"\t"_s,
        u"。"_s,
        QString(300, u'长'),
        QString(5000, u'x'),
    };
    return texts;
}

const QStringList& ShortTexts() {
    static const QStringList texts = {u"1"_s, u"23"_s, u"2020"_s, u"9"_s, u"0"_s,
                                      u"a"_s, u"照"_s, u"%"_s,    u"-"_s, u"."_s};
    return texts;
}

const std::vector<KeyPress>& Keys() {
    static const std::vector<KeyPress> keys = [] {
        std::vector<KeyPress> made;
        for (const Qt::Key key :
             {Qt::Key_Return,   Qt::Key_Enter,     Qt::Key_Escape, Qt::Key_Tab,  Qt::Key_Backtab,
              Qt::Key_Space,    Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Right,
              Qt::Key_Up,       Qt::Key_Down,      Qt::Key_Home,   Qt::Key_End,  Qt::Key_PageUp,
              Qt::Key_PageDown, Qt::Key_F1,        Qt::Key_F2,     Qt::Key_F4,   Qt::Key_F5,
              Qt::Key_F10,      Qt::Key_Menu,      Qt::Key_Insert, Qt::Key_Plus, Qt::Key_Minus}) {
            made.push_back({key, Qt::NoModifier});
            if (key >= Qt::Key_Escape && key <= Qt::Key_PageDown) {
                made.push_back({key, Qt::ShiftModifier});
            }
        }
        for (int letter = Qt::Key_A; letter <= Qt::Key_Z; ++letter) {
            made.push_back({Qt::Key(letter), Qt::AltModifier});
            made.push_back({Qt::Key(letter), Qt::ControlModifier});
        }
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
                                  Qt::Key_Up, Qt::Key_Down, Qt::Key_Space, Qt::Key_Return}) {
            made.push_back({key, Qt::AltModifier});
            made.push_back({key, Qt::ControlModifier});
        }
        return made;
    }();
    return keys;
}

bool ReadNumbers(const QString& words, std::vector<int>& numbers) {
    numbers.clear();
    const QStringList parts = words.split(u',', Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        bool first = false;
        bool last = false;
        const int from = part.section(u'-', 0, 0).toInt(&first);
        const int to = part.section(u'-', -1).toInt(&last);
        if (!first || !last || from > to) {
            return false;
        }
        for (int number = from; number <= to; ++number) {
            numbers.push_back(number);
        }
    }
    return true;
}

} // namespace monkey
