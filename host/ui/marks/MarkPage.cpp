#include "host/ui/marks/MarkPage.h"

#include "host/ui/PhotoCount.h"
#include "host/ui/marks/MarkTreeView.h"
#include "toolkit/Clock.h"
#include "toolkit/Icons.h"
#include "ui_MarkPage.h"

#include <QAction>
#include <QMenu>
#include <QScrollBar>
#include <QSignalBlocker>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// What the person sees of each kind.
struct PageTexts {
    QString name;
    QString shown;
    QString shownTip;
    QKeySequence key;
    QString unit;
    QString nothing;
};

PageTexts TextsOf(MarkKind kind) {
    if (kind == MarkKind::Photos) {
        return {u"photoMarks"_s,
                u"显示照片标识"_s,
                u"在视图中显示勾选的照片标识；不显示时无法定位照片"_s,
                Qt::CTRL | Qt::SHIFT | Qt::Key_1,
                u"张"_s,
                u"没有照片"_s};
    }
    return {u"issueMarks"_s,
            u"显示问题标识"_s,
            u"在视图中显示勾选的TN问题标识；不显示时无法定位问题"_s,
            Qt::CTRL | Qt::SHIFT | Qt::Key_3,
            u"个"_s,
            u"没有TN问题"_s};
}

QString LongestCount(const MarkTree& tree) {
    QString longest;
    for (const MarkTreeFloor& floor : tree) {
        const QString text = CountText({floor.count, floor.hidden});
        if (text.size() > longest.size()) {
            longest = text;
        }
    }
    return longest;
}

} // namespace

MarkPage::MarkPage(MarkKind pageKind, QWidget* parent)
    : QWidget(parent), m_kind(pageKind), m_form(std::make_unique<Ui::MarkPage>()) {
    const PageTexts texts = TextsOf(m_kind);
    m_form->setupUi(this);
    setObjectName(texts.name);
    m_shownAction = new QAction(texts.shown, this);
    m_shownAction->setCheckable(true);
    m_shownAction->setChecked(true);
    m_shownAction->setShortcut(texts.key);
    m_shownAction->setToolTip(
        u"%1（%2）"_s.arg(texts.shownTip, texts.key.toString(QKeySequence::NativeText)));
    m_form->shownBox->setText(texts.shown);
    m_form->shownBox->setToolTip(m_shownAction->toolTip());
    m_form->shownBox->setChecked(true);
    m_form->fromEdit->setAccessibleName(u"开始日期"_s);
    m_form->toEdit->setAccessibleName(u"结束日期"_s);
    m_form->allDaysBox->setToolTip(u"取消勾选后，只计入最后修改在这些日期内的%1"_s.arg(
        m_kind == MarkKind::Photos ? u"照片"_s : u"问题"_s));
    m_form->filterEdit->setAccessibleName(m_form->filterEdit->placeholderText());
    m_form->tree->setAccessibleName(texts.shown);
    m_model = new MarkTreeModel(this);
    m_form->tree->setModel(m_model);
    m_form->tree->ShareWidth();
    m_days.to = QDateTime::fromSecsSinceEpoch(toolkit::Clock().NowSeconds()).date();
    m_days.from = m_days.to.addMonths(-1);
    ConnectControls();
    ConnectTree();
    ShowDays();
    SetHint({});
    ShowCount();
}

MarkPage::~MarkPage() = default;

void MarkPage::ConnectControls() {
    connect(m_form->shownBox, &QCheckBox::toggled, m_shownAction, &QAction::setChecked);
    connect(m_shownAction, &QAction::toggled, this, [this](bool on) {
        m_form->shownBox->setChecked(on);
        emit ShownChanged(on);
    });
    connect(m_form->allDaysBox, &QCheckBox::toggled, this, [this](bool all) {
        m_days.limited = !all;
        ShowDays();
        emit DaysChanged();
    });
    connect(m_form->fromEdit, &QDateEdit::dateChanged, this, [this] { OnDayEdited(true); });
    connect(m_form->toEdit, &QDateEdit::dateChanged, this, [this] { OnDayEdited(false); });
    connect(m_form->filterEdit, &QLineEdit::textChanged, this, &MarkPage::Filter);
    connect(m_form->allButton, &QPushButton::clicked, this, [this] { m_model->TickAll(true); });
    connect(m_form->noneButton, &QPushButton::clicked, this, [this] { m_model->TickAll(false); });
}

