#include "host/ui/marks/MarkPage.h"

#include "host/ui/PhotoCount.h"
#include "host/ui/marks/MarkTreeView.h"
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
    if (kind == MarkKind::kPhotos)
        return {u"photoMarks"_s,
                u"显示照片标识"_s,
                u"在视图中显示勾选的照片标识；不显示时无法定位照片"_s,
                Qt::CTRL | Qt::SHIFT | Qt::Key_1,
                u"张"_s,
                u"没有照片"_s};
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
        if (text.size() > longest.size())
            longest = text;
    }
    return longest;
}

} // namespace

MarkPage::MarkPage(MarkKind pageKind, QWidget* parent)
    : QWidget(parent), kind(pageKind), form(std::make_unique<Ui::MarkPage>()) {
    const PageTexts texts = TextsOf(kind);
    form->setupUi(this);
    setObjectName(texts.name);
    shownAction = new QAction(texts.shown, this);
    shownAction->setCheckable(true);
    shownAction->setChecked(true);
    shownAction->setShortcut(texts.key);
    shownAction->setToolTip(
        u"%1（%2）"_s.arg(texts.shownTip, texts.key.toString(QKeySequence::NativeText)));
    form->shownBox->setText(texts.shown);
    form->shownBox->setToolTip(shownAction->toolTip());
    form->shownBox->setChecked(true);
    form->fromEdit->setAccessibleName(u"开始日期"_s);
    form->toEdit->setAccessibleName(u"结束日期"_s);
    form->allDaysBox->setToolTip(u"取消勾选后，只计入最后修改在这些日期内的%1"_s.arg(
        kind == MarkKind::kPhotos ? u"照片"_s : u"问题"_s));
    form->filterEdit->setAccessibleName(form->filterEdit->placeholderText());
    form->tree->setAccessibleName(texts.shown);
    model = new MarkTreeModel(this);
    form->tree->setModel(model);
    form->tree->ShareWidth();
    days.to = QDate::currentDate();
    days.from = days.to.addMonths(-1);
    ConnectControls();
    ConnectTree();
    ShowDays();
    SetHint({});
    ShowCount();
}

MarkPage::~MarkPage() = default;

void MarkPage::ConnectControls() {
    connect(form->shownBox, &QCheckBox::toggled, shownAction, &QAction::setChecked);
    connect(shownAction, &QAction::toggled, this, [this](bool on) {
        form->shownBox->setChecked(on);
        emit ShownChanged(on);
    });
    connect(form->allDaysBox, &QCheckBox::toggled, this, [this](bool all) {
        days.limited = !all;
        ShowDays();
        emit DaysChanged();
    });
    connect(form->fromEdit, &QDateEdit::dateChanged, this, [this] { OnDayEdited(true); });
    connect(form->toEdit, &QDateEdit::dateChanged, this, [this] { OnDayEdited(false); });
    connect(form->filterEdit, &QLineEdit::textChanged, this, &MarkPage::Filter);
    connect(form->allButton, &QPushButton::clicked, this, [this] { model->TickAll(true); });
    connect(form->noneButton, &QPushButton::clicked, this, [this] { model->TickAll(false); });
}

void MarkPage::ConnectTree() {
    connect(model, &MarkTreeModel::TicksChanged, this, [this] {
        ShowCount();
        emit TicksChanged();
    });
    connect(form->tree, &QTreeView::activated, this, &MarkPage::Activate);
    connect(form->tree, &QWidget::customContextMenuRequested, this, &MarkPage::ShowRowMenu);
}

/// Days in the wrong order: the other one follows the one that the person chose.
void MarkPage::OnDayEdited(bool isFrom) {
    days.from = form->fromEdit->date();
    days.to = form->toEdit->date();
    if (days.from > days.to)
        (isFrom ? days.to : days.from) = isFrom ? days.from : days.to;
    ShowDays();
    emit DaysChanged();
}

void MarkPage::ShowDays() {
    const QSignalBlocker quietAll(form->allDaysBox);
    const QSignalBlocker quietFrom(form->fromEdit);
    const QSignalBlocker quietTo(form->toEdit);
    form->allDaysBox->setChecked(!days.limited);
    form->fromEdit->setDate(days.from);
    form->toEdit->setDate(days.to);
    for (QWidget* control :
         {static_cast<QWidget*>(form->fromEdit), static_cast<QWidget*>(form->toLabel),
          static_cast<QWidget*>(form->toEdit)})
        control->setVisible(days.limited);
    SetHint(emptyHint);
}

