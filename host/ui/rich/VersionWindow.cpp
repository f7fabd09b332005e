#include "host/ui/rich/VersionWindow.h"

#include "host/ui/rich/CompareView.h"
#include "host/ui/rich/VersionTables.h"
#include "toolkit/Icons.h"
#include "toolkit/KXTools.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"

#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

const QString kRestore = u"versionRestore"_s;

QLabel* MakeLine(const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

const VersionRow* FindVersion(const std::vector<VersionRow>& rows, qint64 number) {
    const auto at = std::find_if(rows.begin(), rows.end(),
                                 [number](const VersionRow& row) { return row.number == number; });
    return at == rows.end() ? nullptr : &*at;
}

QString NameOf(const VersionRow& row) {
    return u"第%1版（%2 %3）"_s.arg(row.number)
        .arg(KXTools::timeToCString(row.at), row.person.simplified());
}

} // namespace

VersionWindow::VersionWindow(QWidget* parent, IVersionSource& versionSource)
    : ReadingWindow(parent, u"versionWindow"_s, u"记录版本"_s), m_source(versionSource) {
    Furnish(MakeTables(), u"versionNotice"_s,
            {{kRestore, toolkit::Icon(u"restore"_s), u"恢复此版本"_s,
              u"把选中的版本恢复为最新版本（Ctrl+R）"_s, Qt::CTRL | Qt::Key_R}},
            {u"versionClose"_s, {}, u"关闭"_s, u"关闭记录版本（Esc）"_s, {}});
    connect(Button(kRestore), &QPushButton::clicked, this, &VersionWindow::Restore);
    connect(m_records, &RecordPanel::ChosenChanged, this, &VersionWindow::ChooseAnew);
    connect(m_versions, &VersionPanel::ChosenChanged, this, &VersionWindow::ChooseAnew);
    toolkit::ScrollIfTooLarge(*this);
    toolkit::ResizeWithinScreen(*this, QSize(1200, 760));
    ShowButtons();
}

QWidget* VersionWindow::MakeTables() {
    auto* sides = new QSplitter(Qt::Horizontal, this);
    sides->setChildrenCollapsible(false);
    sides->setHandleWidth(8);
    m_records = new RecordPanel(sides);
    m_records->setMinimumWidth(200);
    auto* right = new QSplitter(Qt::Vertical, sides);
    right->setChildrenCollapsible(false);
    right->setHandleWidth(8);
    m_versions = new VersionPanel(right);
    m_versions->setMinimumHeight(72);
    right->addWidget(m_versions);
    right->addWidget(MakeComparison());
    right->setSizes({150, 510});
    sides->addWidget(m_records);
    sides->addWidget(right);
    sides->setSizes({540, 640});
    return sides;
}

QWidget* VersionWindow::MakeComparison() {
    auto* side = new QWidget(this);
    m_heading = MakeLine(u"versionHeading"_s, side);
    m_compare = new CompareView(side);
    auto* lines = new QVBoxLayout(side);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(4);
    lines->addWidget(m_heading);
    lines->addWidget(m_compare, 1);
    return side;
}

void VersionWindow::Forget(bool hadFault) {
    m_areRecordsRead = false;
    m_listed.reset();
    if (hadFault) {
        m_compared.reset();
    }
}

void VersionWindow::ShowRecord(const QString& id) {
    if (!m_areRecordsRead || !m_records->Choose(id)) {
        m_wanted = id;
        m_areRecordsRead = false;
    }
    ShowNotice({}, false);
    CatchUp();
}

void VersionWindow::ChooseAnew() {
    ShowNotice({}, false);
    ShowButtons();
    CatchUpSoon();
}

bool VersionWindow::ReadNext() {
    if (!m_areRecordsRead) {
        ReadRecords();
        return true;
    }
    const QString record = m_records->Chosen();
    if (m_listed != record) {
        ReadVersions(record);
        return true;
    }
    const Pair pair = ChosenPair();
    if (m_compared == pair) {
        return false;
    }
    for (const qint64 version : {pair.from, pair.to}) {
        if (version != kNoVersion && m_pages.Find(record, version) == nullptr) {
            ReadText(pair, version);
            return true;
        }
    }
    ShowPair(pair);
    return true;
}

void VersionWindow::ReadRecords() {
    // Set before: what comes to be wanted meanwhile is read afterwards.
    m_areRecordsRead = true;
    const toolkit::StillThere still(this);
    RecordList list;
    {
        const toolkit::WaitCursor wait;
        list = m_source.ReadRecords();
    }
    if (!still) {
        return;
    }
    if (!list.fault.isEmpty()) {
        ShowNotice(FaultSentence(u"记录"_s, list.fault), true);
        return;
    }
    m_records->SetRows(std::move(list.rows));
    if (!m_wanted.isEmpty()) {
        if (!m_records->Choose(m_wanted)) {
            ShowNotice(u"该记录已不存在，或者其所属工程没有打开。"_s, true);
        }
        m_wanted.clear();
    } else if (!m_wereRecordsRead) {
        m_records->ChooseFirst();
    }
    m_wereRecordsRead = true;
}

