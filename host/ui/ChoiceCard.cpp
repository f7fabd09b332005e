#include "host/ui/ChoiceCard.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCardIcon = 32;
constexpr int kCardRound = 6;

} // namespace

ChoiceCard::ChoiceCard(const QString& icon, const QString& title, const QString& sentences,
                       QWidget* parent)
    : QAbstractButton(parent) {
    setText(title);
    setAccessibleName(title);
    setAccessibleDescription(sentences);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    auto* picture = new QLabel(this);
    picture->setPixmap(toolkit::Icon(icon).pixmap(QSize(kCardIcon, kCardIcon), devicePixelRatio()));
    picture->setAlignment(Qt::AlignTop);
    auto* heading = new QLabel(title, this);
    heading->setFont(toolkit::UiFont(15));
    QPalette navy = heading->palette();
    navy.setColor(QPalette::WindowText, toolkit::Colors::TextAccent());
    heading->setPalette(navy);
    auto* story = new QLabel(sentences, this);
    story->setTextFormat(Qt::PlainText);
    story->setWordWrap(true);
    for (QLabel* label : {picture, heading, story}) {
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    auto* texts = new QVBoxLayout;
    texts->setSpacing(toolkit::kStep);
    texts->addWidget(heading);
    texts->addWidget(story, 1);
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(14, 8, 14, 8);
    all->setSpacing(14);
    all->addWidget(picture);
    all->addLayout(texts, 1);
    QSizePolicy wanted(QSizePolicy::Preferred, QSizePolicy::Minimum);
    wanted.setHeightForWidth(true);
    setSizePolicy(wanted);
}

QSize ChoiceCard::sizeHint() const {
    return layout()->sizeHint();
}

void ChoiceCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isMarked = hasFocus() || underMouse();
    const QColor under = isMarked ? toolkit::Colors::AlternateRow() : palette().base().color();
    painter.setBrush(isDown() ? toolkit::Colors::Selection() : under);
    painter.setPen(
        QPen(isMarked ? toolkit::Colors::Accent() : toolkit::Colors::Frame(), hasFocus() ? 2 : 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCardRound, kCardRound);
}

void ChoiceCard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace host
