#include "host/ui/rich/DraftWindow.h"

#include "host/ui/BinModel.h"
#include "host/ui/HintTable.h"
#include "host/ui/rich/RowModel.h"
#include "toolkit/Clock.h"
#include "toolkit/Icons.h"
#include "toolkit/KXTools.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WaitCursor.h"
#include "toolkit/windows/WindowPlace.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextImageFormat>

#include <algorithm>
#include <memory>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnyHeight = 1 << 20;
const QString kBringBack = u"draftBringBack"_s;
const QString kRemove = u"draftRemove"_s;

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
            if (const auto fitting = document.ImageFormat(format.name(), QSize(room, kAnyHeight))) {
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

} // namespace

DraftWindow::DraftWindow(QWidget* parent, IDraftSource& draftSource)
    : ReadingWindow(parent, u"draftWindow"_s, u"草稿箱"_s), m_source(draftSource) {
    auto* parts = new QSplitter(Qt::Vertical, this);
    parts->setChildrenCollapsible(false);
    parts->setHandleWidth(8);
    parts->addWidget(MakeTable());
    parts->addWidget(MakePreview());
    parts->setSizes({240, 300});
    Furnish(parts, u"draftNotice"_s,
            {{kBringBack, toolkit::Icon(u"restore"_s), u"恢复"_s,
              u"把选中的草稿恢复为最新版本（Ctrl+R）"_s, Qt::CTRL | Qt::Key_R},
             {kRemove, toolkit::Icon(u"delete"_s), u"删除"_s, u"删除选中的草稿（Delete）"_s,
              Qt::Key_Delete}},
            {u"draftClose"_s, {}, u"关闭"_s, u"关闭草稿箱（Esc）"_s, {}});
    connect(Button(kBringBack), &QPushButton::clicked, this, &DraftWindow::BringBack);
    connect(Button(kRemove), &QPushButton::clicked, this, &DraftWindow::Remove);
    toolkit::ScrollIfTooLarge(*this);
    toolkit::ResizeWithinScreen(*this, QSize(900, 640));
    ShowPreviewHint({});
    ShowButtons();
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
            ShowButtons();
            CatchUpSoon();
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

void DraftWindow::Forget(bool hadFault) {
    m_areDraftsRead = false;
    if (hadFault) {
        m_shown.reset();
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

void DraftWindow::BringBack() {
    const DraftRow* chosen = Chosen();
    if (IsAsking() || chosen == nullptr) {
        return;
    }
    QString question = u"将该草稿恢复为最新版本？"_s;
    if (chosen->isOlder) {
        question +=
            u"\n此后已有人保存过新版本。恢复后草稿成为最新版本，原版本仍可在记录版本中查看。"_s;
    }
    const QString draft = chosen->id;
    if (AskAndDo({question, false, [this, draft] { return m_source.BringBack(draft); },
                  u"已恢复为最新版本。"_s, u"草稿未恢复，仍保留在草稿箱中："_s})) {
        emit BroughtBack(draft);
    }
}

void DraftWindow::Remove() {
    const DraftRow* chosen = Chosen();
    if (IsAsking() || chosen == nullptr) {
        return;
    }
    AskAndDo({u"确认删除该草稿？删除后无法恢复。"_s, true,
              [this, draft = chosen->id] { return m_source.Remove(draft); }, u"草稿已删除。"_s,
              u"该草稿未能删除："_s});
}

void DraftWindow::ShowPreviewHint(const QString& text) {
    m_previewHint->setText(text);
    m_pages->setCurrentWidget(m_previewHint);
}

void DraftWindow::ShowButtons() {
    const bool canDo = !IsAsking() && Chosen() != nullptr;
    Button(kBringBack)->setEnabled(canDo);
    Button(kRemove)->setEnabled(canDo);
}

} // namespace host
