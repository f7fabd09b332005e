#include "host/ui/setup/SetupLists.h"

#include "host/setup/SetupRoles.h"
#include "toolkit/Look.h"

#include <QPixmap>
#include <QRegularExpression>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;
using site::SetupList;
using site::SetupState;

namespace {

/// One of the lists of a state.
template <typename Entry> using ListOf = std::vector<Entry> SetupState::*;

template <typename Entry> QStringList NamesIn(const std::vector<Entry>& entries) {
    QStringList names;
    for (const Entry& entry : entries) {
        names << entry.name;
    }
    return names;
}

template <typename Entry>
SetupRows RowsOver(SetupDraft& draft, SetupList list, ListOf<Entry> entries, const QString& wish) {
    SetupRows rows;
    rows.list = list;
    rows.count = [&draft, entries] { return int((draft.Wanted().*entries).size()); };
    rows.add = [&draft, entries, wish] {
        draft.Edit([&](SetupState& state) {
            Entry entry;
            entry.name = FreeName(wish, NamesIn(state.*entries));
            (state.*entries).push_back(entry);
        });
    };
    rows.remove = [&draft, entries](int row) {
        draft.Edit(
            [&](SetupState& state) { (state.*entries).erase((state.*entries).begin() + row); });
    };
    return rows;
}

template <typename Entry>
SetupColumn NameColumn(SetupDraft& draft, ListOf<Entry> entries, const QString& caption,
                       const QString& tip) {
    SetupColumn column;
    column.caption = caption;
    column.width = 0;
    column.tip = tip;
    column.text = [&draft, entries](int row) {
        return (draft.Wanted().*entries)[std::size_t(row)].name;
    };
    column.setText = [&draft, entries](int row, const QString& text) {
        draft.Edit([&](SetupState& state) { (state.*entries)[std::size_t(row)].name = text; });
    };
    return column;
}

/// A check box over a field of the entries.
template <typename Entry>
SetupColumn FlagColumn(SetupDraft& draft, ListOf<Entry> entries, bool Entry::*flag, bool shownAs,
                       const QString& caption, const QString& tip) {
    SetupColumn column;
    column.caption = caption;
    column.width = 64;
    column.tip = tip;
    column.isOn = [&draft, entries, flag, shownAs](int row) {
        return (draft.Wanted().*entries)[std::size_t(row)].*flag == shownAs;
    };
    column.setOn = [&draft, entries, flag, shownAs](int row, bool on) {
        draft.Edit(
            [&](SetupState& state) { (state.*entries)[std::size_t(row)].*flag = on == shownAs; });
    };
    return column;
}

SetupColumn TradeColumn(SetupDraft& draft) {
    SetupColumn column;
    column.caption = u"专业"_s;
    column.width = 96;
    column.tip = u"写入问题二维码的专业"_s;
    column.text = [&draft](int row) {
        return TradeNames().value(draft.Wanted().projects[std::size_t(row)].major - 1);
    };
    column.choices = [](int) { return TradeNames(); };
    column.setText = [&draft](int row, const QString& text) {
        draft.Edit([&](SetupState& state) {
            state.projects[std::size_t(row)].major = qint32(TradeNames().indexOf(text)) + 1;
        });
    };
    return column;
}

SetupColumn MembersColumn(SetupDraft& draft) {
    SetupColumn column;
    column.caption = u"工程"_s;
    column.width = 360;
    column.tip = u"工作集中的工程，用“、”分开；打开工作集时先打开第一个"_s;
    column.text = [&draft](int row) {
        const auto& projects = draft.Wanted().worksets[std::size_t(row)].projects;
        return QStringList(projects.begin(), projects.end()).join(u"、"_s);
    };
    column.setText = [&draft](int row, const QString& text) {
        static const QRegularExpression between(u"\\s*[、,，;；]\\s*"_s);
        const QStringList names = text.split(between, Qt::SkipEmptyParts);
        draft.Edit([&](SetupState& state) {
            state.worksets[std::size_t(row)].projects = {names.begin(), names.end()};
        });
    };
    return column;
}

SetupColumn RoleColumn(SetupDraft& draft) {
    SetupColumn column;
    column.caption = u"角色"_s;
    column.width = 96;
    column.tip = u"一组权限；在右边逐项勾选就是“自定义”"_s;
    column.text = [&draft](int row) {
        return RoleOf(draft.Wanted().people[std::size_t(row)].rights);
    };
    column.choices = [](int) {
        QStringList names;
        for (const SetupRole& role : Roles()) {
            names << role.name;
        }
        return names;
    };
    column.setText = [&draft](int row, const QString& text) {
        for (const SetupRole& role : Roles()) {
            if (role.name == text) {
                draft.Edit([&](SetupState& state) {
                    state.people[std::size_t(row)].rights = role.rights;
                });
            }
        }
    };
    return column;
}

SetupColumn RightColumn(SetupDraft& draft, qint32 right, const QString& name) {
    SetupColumn column;
    column.caption = name;
    column.width = 80;
    column.tip = u"可以%1"_s.arg(name);
    column.isOn = [&draft, right](int row) {
        const auto& rights = draft.Wanted().people[std::size_t(row)].rights;
        return std::find(rights.begin(), rights.end(), right) != rights.end();
    };
    column.setOn = [&draft, right](int row, bool on) {
        draft.Edit([&](SetupState& state) {
            auto& rights = state.people[std::size_t(row)].rights;
            std::erase(rights, right);
            if (on) {
                rights.insert(std::upper_bound(rights.begin(), rights.end(), right), right);
            }
        });
    };
    return column;
}

SetupColumn ColorColumn(SetupDraft& draft) {
    SetupColumn column;
    column.caption = u"颜色"_s;
    column.width = 120;
    column.tip = u"#RRGGBB，或按下面的“颜色...”选择"_s;
    column.text = [&draft](int row) {
        return ColorText(draft.Wanted().marks[std::size_t(row)].color);
    };
    column.setText = [&draft](int row, const QString& text) {
        if (const qint32 color = ColorOfText(text); color >= 0) {
            draft.Edit([&](SetupState& state) { state.marks[std::size_t(row)].color = color; });
        }
    };
    column.decoration = [&draft](int row) {
        QPixmap swatch(16, 16);
        swatch.fill(toolkit::ColorFromBgr(draft.Wanted().marks[std::size_t(row)].color));
        return QVariant(swatch);
    };
    return column;
}

SetupColumn NumberColumn(SetupDraft& draft) {
    SetupColumn column;
    column.caption = u"编号"_s;
    column.width = 64;
    column.tip = u"手机和服务以此编号认识标识，不会改变；控制台中的列表按编号排列"_s;
    column.text = [&draft](int row) {
        const qint32 id = draft.Wanted().marks[std::size_t(row)].id;
        return id == 0 ? u"新"_s : QString::number(id);
    };
    return column;
}

} // namespace

