#include "host/ui/ImportResultWindow.h"

#include "host/ui/HintTable.h"
#include "toolkit/Icons.h"
#include "toolkit/windows/Prompts.h"
#include "toolkit/windows/StillThere.h"
#include "toolkit/windows/WindowPlace.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QVBoxLayout>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

// With its mark, as editors on every system read it.
bool WriteUtf8(const QString& path, const QString& text) {
    QSaveFile file(path);
    const QByteArray bytes = "\xEF\xBB\xBF" + text.toUtf8();
    // What closing writes is not looked at: on a full disk half a file would stand there.
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           file.commit();
}

QPushButton* NamedButton(QWidget* parent, const QString& name, const QString& icon,
                         const QString& text, const QString& tip) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    if (!icon.isEmpty()) {
        button->setIcon(toolkit::Icon(icon));
    }
    button->setAutoDefault(false);
    return button;
}

} // namespace

ImportResultWindow::ImportResultWindow(QWidget* parent, const QString& summary,
                                       std::vector<ImportResultRow> rows, ResultTexts resultTexts)
    : QDialog(parent), m_texts(std::move(resultTexts)),
      m_model(new ImportResultModel(std::move(rows), this, m_texts.firstCaption)) {
    setObjectName(u"importResult"_s);
    setWindowTitle(m_texts.title);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    MakeTable();
    auto* head = new QLabel(summary, this);
    head->setObjectName(u"importSummary"_s);
    head->setTextFormat(Qt::PlainText);
    head->setWordWrap(true);
    auto* copy = NamedButton(this, u"importCopy"_s, u"copy"_s, u"复制"_s,
                             u"复制选中的行，没有选中时复制全部（Ctrl+C）"_s);
    auto* save = NamedButton(this, u"importSave"_s, {}, u"保存..."_s,
                             u"把全部内容存成一个文本文件（Ctrl+S）"_s);
    save->setShortcut(Qt::CTRL | Qt::Key_S);
    auto* close = NamedButton(this, u"importClose"_s, {}, u"关闭"_s, u"关闭此窗口（Esc）"_s);
    auto* bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addStretch(1);
    for (QPushButton* button : {copy, save, close}) {
        button->setMinimumWidth(80);
        bottom->addWidget(button);
    }
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(12);
    all->addWidget(head);
    all->addWidget(m_table, 1);
    all->addLayout(bottom);
    toolkit::ResizeWithinScreen(*this, QSize(820, 460));
    connect(copy, &QPushButton::clicked, this, &ImportResultWindow::Copy);
    m_table->installEventFilter(this);
    connect(save, &QPushButton::clicked, this, &ImportResultWindow::Save);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
}

void ImportResultWindow::MakeTable() {
    m_table = new HintTable(this);
    m_table->setObjectName(u"importTable"_s);
    m_table->setAccessibleName(m_texts.listName);
    m_table->setModel(m_model);
    m_table->setTextElideMode(Qt::ElideMiddle);
    m_table->setColumnWidth(ImportResultModel::kFile, 400);
    m_table->setColumnWidth(ImportResultModel::kOutcome, 72);
    m_table->horizontalHeader()->setSectionResizeMode(ImportResultModel::kReason,
                                                      QHeaderView::Stretch);
}

// The table's own answer to the key is the text of one cell.
bool ImportResultWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        Copy();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void ImportResultWindow::Copy() {
    std::vector<int> chosen;
    for (const QModelIndex& row : m_table->selectionModel()->selectedRows()) {
        chosen.push_back(row.row());
    }
    std::sort(chosen.begin(), chosen.end());
    QApplication::clipboard()->setText(m_model->TextOf(chosen));
}

void ImportResultWindow::Save() {
    const toolkit::WindowId owner = toolkit::WindowOf(this);
    const toolkit::StillThere still(this);
    // Another import may end meanwhile, and its result takes this window's place.
    const QString text = m_model->TextOf({});
    const QString path = toolkit::Prompts().AskSaveFile(
        {owner, m_texts.title + u".txt"_s, u"txt"_s, u"文本文件 (*.txt)"_s});
    if (!path.isEmpty() && !WriteUtf8(path, text)) {
        toolkit::Prompts().ShowMessage(
            owner, u"没有保存：无法写入 %1，请检查文件夹权限和磁盘空间，或换一个位置。"_s.arg(
                       QDir::toNativeSeparators(path)));
    }
    if (still) {
        // The file dialog was the main window's, to which the focus goes as it ends.
        activateWindow();
    }
}

} // namespace host
