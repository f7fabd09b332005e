#include "host/ui/MessageBar.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>

namespace host {

using namespace Qt::StringLiterals;

namespace {

struct KindLook {
    QString icon;
    QString name;
    QRgb background;
    QRgb stripe;
};

const KindLook& LookOf(MessageKind kind) {
    static const std::array<KindLook, 3> looks = {
        KindLook{u"info"_s, u"提示"_s, qRgb(0xEA, 0xF6, 0xFD), qRgb(0x00, 0xB6, 0xF0)},
        KindLook{u"warning"_s, u"注意"_s, qRgb(0xFF, 0xF6, 0xE0), qRgb(0xE0, 0x9A, 0x00)},
        KindLook{u"error"_s, u"错误"_s, qRgb(0xFD, 0xEC, 0xEC), qRgb(0xD3, 0x2F, 0x2F)}};
    return looks[std::size_t(kind)];
}

QToolButton* MakeButton(QWidget* parent, const QString& name, const QString& icon,
                        const QString& text) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setIcon(toolkit::Icon(icon));
    if (button->icon().isNull()) {
        button->setText(text);
    }
    button->setToolTip(text);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    return button;
}

} // namespace

MessageBar::MessageBar(QWidget* parent) : QFrame(parent) {
    setObjectName(u"messageBar"_s);
    setAccessibleName(u"消息"_s);
    m_lines = new QVBoxLayout(this);
    m_lines->setContentsMargins(0, 0, 0, 0);
    m_lines->setSpacing(1);
    hide();
}

void MessageBar::Show(MessageKind kind, const QString& text) {
    m_list.Add(kind, text);
    Rebuild();
}

void MessageBar::Clear() {
    m_list.Clear();
    Rebuild();
}

void MessageBar::Withdraw(const QString& beginning) {
    if (m_list.RemoveBeginning(beginning)) {
        Rebuild();
    }
}

void MessageBar::Rebuild() {
    while (QLayoutItem* item = m_lines->takeAt(0)) {
        item->widget()->hide();
        // Later: the click on its own close button may still be under way.
        item->widget()->deleteLater();
        delete item;
    }
    for (int at = 0; at < int(m_list.All().size()); ++at) {
        m_lines->addWidget(MakeLine(at));
    }
    setVisible(!m_list.All().empty());
}

QWidget* MessageBar::MakeLine(int at) {
    const HostMessage& message = m_list.All()[at];
    const KindLook& look = LookOf(message.kind);
    auto* line = new QFrame(this);
    line->setObjectName(u"messageLine"_s);
    line->setStyleSheet(u"QFrame#messageLine { background: %1; border-left: 4px solid %2; }"_s.arg(
        QColor(look.background).name(), QColor(look.stripe).name()));
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(12, 2, 8, 2);
    row->setSpacing(8);

    auto* sign = new QLabel(line);
    sign->setContentsMargins(0, 4, 0, 0);
    const QIcon icon = toolkit::Icon(look.icon);
    if (icon.isNull()) {
        sign->setText(look.name);
    } else {
        sign->setPixmap(icon.pixmap(16, 16));
    }
    auto* text = new QLabel(MessageLine(message), line);
    text->setObjectName(u"messageText"_s);
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setWordWrap(true);
    text->setContentsMargins(0, 4, 0, 4);
    text->setAccessibleName(look.name);
    auto* copy = MakeButton(line, u"messageCopy"_s, u"copy"_s, u"复制这条消息"_s);
    auto* close = MakeButton(line, u"messageClose"_s, u"close"_s, u"关闭这条消息"_s);
    row->addWidget(sign, 0, Qt::AlignTop);
    row->addWidget(text, 1);
    row->addWidget(copy, 0, Qt::AlignTop);
    row->addWidget(close, 0, Qt::AlignTop);
    connect(copy, &QToolButton::clicked, this,
            [this, at] { QApplication::clipboard()->setText(MessageLine(m_list.All()[at])); });
    connect(close, &QToolButton::clicked, this, [this, at] {
        m_list.Remove(at);
        Rebuild();
    });
    return line;
}

} // namespace host