void MarkPage::ConnectTree() {
    connect(m_model, &MarkTreeModel::TicksChanged, this, [this] {
        ShowCount();
        emit TicksChanged();
    });
    connect(m_form->tree, &QTreeView::activated, this, &MarkPage::Activate);
    connect(m_form->tree, &QWidget::customContextMenuRequested, this, &MarkPage::ShowRowMenu);
}

/// Days in the wrong order: the other one follows the one that the person chose.
void MarkPage::OnDayEdited(bool isFrom) {
    m_days.from = m_form->fromEdit->date();
    m_days.to = m_form->toEdit->date();
    if (m_days.from > m_days.to) {
        (isFrom ? m_days.to : m_days.from) = isFrom ? m_days.from : m_days.to;
    }
    ShowDays();
    emit DaysChanged();
}

void MarkPage::ShowDays() {
    const QSignalBlocker quietAll(m_form->allDaysBox);
    const QSignalBlocker quietFrom(m_form->fromEdit);
    const QSignalBlocker quietTo(m_form->toEdit);
    m_form->allDaysBox->setChecked(!m_days.limited);
    m_form->fromEdit->setDate(m_days.from);
    m_form->toEdit->setDate(m_days.to);
    for (QWidget* control :
         {static_cast<QWidget*>(m_form->fromEdit), static_cast<QWidget*>(m_form->toLabel),
          static_cast<QWidget*>(m_form->toEdit)}) {
        control->setVisible(m_days.limited);
    }
    SetHint(m_emptyHint);
}

void MarkPage::ShowCount() {
    const QString unit = TextsOf(m_kind).unit;
    const qint32 hidden = HiddenCountOf(m_model->Tree());
    QString text = u"已选 %1 / %2 %3"_s.arg(m_model->Ticks().TickedCount(m_model->Tree()))
                       .arg(CountOf(m_model->Tree()))
                       .arg(unit);
    QString tip = u"勾选的%1数，列出的总数"_s.arg(unit);
    if (hidden > 0) {
        text += u" + %1 隐藏"_s.arg(hidden);
        tip += u"；隐藏的照片没有标识，勾选与否都不在视图中显示"_s;
    }
    if (m_days.limited) {
        text += u"（限日期）"_s;
        tip += u"；只计最后修改在所选日期内的，平面图和楼层列表计全部"_s;
    }
    m_form->countLabel->setText(text);
    m_form->countLabel->setToolTip(tip);
    m_form->tree->FitCounts(LongestCount(m_model->Tree()));
}

void MarkPage::SetHint(const QString& text) {
    m_emptyHint = text;
    QString hint = text;
    if (hint.isEmpty() && !m_form->filterEdit->text().trimmed().isEmpty()) {
        hint = u"没有名称含“%1”的楼层或标识。"_s.arg(m_form->filterEdit->text().trimmed());
    } else if (hint.isEmpty()) {
        hint = TextsOf(m_kind).nothing +
               (m_days.limited ? u"在这些日期内有修改。\n请放宽日期。"_s : u"。"_s);
    }
    m_form->tree->SetHint(hint);
}

void MarkPage::SetState(const MarkPageState& state) {
    const QSignalBlocker quietAction(m_shownAction);
    const QSignalBlocker quietBox(m_form->shownBox);
    m_shownAction->setChecked(state.shown);
    m_form->shownBox->setChecked(state.shown);
    if (state.days.from.isValid() && state.days.to.isValid()) {
        m_days = state.days;
    }
    m_days.limited = state.days.limited;
    ShowDays();
    m_model->SetTicks(state.ticks);
    ShowCount();
}

