#include "host/ui/ProgressStrip.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QTimer>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFromEdge = 12;
constexpr int kBarWidth = 120;

const QScreen* ScreenInUse() {
    const QWidget* active = QApplication::activeWindow();
    return active != nullptr ? active->screen() : QApplication::primaryScreen();
}

} // namespace

ProgressStrip::~ProgressStrip() {
    delete m_window.data();
}

void ProgressStrip::Make() {
    auto* strip =
        new QFrame(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                                Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput);
    strip->setObjectName(u"progressStrip"_s);
    strip->setFrameShape(QFrame::Box);
    strip->setAttribute(Qt::WA_ShowWithoutActivating);
    // It ends with its work, and keeps no client alive that has closed.
    strip->setAttribute(Qt::WA_QuitOnClose, false);
    auto* row = new QHBoxLayout(strip);
    m_text = new QLabel(strip);
    m_text->setObjectName(u"progressStripText"_s);
    m_text->setTextFormat(Qt::PlainText);
    row->addWidget(m_text, 1);
    auto* bar = new QProgressBar(strip);
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setFixedWidth(kBarWidth);
    row->addWidget(bar);
    m_window = strip;
    // Nothing is painted before events run. What ends sooner would only take the windows' front.
    m_coming = new QObject(strip);
    QTimer::singleShot(0, m_coming, [strip] { strip->show(); });
}

void ProgressStrip::Place() const {
    m_window->adjustSize();
    if (const QScreen* screen = ScreenInUse()) {
        const QRect free = screen->availableGeometry();
        // Toasts come up in one corner, the buttons of the windows stand in the others.
        m_window->move(free.center().x() - m_window->width() / 2,
                       free.bottom() + 1 - kFromEdge - m_window->height());
    }
}

void ProgressStrip::ShowProgressBar(const QString& text, qint32 /*value*/) {
    if (!m_window) {
        Make();
    }
    m_text->setText(text);
    Place();
}

void ProgressStrip::SetShowInfo(const QString& text) {
    if (m_window) {
        m_text->setText(text);
        Place();
    }
}

void ProgressStrip::CloseProgressBar() {
    if (m_window) {
        // Work that has ended may bring up a box, in whose loop nothing is deleted.
        delete m_coming.data();
        m_window->hide();
        m_window->deleteLater();
        m_window.clear();
    }
}

} // namespace host