QString ColorText(qint32 bgr) {
    return toolkit::ColorFromBgr(bgr).name().toUpper();
}

qint32 ColorOfText(const QString& text) {
    static const QRegularExpression form(u"^#?([0-9A-Fa-f]{6})$"_s);
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch()) {
        return -1;
    }
    const uint rgb = match.captured(1).toUInt(nullptr, 16);
    return qint32(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | (rgb >> 16));
}

QString FreeName(const QString& wish, const QStringList& taken) {
    QString name = wish;
    for (int number = 2; taken.contains(name, Qt::CaseInsensitive); ++number) {
        name = u"%1 %2"_s.arg(wish, QString::number(number));
    }
    return name;
}

SetupListModel* MakeProjectsModel(SetupDraft& draft, QObject* parent) {
    const auto projects = &SetupState::projects;
    SetupColumn name = NameColumn(draft, projects, u"名称"_s, u"不能与别的工程重名"_s);
    // Worksets and grids go by the name.
    name.setText = [&draft](int row, const QString& text) { draft.RenameProject(row, text); };
    return new SetupListModel(
        RowsOver(draft, SetupList::Project, projects, u"新工程"_s),
        {name, TradeColumn(draft),
         FlagColumn(draft, projects, &site::SetupProject::archived, true, u"归档"_s,
                    u"归档的工程不再出现在选择中，照片和问题都保留"_s)},
        parent);
}

SetupListModel* MakeWorksetsModel(SetupDraft& draft, QObject* parent) {
    const auto worksets = &SetupState::worksets;
    return new SetupListModel(RowsOver(draft, SetupList::Workset, worksets, u"新工作集"_s),
                              {NameColumn(draft, worksets, u"名称"_s, u"不能与别的工作集重名"_s),
                               MembersColumn(draft),
                               FlagColumn(draft, worksets, &site::SetupWorkset::archived, true,
                                          u"归档"_s, u"归档的工作集不再出现在选择中"_s)},
                              parent);
}

SetupListModel* MakePeopleModel(SetupDraft& draft, QObject* parent) {
    const auto people = &SetupState::people;
    std::vector<SetupColumn> columns{
        NameColumn(draft, people, u"姓名"_s,
                   u"登录名；已保存的姓名不能修改，记录以它署名，可以停用后新建"_s),
        RoleColumn(draft)};
    // A saved name stands in records.
    columns[0].setText = [&draft](int row, const QString& text) {
        draft.Edit([&](SetupState& state) {
            site::SetupPerson& person = state.people[std::size_t(row)];
            person.name = person.id == 0 ? text : person.name;
        });
    };
    for (const auto& [right, name] : RightNames()) {
        columns.push_back(RightColumn(draft, right, name));
    }
    columns.push_back(FlagColumn(draft, people, &site::SetupPerson::active, false, u"停用"_s,
                                 u"停用的人员不能登录，记录中的署名保留"_s));
    return new SetupListModel(RowsOver(draft, SetupList::Person, people, u"新人员"_s),
                              std::move(columns), parent);
}

SetupListModel* MakeMarksModel(SetupDraft& draft, QObject* parent) {
    const auto marks = &SetupState::marks;
    SetupRows rows = RowsOver(draft, SetupList::Mark, marks, u"新标识"_s);
    rows.move = [&draft](int from, int to) {
        draft.Edit([&](SetupState& state) {
            std::swap(state.marks[std::size_t(from)], state.marks[std::size_t(to)]);
        });
    };
    return new SetupListModel(std::move(rows),
                              {NameColumn(draft, marks, u"名称"_s, u"照片和问题的标识，不能重名"_s),
                               ColorColumn(draft), NumberColumn(draft)},
                              parent);
}

SetupListModel* MakeLabelsModel(SetupDraft& draft, QObject* parent) {
    const auto labels = &SetupState::labels;
    return new SetupListModel(RowsOver(draft, SetupList::Label, labels, u"新标签"_s),
                              {NameColumn(draft, labels, u"名称"_s, u"不能与别的标签重名"_s)},
                              parent);
}

} // namespace host