MarkPageState MarkPage::State() const {
    return {m_shownAction->isChecked(), m_days, m_model->Ticks()};
}

void MarkPage::SetEntryReader(MarkTreeModel::ReadEntries reader) {
    m_model->SetEntryReader(std::move(reader));
}

void MarkPage::SetTree(MarkTree tree) {
    const std::set<Place> expanded = Expanded();
    const QModelIndex current = m_form->tree->currentIndex();
    const Place chosen{m_model->GroupOf(current), m_model->MarkOf(current)};
    const int scrolled = m_form->tree->verticalScrollBar()->value();
    m_model->SetTree(std::move(tree));
    Expand(expanded);
    if (!m_form->tree->currentIndex().isValid() && !chosen.first.isEmpty()) {
        m_form->tree->selectionModel()->setCurrentIndex(
            IndexOf(chosen), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    m_form->tree->doItemsLayout();
    m_form->tree->verticalScrollBar()->setValue(scrolled);
    ShowCount();
}

void MarkPage::Filter(const QString& text) {
    const std::set<Place> expanded = Expanded();
    m_model->SetFilter(text);
    SetHint(m_emptyHint);
    if (text.trimmed().isEmpty()) {
        Expand(expanded);
    } else {
        m_form->tree->expandToDepth(0);
    }
}

std::set<MarkPage::Place> MarkPage::Expanded() const {
    std::set<Place> places;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex floor = m_model->index(row, 0);
        if (m_form->tree->isExpanded(floor)) {
            places.insert({m_model->GroupOf(floor), 0});
        }
        for (int below = 0; below < m_model->rowCount(floor); ++below) {
            const QModelIndex mark = m_model->index(below, 0, floor);
            if (m_form->tree->isExpanded(mark)) {
                places.insert({m_model->GroupOf(mark), m_model->MarkOf(mark)});
            }
        }
    }
    return places;
}

void MarkPage::Expand(const std::set<Place>& places) {
    for (const Place& place : places) {
        const QModelIndex index = IndexOf(place);
        if (index.isValid() && m_model->MarkOf(index) == place.second) {
            m_form->tree->expand(index);
        }
    }
}

QModelIndex MarkPage::IndexOf(const Place& place) const {
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex floor = m_model->index(row, 0);
        if (m_model->GroupOf(floor) != place.first) {
            continue;
        }
        for (int below = 0; place.second != 0 && below < m_model->rowCount(floor); ++below) {
            const QModelIndex mark = m_model->index(below, 0, floor);
            if (m_model->MarkOf(mark) == place.second) {
                return mark;
            }
        }
        return floor;
    }
    return {};
}

void MarkPage::Activate(const QModelIndex& index) {
    const QString entry = m_model->EntryOf(index);
    if (!entry.isEmpty()) {
        emit IssueWanted(entry);
    } else if (index.isValid()) {
        emit FloorWanted(m_model->GroupOf(index));
    }
}

void MarkPage::ShowRowMenu(const QPoint& at) {
    const QModelIndex index = m_form->tree->currentIndex().siblingAtColumn(0);
    if (!index.isValid()) {
        return;
    }
    QMenu menu(this);
    menu.setObjectName(u"markRowMenu"_s);
    menu.addAction(u"只勾选此项"_s, this, [this, index] { m_model->TickOnly(index); });
    menu.addAction(toolkit::Icon(u"plan"_s), u"在平面图中查看"_s, this,
                   [this, index] { Activate(index); });
    menu.addSeparator();
    menu.addAction(u"全部展开"_s, this, [this] { m_form->tree->expandToDepth(0); });
    menu.addAction(u"全部折叠"_s, m_form->tree, &QTreeView::collapseAll);
    menu.exec(m_form->tree->viewport()->mapToGlobal(at));
}

} // namespace host
