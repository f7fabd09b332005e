#include "host/ui/HelpWindows.h"

#include "host/ui/Commands.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WindowPlace.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Margins and the line of the button.
constexpr int kBelowKeys = 80;

QLabel* PlainLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

void RunWithClose(QDialog& dialog, QVBoxLayout* lines) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    lines->addWidget(buttons);
    toolkit::ScrollIfTooLarge(dialog);
    dialog.exec();
}

} // namespace

void ShowKeys(QWidget* parent) {
    QDialog dialog(parent);
    dialog.setObjectName(u"keysWindow"_s);
    dialog.setWindowTitle(u"快捷键"_s);
    auto* lines = new QVBoxLayout(&dialog);
    lines->setContentsMargins(16, 16, 16, 12);
    lines->setSpacing(12);
    // There are more of them than a screen has room for; the button stays in sight.
    auto* page = new QWidget;
    auto* table = new QGridLayout(page);
    table->setContentsMargins(0, 0, 8, 0);
    table->setHorizontalSpacing(24);
    table->setVerticalSpacing(8);
    const QStringList rows = KeysText().split(u'\n');
    for (int row = 0; row < int(rows.size()); ++row) {
        QLabel* key = PlainLabel(rows[row].section(u'\t', 0, 0), &dialog);
        QPalette navy = key->palette();
        navy.setColor(QPalette::WindowText, toolkit::Colors::TextAccent());
        key->setPalette(navy);
        table->addWidget(key, row, 0);
        table->addWidget(PlainLabel(rows[row].section(u'\t', 1), &dialog), row, 1);
    }
    auto* room = new QScrollArea(&dialog);
    room->setFrameShape(QFrame::NoFrame);
    room->setWidgetResizable(true);
    room->setWidget(page);
    lines->addWidget(room, 1);
    const QSize beside(2 * 16 + room->verticalScrollBar()->sizeHint().width(), kBelowKeys);
    toolkit::ResizeWithinScreen(dialog, page->sizeHint() + beside);
    RunWithClose(dialog, lines);
}

void ShowAbout(QWidget* parent, const QString& dataFolder) {
    QDialog dialog(parent);
    dialog.setObjectName(u"aboutWindow"_s);
    dialog.setWindowTitle(u"关于"_s);
    auto* lines = new QVBoxLayout(&dialog);
    lines->setContentsMargins(16, 16, 16, 12);
    lines->setSpacing(8);
    auto* title = PlainLabel(QApplication::applicationDisplayName(), &dialog);
    title->setFont(toolkit::UiFont(16));
    lines->addWidget(title);
    lines->addWidget(PlainLabel(u"版本 %1"_s.arg(QApplication::applicationVersion()), &dialog));
    lines->addWidget(PlainLabel(u"工地照片与TN问题的管理、检索与查看"_s, &dialog));
    QLabel* folder =
        PlainLabel(u"数据文件夹：%1"_s.arg(QDir::toNativeSeparators(dataFolder)), &dialog);
    folder->setWordWrap(true);
    folder->setMinimumWidth(360);
    lines->addWidget(folder);
    lines->addSpacing(8);
    RunWithClose(dialog, lines);
}

} // namespace host
