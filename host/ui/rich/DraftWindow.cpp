#include "host/ui/rich/DraftWindow.h"

#include "host/ui/BinModel.h"
#include "host/ui/HintTable.h"
#include "host/ui/WindowKeys.h"
#include "host/ui/rich/RowModel.h"
#include "toolkit/Clock.h"
#include "toolkit/Icons.h"
#include "toolkit/KXTools.h"
#include "toolkit/Look.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextImageFormat>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDraftPauseMilliseconds = 80;

std::vector<RowCell> DraftCells(const DraftRow& row, qint64 now) {
    return {{row.place, {}},
            {row.state, {}},
            {KXTools::MinuteText(row.at), row.at},
            {row.summary.simplified(), {}},
            {u"%1 天"_s.arg(DaysLeft(row.keptUntil, now)), row.keptUntil}};
}

/// Wide pictures would take the text along to the side.
void FitPictures(toolkit::NoteDocument& document, int width) {
    const int room = std::max(100, width - 2 * int(document.documentMargin()));
    std::vector<std::pair<QTextCursor, QTextImageFormat>> tooWide;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextFragment fragment = piece.fragment();
            const QTextImageFormat format = fragment.charFormat().toImageFormat();
            if (!format.isValid() || (format.width() > 0 && format.width() <= room)) {
                continue;
            }
            if (const auto fitting = document.ImageFormat(format.name(), room)) {
                QTextCursor cursor(&document);
                cursor.setPosition(fragment.position());
                cursor.setPosition(fragment.position() + fragment.length(),
                                   QTextCursor::KeepAnchor);
                tooWide.emplace_back(cursor, *fitting);
            }
        }
    }
    for (auto& [cursor, format] : tooWide) {
        cursor.mergeCharFormat(format);
    }
}

QPushButton* MakeButton(const QString& name, const QIcon& icon, const QString& text,
                        const QString& tip, QWidget* parent) {
    auto* button = new QPushButton(icon, text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

} // namespace

DraftWindow::DraftWindow(QWidget* parent, IDraftSource& draftSource)
    : QDialog(parent), m_source(draftSource) {
    setObjectName(u"draftWindow"_s);
    setWindowTitle(u"草稿箱"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* parts = new QSplitter(Qt::Vertical, this);
    parts->setChildrenCollapsible(false);
    parts->setHandleWidth(8);
    parts->addWidget(MakeTable());
    parts->addWidget(MakePreview());
    parts->setSizes({240, 300});
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(12);
    all->addWidget(parts, 1);
    all->addWidget(MakeDraftButtons());
    auto* refresh = new QAction(this);
    refresh->setShortcut(QKeySequence::Refresh);
    addAction(refresh);
    connect(refresh, &QAction::triggered, this, &DraftWindow::Reload);
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &DraftWindow::CatchUp);
    toolkit::ScrollIfTooLarge(*this);
    toolkit::ResizeWithinScreen(*this, QSize(900, 640));
    // Its questions lie on it, not on the main window.
    toolkit::RegisterWindow(this, [](const toolkit::WindowEvent&) { return 0; });
    ShowPreviewHint({});
    ShowDraftButtons();
}

QWidget* DraftWindow::MakeTable() {
    m_model =
        new RowModel({u"位置"_s, u"整改情况"_s, u"修改时间"_s, u"摘要"_s, u"剩余天数"_s}, this);
    m_table = new HintTable(this);
    m_table->setObjectName(u"draftTable"_s);
    m_table->setAccessibleName(u"草稿"_s);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setModel(m_model);
    m_table->setMinimumHeight(96);
    const int digit = m_table->fontMetrics().horizontalAdvance(u'0');
    const QList<int> digits = {34, 12, 20, 30, 12};
    for (int column = 0; column < digits.size(); ++column) {
        m_table->setColumnWidth(column, digits[column] * digit);
    }
    m_table->horizontalHeader()->setSectionResizeMode(kSummary, QHeaderView::Stretch);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isFilling) {
            ShowNotice({}, false);
            ShowDraftButtons();
            m_pause.start(kDraftPauseMilliseconds);
        }
    });
    return m_table;
}

