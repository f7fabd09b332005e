#include "host/ui/DropHint.h"

#include "host/ui/LocalPaths.h"
#include "toolkit/Look.h"

#include <QDropEvent>
#include <QLabel>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

DropHint::DropHint(QWidget* window, Where where, Drops drops)
    : QObject(window), m_window(window), m_where(std::move(where)), m_drops(drops) {
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

QString DropHint::Text() const {
    return m_label ? m_label->text() : QString();
}

bool DropHint::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return Take(*static_cast<QDropEvent*>(event));
    case QEvent::DragLeave:
    case QEvent::Hide:
        Show({});
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool DropHint::Take(QDropEvent& event) {
    const bool isDrop = event.type() == QEvent::Drop;
    const bool may = MayDrop(event);
    const QStringList paths = LocalPaths(event.mimeData());
    Show(may && !isDrop ? m_where(paths, event.position().toPoint()) : QString());
    if (m_drops == Drops::OfWindow || !may) {
        return false;
    }
    event.acceptProposedAction();
    if (isDrop) {
        emit PathsDropped(paths);
    }
    return true;
}

void DropHint::Show(const QString& text) {
    if (text.isEmpty()) {
        delete m_label;
        return;
    }
    if (!m_label) {
        m_label = new QLabel(m_window);
        m_label->setObjectName(u"dropHint"_s);
        m_label->setTextFormat(Qt::PlainText);
        m_label->setAlignment(Qt::AlignCenter);
        m_label->setWordWrap(true);
        m_label->setMargin(2 * toolkit::kStep);
        m_label->setAutoFillBackground(true);
        // Over a child that takes drops of its own the pointer would leave the window.
        m_label->setAttribute(Qt::WA_TransparentForMouseEvents);
        QPalette palette = m_label->palette();
        palette.setColor(QPalette::Window, toolkit::Colors::Accent());
        palette.setColor(QPalette::WindowText, toolkit::TextOn(toolkit::Colors::Accent()));
        m_label->setPalette(palette);
    }
    m_label->setText(text);
    constexpr int kEdge = 6 * toolkit::kStep;
    const int most = std::max(1, m_window->width() - 2 * kEdge);
    const int wanted = m_label->fontMetrics().horizontalAdvance(text) + 8 * toolkit::kStep;
    const int width = std::min(wanted, most);
    const int height = m_label->heightForWidth(width);
    m_label->setGeometry((m_window->width() - width) / 2, m_window->height() - height - kEdge,
                         width, height);
    m_label->show();
    m_label->raise();
}

} // namespace host