void VersionWindow::ReadVersions(const QString& record) {
    const bool isSame = m_filled == record;
    const std::vector<qint64> chosen = isSame ? m_versions->ChosenNumbers() : std::vector<qint64>();
    m_listed = record;
    const toolkit::StillThere still(this);
    VersionList list;
    if (!record.isEmpty()) {
        const toolkit::WaitCursor wait;
        list = m_source.ReadVersions(record);
    }
    if (!still || record != m_records->Chosen()) {
        return;
    }
    QString hint = record.isEmpty() ? u"请选择一条记录。"_s : u"该记录没有版本。"_s;
    if (!list.fault.isEmpty()) {
        list.rows.clear();
        hint = FaultSentence(u"版本"_s, list.fault);
        ShowNotice(hint, true);
    }
    m_filled = record;
    m_versions->ShowHint(hint);
    m_versions->SetRows(std::move(list.rows), chosen);
}

void VersionWindow::ReadText(const Pair& pair, qint64 version) {
    const toolkit::StillThere still(this);
    const toolkit::WaitCursor wait;
    const PageText text = m_source.ReadText(pair.record, version);
    if (!still) {
        return;
    }
    const QString fault = m_pages.Keep(pair.record, version, text);
    if (!fault.isEmpty() && ChosenPair() == pair) {
        m_compared = pair;
        const QString sentence = FaultSentence(u"版本内容"_s, fault);
        ShowHeading(pair);
        m_compare->ShowHint(sentence);
        ShowNotice(sentence, true);
    }
}

VersionWindow::Pair VersionWindow::ChosenPair() const {
    const std::vector<VersionRow>& rows = m_versions->Rows();
    const std::vector<int> chosen = m_versions->ChosenRows();
    Pair pair{m_records->Chosen(), kNoVersion, kNoVersion};
    if (chosen.empty() || chosen.size() > 2) {
        return pair;
    }
    // Newest first: the older one of two stands below, the one before right below.
    const std::size_t older = std::size_t(chosen.size() == 2 ? chosen[1] : chosen[0] + 1);
    pair.to = rows[std::size_t(chosen[0])].number;
    pair.from = older < rows.size() ? rows[older].number : kNoVersion;
    return pair;
}

void VersionWindow::ShowPair(const Pair& pair) {
    m_compared = pair;
    ShowHeading(pair);
    if (pair.to == kNoVersion) {
        const std::size_t chosen = m_versions->ChosenRows().size();
        m_compare->ShowHint(chosen > 2                   ? u"请选择一个或两个版本。"_s
                            : m_versions->Rows().empty() ? QString()
                                                         : u"请选择一个版本。"_s);
        return;
    }
    const toolkit::WaitCursor wait;
    const VersionPages::Page none;
    const VersionPages::Page* from =
        pair.from == kNoVersion ? &none : m_pages.Find(pair.record, pair.from);
    const VersionPages::Page* to = m_pages.Find(pair.record, pair.to);
    m_compare->ShowLines(toolkit::CompareNotes(from->lines, to->lines), {from->folder, to->folder});
}

void VersionWindow::ShowHeading(const Pair& pair) {
    const VersionRow* to = FindVersion(m_versions->Rows(), pair.to);
    const VersionRow* from = FindVersion(m_versions->Rows(), pair.from);
    QString text;
    if (to != nullptr && from == nullptr) {
        text = u"首个版本：%1\n整改情况：%2"_s.arg(NameOf(*to), to->state);
    } else if (to != nullptr) {
        const QString state =
            from->state == to->state ? to->state : u"%1 → %2"_s.arg(from->state, to->state);
        text = u"%1 → %2\n整改情况：%3"_s.arg(NameOf(*from), NameOf(*to), state);
    }
    m_heading->setText(text);
    m_heading->setVisible(!text.isEmpty());
}

void VersionWindow::Restore() {
    const std::vector<qint64> chosen = m_versions->ChosenNumbers();
    const QString record = m_records->Chosen();
    if (IsAsking() || chosen.size() != 1) {
        return;
    }
    if (AskAndDo({u"将该版本恢复为最新版本？当前版本仍会保留。"_s, false,
                  [this, record, version = chosen[0]] { return m_source.Restore(record, version); },
                  u"已恢复为最新版本。"_s, u"该版本未恢复，没有任何改动："_s})) {
        emit Restored(record);
    }
}

void VersionWindow::ShowButtons() {
    const std::vector<int> chosen = m_versions->ChosenRows();
    Button(kRestore)->setEnabled(!IsAsking() && chosen.size() == 1 && chosen[0] > 0);
}

} // namespace host
