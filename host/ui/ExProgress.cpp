#include "host/ui/ExProgress.h"

#include "host/ui/ProgressWindow.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QTimer>

namespace host {

namespace {

constexpr int kLookAgainMs = 200;

/// The work itself asks a question.
bool IsBehindDialog(const ProgressWindow* window) {
    const QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && modal != window;
}

} // namespace

ExProgress::ExProgress() = default;

ExProgress::~ExProgress() = default;

ExProgress::Hold::~Hold() {
    --m_progress.m_holds;
    m_progress.LetGoLater(0);
}

void ExProgress::LetGoLater(int milliseconds) {
    if (!m_window) {
        return;
    }
    QTimer::singleShot(milliseconds, m_window.get(), [this] {
        if (m_holds == 0 && !IsBehindDialog(m_window.get())) {
            m_window->LetGo();
        } else if (m_holds == 0) {
            LetGoLater(kLookAgainMs);
        }
    });
}

void ExProgress::Close() {
    m_window.reset();
}

void ExProgress::Create(quint64 parent, const QString& name) {
    m_range = 0;
    m_window = std::make_unique<ProgressWindow>(toolkit::WidgetOf(parent), name,
                                                ProgressWindow::Cancel::Impossible);
}

void ExProgress::Show() {
    if (!m_window) {
        return;
    }
    m_window->Begin();
    LetGoLater(0);
}

void ExProgress::SetTitle(const QString& title) {
    if (m_window) {
        m_window->SetText(title);
    }
}

void ExProgress::SetRange(qint32 count) {
    m_range = count;
}

void ExProgress::SetPos(qint32 done) {
    if (!m_window) {
        return;
    }
    const Hold hold(*this);
    m_window->Report(done, m_range);
    m_window->LetThrough();
}

} // namespace host
