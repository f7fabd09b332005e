#include "host/ui/MessageBar.h"

#include "host/ui/WindowKeys.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/controls/UnderLineButton.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>
#include <utility>

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

/// Later: the click on its own button may still be under way.
void RemoveLater(QWidget* widget) {
    widget->hide();
    widget->deleteLater();
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

MessageBar::~MessageBar() {
    m_list.Clear();
}

qint64 MessageBar::Show(MessageKind kind, const QString& text, MessageAction action) {
    const qint64 id = m_list.Add(kind, text, std::move(action));
    Rebuild();
    return id;
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

void MessageBar::Withdraw(qint64 id) {
    m_list.Remove(id);
    Rebuild();
}

void MessageBar::keyPressEvent(QKeyEvent* event) {
    if (!PressByEnter(*this, *event)) {
        QFrame::keyPressEvent(event);
    }
}

void MessageBar::Act(qint64 id) {
    const std::function<void()> work = m_list.TakeWork(id);
    Rebuild();
    if (work) {
        work();
    }
}

void MessageBar::Rebuild() {
    std::map<qint64, QWidget*> before;
    before.swap(m_lineOf);
    for (const HostMessage& message : m_list.All()) {
        const auto known = before.find(message.id);
        QWidget* line = known != before.end() ? known->second : MakeLine(message);
        if (known != before.end()) {
            before.erase(known);
            m_lines->removeWidget(line);
        }
        m_lines->addWidget(line);
        line->raise(); // readers of the screen meet children in this order
        m_lineOf[message.id] = line;
        line->findChild<QLabel*>(u"messageText"_s)->setText(MessageLine(message));
        auto* act = line->findChild<UnderLineButton*>(u"messageAction"_s);
        if (act != nullptr && message.action.caption.isEmpty()) {
            RemoveLater(act);
        }
    }
    for (const auto& [id, line] : before) {
        m_lines->removeWidget(line);
        RemoveLater(line);
    }
    PutInTabOrder();
    setVisible(!m_list.All().empty());
}

void MessageBar::PutInTabOrder() {
    QWidget* last = this;
    for (const HostMessage& message : m_list.All()) {
        for (QWidget* part : m_lineOf[message.id]->findChildren<QWidget*>()) {
            if (part->focusPolicy() != Qt::NoFocus) {
                setTabOrder(last, part);
                last = part;
            }
        }
    }
}

QWidget* MessageBar::MakeLine(const HostMessage& message) {
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
    auto* text = new QLabel(line);
    text->setObjectName(u"messageText"_s);
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setWordWrap(true);
    text->setContentsMargins(0, 4, 0, 4);
    text->setAccessibleName(look.name);
    row->addWidget(sign, 0, Qt::AlignTop);
    row->addWidget(text, 1);
    AddButtons(line, message);
    return line;
}

void MessageBar::AddButtons(QWidget* line, const HostMessage& message) {
    auto* row = static_cast<QHBoxLayout*>(line->layout());
    const qint64 id = message.id;
    if (!message.action.caption.isEmpty()) {
        auto* act = new UnderLineButton(line);
        act->setObjectName(u"messageAction"_s);
        act->setText(message.action.caption);
        act->setMinimumHeight(QToolButton().sizeHint().height()); // in line with those beside it
        act->setToolTip(toolkit::PlainTip(message.action.tip));
        // A reader of screens hears what it is about, not "undo" alone.
        act->setAccessibleName(u"%1：%2"_s.arg(message.action.caption, message.text));
        row->addWidget(act, 0, Qt::AlignTop);
        connect(act, &UnderLineButton::clicked, this, [this, id] { Act(id); });
    }
    auto* copy = MakeButton(line, u"messageCopy"_s, u"copy"_s, u"复制这条消息"_s);
    auto* close = MakeButton(line, u"messageClose"_s, u"close"_s, u"关闭这条消息"_s);
    row->addWidget(copy, 0, Qt::AlignTop);
    row->addWidget(close, 0, Qt::AlignTop);
    const auto* text = line->findChild<QLabel*>(u"messageText"_s);
    connect(copy, &QToolButton::clicked, text,
            [text] { QApplication::clipboard()->setText(text->text()); });
    connect(close, &QToolButton::clicked, this, [this, id] { Withdraw(id); });
}

} // namespace host