void MarkPage::ShowCount() {
    const QString unit = TextsOf(kind).unit;
    const qint32 hidden = HiddenCountOf(model->Tree());
    QString text = u"已选 %1 / %2 %3"_s.arg(model->Ticks().TickedCount(model->Tree()))
                       .arg(CountOf(model->Tree()))
                       .arg(unit);
    QString tip = u"勾选的%1数，列出的总数"_s.arg(unit);
    if (hidden > 0) {
        text += u" + %1 隐藏"_s.arg(hidden);
        tip += u"；隐藏的照片没有标识，勾选与否都不在视图中显示"_s;
    }
    if (days.limited) {
        text += u"（限日期）"_s;
        tip += u"；只计最后修改在所选日期内的，平面图和楼层列表计全部"_s;
    }
    form->countLabel->setText(text);
    form->countLabel->setToolTip(tip);
    form->tree->FitCounts(LongestCount(model->Tree()));
}

void MarkPage::SetHint(const QString& text) {
    emptyHint = text;
    QString hint = text;
    if (hint.isEmpty() && !form->filterEdit->text().trimmed().isEmpty())
        hint = u"没有名称含“%1”的楼层或标识。"_s.arg(form->filterEdit->text().trimmed());
    else if (hint.isEmpty())
        hint = TextsOf(kind).nothing +
               (days.limited ? u"在这些日期内有修改。\n请放宽日期。"_s : u"。"_s);
    form->tree->SetHint(hint);
}

void MarkPage::SetState(const MarkPageState& state) {
    const QSignalBlocker quietAction(shownAction);
    const QSignalBlocker quietBox(form->shownBox);
    shownAction->setChecked(state.shown);
    form->shownBox->setChecked(state.shown);
    if (state.days.from.isValid() && state.days.to.isValid())
        days = state.days;
    days.limited = state.days.limited;
    ShowDays();
    model->SetTicks(state.ticks);
    ShowCount();
}

MarkPageState MarkPage::State() const {
    return {shownAction->isChecked(), days, model->Ticks()};
}

void MarkPage::SetEntryReader(MarkTreeModel::ReadEntries reader) {
    model->SetEntryReader(std::move(reader));
}

void MarkPage::SetTree(MarkTree tree) {
    const std::set<Place> expanded = Expanded();
    const QModelIndex current = form->tree->currentIndex();
    const Place chosen{model->GroupOf(current), model->MarkOf(current)};
    const int scrolled = form->tree->verticalScrollBar()->value();
    model->SetTree(std::move(tree));
    Expand(expanded);
    if (!form->tree->currentIndex().isValid() && !chosen.first.isEmpty())
        form->tree->selectionModel()->setCurrentIndex(
            IndexOf(chosen), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    form->tree->doItemsLayout();
    form->tree->verticalScrollBar()->setValue(scrolled);
    ShowCount();
}

void MarkPage::Filter(const QString& text) {
    const std::set<Place> expanded = Expanded();
    model->SetFilter(text);
    SetHint(emptyHint);
    if (text.trimmed().isEmpty())
        Expand(expanded);
    else
        form->tree->expandToDepth(0);
}

std::set<MarkPage::Place> MarkPage::Expanded() const {
    std::set<Place> places;
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex floor = model->index(row, 0);
        if (form->tree->isExpanded(floor))
            places.insert({model->GroupOf(floor), 0});
        for (int below = 0; below < model->rowCount(floor); ++below) {
            const QModelIndex mark = model->index(below, 0, floor);
            if (form->tree->isExpanded(mark))
                places.insert({model->GroupOf(mark), model->MarkOf(mark)});
        }
    }
    return places;
}

void MarkPage::Expand(const std::set<Place>& places) {
    for (const Place& place : places) {
        const QModelIndex index = IndexOf(place);
        if (index.isValid() && model->MarkOf(index) == place.second)
            form->tree->expand(index);
    }
}

QModelIndex MarkPage::IndexOf(const Place& place) const {
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex floor = model->index(row, 0);
        if (model->GroupOf(floor) != place.first)
            continue;
        for (int below = 0; place.second != 0 && below < model->rowCount(floor); ++below) {
            const QModelIndex mark = model->index(below, 0, floor);
            if (model->MarkOf(mark) == place.second)
                return mark;
        }
        return floor;
    }
    return {};
}

void MarkPage::Activate(const QModelIndex& index) {
    const QString entry = model->EntryOf(index);
    if (!entry.isEmpty())
        emit IssueWanted(entry);
    else if (index.isValid())
        emit FloorWanted(model->GroupOf(index));
}

void MarkPage::ShowRowMenu(const QPoint& at) {
    const QModelIndex index = form->tree->currentIndex().siblingAtColumn(0);
    if (!index.isValid())
        return;
    QMenu menu(this);
    menu.setObjectName(u"markRowMenu"_s);
    menu.addAction(u"只勾选此项"_s, this, [this, index] { model->TickOnly(index); });
    menu.addAction(toolkit::Icon(u"plan"_s), u"在平面图中查看"_s, this,
                   [this, index] { Activate(index); });
    menu.addSeparator();
    menu.addAction(u"全部展开"_s, this, [this] { form->tree->expandToDepth(0); });
    menu.addAction(u"全部折叠"_s, form->tree, &QTreeView::collapseAll);
    menu.exec(form->tree->viewport()->mapToGlobal(at));
}

} // namespace host
