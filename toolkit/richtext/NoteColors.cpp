#include "toolkit/richtext/NoteColors.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/richtext/NoteEdit.h"

#include <QColorDialog>
#include <QPainter>
#include <QPixmap>
#include <QTextCharFormat>

#include <utility>
#include <vector>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSwatchSide = 16;

using NamedColors = std::vector<std::pair<QString, QColor>>;

/// Dark ones for text, light ones for what is under it: each can be read with the other's own.
const NamedColors& ColorsFor(NotePaint what) {
    static const NamedColors text{
        {u"红色"_s, QColor(0xC0, 0x00, 0x00)}, {u"橙色"_s, QColor(0xB4, 0x53, 0x09)},
        {u"绿色"_s, QColor(0x1B, 0x7A, 0x2F)}, {u"蓝色"_s, QColor(0x1F, 0x5F, 0xBF)},
        {u"紫色"_s, QColor(0x7A, 0x2E, 0x9E)}, {u"灰色"_s, QColor(0x60, 0x60, 0x60)}};
    static const NamedColors ground{
        {u"黄色"_s, QColor(Qt::yellow)},       {u"浅橙"_s, QColor(0xFF, 0xD9, 0xA8)},
        {u"浅绿"_s, QColor(0xC6, 0xEF, 0xCE)}, {u"浅蓝"_s, QColor(0xBD, 0xE3, 0xFA)},
        {u"粉红"_s, QColor(0xFF, 0xC7, 0xD6)}, {u"浅灰"_s, QColor(0xDD, 0xDD, 0xDD)}};
    return what == NotePaint::Text ? text : ground;
}

QIcon SwatchOf(const QColor& color, double ratio) {
    QPixmap pixmap(QSize(kSwatchSide, kSwatchSide) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QRectF place(1.5, 1.5, kSwatchSide - 3, kSwatchSide - 3);
    painter.fillRect(place, color);
    painter.setPen(Colors::HintText());
    painter.drawRect(place);
    return QIcon(pixmap);
}

} // namespace

QColor PresentColor(const QTextCharFormat& format, NotePaint what) {
    const QBrush brush = what == NotePaint::Text ? format.foreground() : format.background();
    return brush.style() == Qt::NoBrush ? QColor() : brush.color();
}

void SetNoteColor(NoteEdit& sheet, NotePaint what, const QColor& color) {
    QTextCharFormat format;
    const QBrush brush = color.isValid() ? QBrush(color) : QBrush(Qt::NoBrush);
    what == NotePaint::Text ? format.setForeground(brush) : format.setBackground(brush);
    sheet.mergeCurrentCharFormat(format);
    sheet.setFocus();
}

NoteColorMenu::NoteColorMenu(NoteEdit& sheet, NotePaint what, QWidget* parent)
    : QMenu(parent), m_sheet(sheet), m_what(what) {
    const bool isText = what == NotePaint::Text;
    setTitle(isText ? u"文字颜色"_s : u"突出显示"_s);
    setObjectName(isText ? u"textColorMenu"_s : u"highlightMenu"_s);
    setIcon(Icon(isText ? u"text-color"_s : u"highlight"_s));
    AddColor(isText ? u"自动"_s : u"无底色"_s, {});
    addSeparator();
    for (const auto& [text, color] : ColorsFor(what)) {
        AddColor(text, color);
    }
    addSeparator();
    addAction(u"其他颜色…"_s, this, &NoteColorMenu::AskForColor);
    connect(this, &QMenu::aboutToShow, this, &NoteColorMenu::CheckPresent);
}

void NoteColorMenu::AddColor(const QString& text, const QColor& color) {
    QAction* action =
        addAction(text, &m_sheet, [this, color] { SetNoteColor(m_sheet, m_what, color); });
    action->setCheckable(true);
    action->setData(color);
    if (color.isValid()) {
        action->setIcon(SwatchOf(color, devicePixelRatioF()));
    }
}

void NoteColorMenu::CheckPresent() {
    const QColor present = PresentColor(m_sheet.currentCharFormat(), m_what);
    for (QAction* action : actions()) {
        action->setChecked(action->isCheckable() && action->data().value<QColor>() == present);
    }
}

void NoteColorMenu::AskForColor() {
    const QColor present = PresentColor(m_sheet.currentCharFormat(), m_what);
    const QColor usual = m_what == NotePaint::Text ? Colors::Text() : QColor(Qt::yellow);
    auto* dialog = new QColorDialog(present.isValid() ? present : usual, &m_sheet);
    dialog->setObjectName(u"noteColorDialog"_s);
    dialog->setWindowTitle(title());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this,
            [this](const QColor& color) { SetNoteColor(m_sheet, m_what, color); });
    dialog->open();
}

} // namespace toolkit