QWidget* DraftWindow::MakePreview() {
    m_pages = new QStackedWidget(this);
    m_pages->setMinimumHeight(120);
    m_preview = new toolkit::NoteEdit(m_pages);
    m_preview->setObjectName(u"draftPreview"_s);
    m_preview->setAccessibleName(u"草稿内容"_s);
    m_preview->setReadOnly(true);
    m_preview->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_previewHint = new QLabel(m_pages);
    m_previewHint->setObjectName(u"draftPreviewHint"_s);
    m_previewHint->setTextFormat(Qt::PlainText);
    m_previewHint->setAlignment(Qt::AlignCenter);
    m_previewHint->setWordWrap(true);
    m_previewHint->setForegroundRole(QPalette::PlaceholderText);
    m_previewHint->setBackgroundRole(QPalette::Base);
    m_previewHint->setAutoFillBackground(true);
    m_previewHint->setFrameShape(QFrame::StyledPanel);
    m_pages->addWidget(m_preview);
    m_pages->addWidget(m_previewHint);
    return m_pages;
}

QWidget* DraftWindow::MakeDraftButtons() {
    auto* row = new QWidget(this);
    m_notice = new QLabel(row);
    m_notice->setObjectName(u"draftNotice"_s);
    m_notice->setTextFormat(Qt::PlainText);
    m_notice->setWordWrap(true);
    m_notice->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_bringBack = MakeButton(u"draftBringBack"_s, toolkit::Icon(u"restore"_s), u"恢复"_s,
                             u"把选中的草稿恢复为最新版本（Ctrl+R）"_s, row);
    m_bringBack->setShortcut(Qt::CTRL | Qt::Key_R);
    m_remove = MakeButton(u"draftRemove"_s, toolkit::Icon(u"delete"_s), u"删除"_s,
                          u"删除选中的草稿（Delete）"_s, row);
    m_remove->setShortcut(Qt::Key_Delete);
    auto* close = MakeButton(u"draftClose"_s, {}, u"关闭"_s, u"关闭草稿箱（Esc）"_s, row);
    const int width = std::max(
        {m_bringBack->sizeHint().width(), m_remove->sizeHint().width(), close->sizeHint().width()});
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    line->addWidget(m_notice, 1);
    for (QPushButton* button : {m_bringBack, m_remove, close}) {
        button->setMinimumWidth(width);
        line->addWidget(button);
    }
    connect(m_bringBack, &QPushButton::clicked, this, &DraftWindow::BringBack);
    connect(m_remove, &QPushButton::clicked, this, &DraftWindow::Remove);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return row;
}

void DraftWindow::keyPressEvent(QKeyEvent* event) {
    if (!PressByEnter(*this, *event)) {
        QDialog::keyPressEvent(event);
    }
}

void DraftWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // A source that waits must not hold the window back.
    m_pause.start(0);
}

void DraftWindow::Reload() {
    m_areDraftsRead = false;
    if (m_hasFault) {
        m_shown.reset();
    }
    ShowNotice({}, false);
    CatchUp();
}

void DraftWindow::CatchUp() {
    if (m_isAsking || !isVisible()) {
        return;
    }
    m_isAsking = true;
    ShowDraftButtons();
    const toolkit::StillThere still(this);
    while (ReadNext() && still && isVisible()) {
    }
    if (still) {
        m_isAsking = false;
        ShowDraftButtons();
    }
}

bool DraftWindow::ReadNext() {
    if (!m_areDraftsRead) {
        ReadDrafts();
        return true;
    }
    const DraftRow* chosen = Chosen();
    const Shown draft = chosen == nullptr ? Shown() : Shown(chosen->id, chosen->at);
    if (m_shown == draft) {
        return false;
    }
    ReadDraftText(draft);
    return true;
}

void DraftWindow::ReadDrafts() {
    // Set before: what comes to be wanted meanwhile is read afterwards.
    m_areDraftsRead = true;
    const toolkit::StillThere still(this);
    DraftList list;
    {
        const toolkit::WaitCursor wait;
        list = m_source.ReadDrafts();
    }
    if (!still) {
        return;
    }
    if (!list.fault.isEmpty()) {
        const QString sentence = FaultSentence(u"草稿"_s, list.fault);
        m_table->SetHint(sentence);
        ShowNotice(sentence, true);
        return;
    }
    m_table->SetHint(u"没有草稿。\n未保存成功的富文本会在这里保留 30 天。"_s);
    FillTable(std::move(list.rows));
}

