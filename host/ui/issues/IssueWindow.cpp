#include "host/ui/issues/IssueWindow.h"

#include "host/ui/FileNames.h"
#include "host/ui/HintTable.h"
#include "host/ui/WindowKeys.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <cmath>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Of the code on the screen with its margin, device-independent pixels.
constexpr int kCodeSide = 200;
/// Of a module in a file and on the clipboard: enough for printing.
constexpr int kGivenModule = 8;

/// Labels lay out all of a text, which takes minutes where it has no end, and the window grows with
/// its lines. The viewer has all of it.
QString BeginningOf(const QString& text) {
    constexpr qsizetype kMostShown = 600;
    constexpr int kMostLines = 12;
    const QString lines = text.section(u'\n', 0, kMostLines - 1).left(kMostShown);
    return lines.size() == text.size()
               ? text
               : u"%1……（共 %2 字）"_s.arg(lines, QString::number(text.size()));
}

QLabel* MakeText(const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QPushButton* MakeSideButton(const QString& name, const QString& icon, const QString& text,
                            const QString& tip, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    if (!icon.isEmpty()) {
        button->setIcon(toolkit::Icon(icon));
    }
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

} // namespace

QString CodeFileName(const QString& subject) {
    constexpr qsizetype kMost = 60;
    const QString name = FileNameFrom(subject, kMost);
    return (name.isEmpty() ? u"问题"_s : name) + u".png"_s;
}

IssueWindow::IssueWindow(QWidget* parent, CodePainter codePainter)
    : QDialog(parent), m_painter(codePainter) {
    setObjectName(u"issueWindow"_s);
    setWindowTitle(u"问题信息"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_notice = MakeText(u"issueNotice"_s, this);
    m_notice->hide();
    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(MakeFacts(), 1);
    top->addWidget(MakeCodeSide(), 0, Qt::AlignTop);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(12);
    all->addLayout(top);
    all->addWidget(MakeHistory(), 1);
    all->addWidget(m_notice);
    all->addWidget(MakeIssueButtons());
    toolkit::ScrollIfTooLarge(*this);
    toolkit::ResizeWithinScreen(*this, QSize(720, 560));
    // Its questions lie on it, not on the main window.
    toolkit::RegisterWindow(this, [](const toolkit::WindowEvent&) { return 0; });
}

void IssueWindow::keyPressEvent(QKeyEvent* event) {
    if (!PressByEnter(*this, *event)) {
        QDialog::keyPressEvent(event);
    }
}

QWidget* IssueWindow::MakeFacts() {
    auto* side = new QWidget(this);
    m_subject = MakeText(u"issueSubject"_s, side);
    QFont bold = m_subject->font();
    bold.setBold(true);
    m_subject->setFont(bold);
    m_rows = new QFormLayout;
    m_rows->setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
    m_rows->setHorizontalSpacing(8);
    m_rows->setVerticalSpacing(8);
    auto* lines = new QVBoxLayout(side);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(12);
    lines->addWidget(m_subject);
    lines->addLayout(m_rows);
    lines->addStretch(1);
    return side;
}

QWidget* IssueWindow::MakeCodeSide() {
    auto* side = new QWidget(this);
    side->setFixedWidth(kCodeSide);
    m_code = new QLabel(side);
    m_code->setObjectName(u"issueCode"_s);
    m_code->setAccessibleName(u"问题的二维码"_s);
    m_code->setAlignment(Qt::AlignCenter);
    m_code->setWordWrap(true);
    m_code->setFixedSize(kCodeSide, kCodeSide);
    m_codeNote = MakeText(u"issueCodeNote"_s, side);
    m_codeNote->setForegroundRole(QPalette::PlaceholderText);
    m_copy = MakeSideButton(u"issueCopyCode"_s, u"copy"_s, u"复制"_s,
                            u"把二维码复制到剪贴板，可粘贴到文档中（Alt+C）"_s, side);
    m_copy->setShortcut(Qt::ALT | Qt::Key_C);
    m_save = MakeSideButton(u"issueSaveCode"_s, u"download"_s, u"保存…"_s,
                            u"把二维码保存为 PNG 图片（Ctrl+S）"_s, side);
    m_save->setShortcut(QKeySequence::Save);
    connect(m_copy, &QPushButton::clicked, this, &IssueWindow::CopyCode);
    connect(m_save, &QPushButton::clicked, this, &IssueWindow::SaveCode);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(m_copy, 1);
    buttons->addWidget(m_save, 1);
    auto* lines = new QVBoxLayout(side);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(8);
    lines->addWidget(m_code);
    lines->addLayout(buttons);
    lines->addWidget(m_codeNote);
    return side;
}

QWidget* IssueWindow::MakeHistory() {
    m_model = new QStandardItemModel(0, 3, this);
    m_model->setHorizontalHeaderLabels({u"时间"_s, u"人员"_s, u"内容"_s});
    m_history = new HintTable(this);
    m_history->setObjectName(u"issueHistory"_s);
    m_history->setAccessibleName(u"问题的变更记录"_s);
    m_history->setModel(m_model);
    m_history->SetHint(u"没有变更记录。"_s);
    const int digit = m_history->fontMetrics().horizontalAdvance(u'0');
    m_history->setColumnWidth(0, digit * 20);
    m_history->setColumnWidth(1, digit * 14);
    m_history->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    m_history->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* copy = new QAction(toolkit::Icon(u"copy"_s), u"复制所选记录"_s, m_history);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &IssueWindow::CopyHistory);
    m_history->addAction(copy);
    return m_history;
}

QWidget* IssueWindow::MakeIssueButtons() {
    auto* row = new QWidget(this);
    m_view = MakeSideButton(u"issueView"_s, u"preview"_s, u"查看问题"_s,
                            u"在平面图上定位这个问题并打开它（Alt+V）"_s, row);
    m_view->setShortcut(Qt::ALT | Qt::Key_V);
    auto* close = MakeSideButton(u"issueClose"_s, {}, u"关闭"_s, u"关闭问题信息（Esc）"_s, row);
    connect(m_view, &QPushButton::clicked, this, &IssueWindow::ViewerWanted);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    const int width = std::max(m_view->sizeHint().width(), close->sizeHint().width());
    m_view->setMinimumWidth(width);
    close->setMinimumWidth(width);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    line->addStretch(1);
    line->addWidget(m_view);
    line->addWidget(close);
    return row;
}

void IssueWindow::ShowFacts(const IssueFacts& facts) {
    m_facts = facts;
    setWindowTitle(u"问题信息 - "_s + BeginningOf(facts.subject).simplified());
    m_subject->setText(BeginningOf(facts.subject));
    while (m_rows->rowCount() > 0) {
        m_rows->removeRow(0);
    }
    for (const auto& [caption, value] : facts.rows) {
        QLabel* text = MakeText({}, this);
        text->setText(BeginningOf(value));
        text->setAccessibleName(caption);
        m_rows->addRow(caption + u'：', text);
    }
    FillHistory(facts.history);
    ShowNotice({}, false);
    m_view->setEnabled(true);
    ShowCode();
}

void IssueWindow::ShowGone() {
    ShowNotice(u"该问题已被删除，以上是删除前的内容。30 天内可在回收站中恢复。"_s, true);
    for (QPushButton* button : {m_copy, m_save, m_view}) {
        button->setEnabled(false);
    }
}

void IssueWindow::ShowNotice(const QString& text, bool isFault) {
    QPalette colors = palette();
    if (isFault) {
        colors.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    }
    m_notice->setPalette(colors);
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
}

void IssueWindow::FillHistory(const std::vector<IssueDeedLine>& lines) {
    QScrollBar* bar = m_history->verticalScrollBar();
    // Lines come above those that were there.
    const int fromEnd = bar->value() == 0 ? -1 : bar->maximum() - bar->value();
    const int current = m_history->currentIndex().isValid()
                            ? m_model->rowCount() - m_history->currentIndex().row()
                            : -1;
    m_model->setRowCount(0);
    for (const IssueDeedLine& line : lines) {
        QList<QStandardItem*> row;
        for (const QString& text : {line.when, line.who, line.what}) {
            auto* item = new QStandardItem(text.simplified());
            item->setToolTip(toolkit::PlainTip(text));
            row << item;
        }
        m_model->appendRow(row);
    }
    if (current > 0 && current <= m_model->rowCount()) {
        m_history->selectRow(m_model->rowCount() - current);
    }
    bar->setValue(fromEnd < 0 ? 0 : bar->maximum() - fromEnd);
}

void IssueWindow::ShowCode() {
    const QImage one = m_painter(m_facts.code, 1);
    const bool hasCode = !one.isNull();
    m_copy->setEnabled(hasCode);
    m_save->setEnabled(hasCode);
    m_codeNote->setText(m_facts.codeNote);
    m_codeNote->setVisible(!m_facts.codeNote.isEmpty());
    if (!hasCode) {
        m_code->setText(u"内容过长，无法生成二维码"_s);
        return;
    }
    const qreal ratio = devicePixelRatioF();
    const int module = std::max(1, int(std::floor(kCodeSide * ratio / one.width())));
    QPixmap code = QPixmap::fromImage(m_painter(m_facts.code, module));
    code.setDevicePixelRatio(ratio);
    m_code->setPixmap(code);
}

void IssueWindow::CopyCode() {
    auto* given = new QMimeData;
    given->setImageData(m_painter(m_facts.code, kGivenModule));
    given->setText(m_facts.code);
    QApplication::clipboard()->setMimeData(given);
    ShowNotice(u"二维码已复制到剪贴板"_s, false);
}

void IssueWindow::SaveCode() {
    const toolkit::StillThere still(this);
    const QImage code = m_painter(m_facts.code, kGivenModule);
    const QString path = toolkit::Prompts().AskSaveFile(
        {toolkit::WindowOf(this), CodeFileName(m_facts.subject), u"png"_s, u"PNG 图片 (*.png)"_s});
    if (!still || path.isEmpty()) {
        return;
    }
    const QString shown = QDir::toNativeSeparators(path);
    QSaveFile file(path);
    // What closing writes is not looked at: on a full disk half a picture would stand there.
    if (file.open(QIODevice::WriteOnly) && code.save(&file, "PNG") && file.flush() &&
        file.commit()) {
        ShowNotice(u"二维码已保存：%1"_s.arg(shown), false);
    } else {
        ShowNotice(u"无法保存二维码：%1。请换一个文件夹，或检查磁盘空间。"_s.arg(shown), true);
    }
}

void IssueWindow::CopyHistory() const {
    QStringList lines;
    for (const QModelIndex& row : m_history->selectionModel()->selectedRows()) {
        QStringList cells;
        for (int column = 0; column < m_model->columnCount(); ++column) {
            cells << row.siblingAtColumn(column).data().toString();
        }
        lines << cells.join(u'\t');
    }
    QApplication::clipboard()->setText(lines.join(u'\n'));
}

} // namespace host