void DraftWindow::FillTable(std::vector<DraftRow> rows) {
    const QString chosen = Chosen() == nullptr ? QString() : Chosen()->id;
    const int place = std::max(0, m_table->currentIndex().row());
    const QScopedValueRollback filling(m_isFilling, true);
    m_rows = std::move(rows);
    std::vector<std::vector<RowCell>> cells;
    const qint64 now = toolkit::Clock().NowSeconds();
    std::transform(m_rows.begin(), m_rows.end(), std::back_inserter(cells),
                   [now](const DraftRow& row) { return DraftCells(row, now); });
    m_model->SetRows(std::move(cells));
    const auto same = std::find_if(m_rows.begin(), m_rows.end(),
                                   [&chosen](const DraftRow& row) { return row.id == chosen; });
    // Behind one that is gone comes the next.
    const int row =
        same != m_rows.end() ? int(same - m_rows.begin()) : std::min(place, int(m_rows.size()) - 1);
    m_table->setCurrentIndex(m_model->index(row, 0));
}

void DraftWindow::ReadDraftText(const Shown& draft) {
    m_shown = draft;
    if (draft.first.isEmpty()) {
        ShowPreviewHint({});
        return;
    }
    const toolkit::StillThere still(this);
    const toolkit::WaitCursor wait;
    const PageText text = m_source.ReadText(draft.first);
    if (!still) {
        return;
    }
    QString fault = FaultOf(text);
    if (fault.isEmpty()) {
        auto document =
            std::make_unique<toolkit::NoteDocument>(PictureFolder(text.folder), nullptr);
        fault = FaultText(document->Load(text.html));
        if (fault.isEmpty()) {
            FitPictures(*document, m_preview->viewport()->width());
            m_preview->SetNote(std::move(document));
            m_pages->setCurrentWidget(m_preview);
            return;
        }
    }
    const QString sentence = FaultSentence(u"草稿内容"_s, fault);
    ShowPreviewHint(sentence);
    ShowNotice(sentence, true);
}

const DraftRow* DraftWindow::Chosen() const {
    const QModelIndexList chosen = m_table->selectionModel()->selectedRows();
    return chosen.isEmpty() ? nullptr : &m_rows[std::size_t(chosen[0].row())];
}

bool DraftWindow::AskAndDo(const QString& question, bool (IDraftSource::*deed)(const QString&),
                           const QString& done, const QString& failed) {
    const QString draft = Chosen()->id;
    const toolkit::StillThere still(this);
    const bool isWanted = toolkit::Prompts().AskYesNo(toolkit::WindowOf(this), question);
    if (!still || !isWanted || m_isAsking) {
        return false;
    }
    m_isAsking = true;
    ShowDraftButtons();
    bool isDone = false;
    {
        const toolkit::WaitCursor wait;
        isDone = (m_source.*deed)(draft);
    }
    if (!still) {
        return false;
    }
    m_isAsking = false;
    Reload();
    if (still) {
        ShowNotice(isDone ? done : failed, !isDone);
    }
    return isDone && still;
}

void DraftWindow::BringBack() {
    const DraftRow* chosen = Chosen();
    if (m_isAsking || chosen == nullptr) {
        return;
    }
    QString question = u"将该草稿恢复为最新版本？"_s;
    if (chosen->isOlder) {
        question +=
            u"\n此后已有人保存过新版本。恢复后草稿成为最新版本，原版本仍可在记录版本中查看。"_s;
    }
    const QString draft = chosen->id;
    if (AskAndDo(question, &IDraftSource::BringBack, u"已恢复为最新版本。"_s,
                 u"该草稿未能恢复，仍保留在草稿箱中。"_s)) {
        emit BroughtBack(draft);
    }
}

void DraftWindow::Remove() {
    if (!m_isAsking && Chosen() != nullptr) {
        AskAndDo(u"确认删除该草稿？删除后无法恢复。"_s, &IDraftSource::Remove, u"草稿已删除。"_s,
                 u"该草稿未能删除。"_s);
    }
}

void DraftWindow::ShowPreviewHint(const QString& text) {
    m_previewHint->setText(text);
    m_pages->setCurrentWidget(m_previewHint);
}

void DraftWindow::ShowNotice(const QString& text, bool isFault) {
    QPalette colors = palette();
    if (isFault) {
        colors.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    }
    m_hasFault = isFault;
    m_notice->setPalette(colors);
    m_notice->setText(text);
}

void DraftWindow::ShowDraftButtons() {
    const bool canDo = !m_isAsking && Chosen() != nullptr;
    m_bringBack->setEnabled(canDo);
    m_remove->setEnabled(canDo);
}

} // namespace host
