#include "host/ui/ExProgress.h"

#include "host/ui/ProgressWindow.h"
#include "toolkit/WindowRegistry.h"

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
    --progress.holds;
    progress.LetGoLater(0);
}

void ExProgress::LetGoLater(int milliseconds) {
    if (!window)
        return;
    QTimer::singleShot(milliseconds, window.get(), [this] {
        if (holds == 0 && !IsBehindDialog(window.get()))
            window->LetGo();
        else if (holds == 0)
            LetGoLater(kLookAgainMs);
    });
}

void ExProgress::Close() {
    window.reset();
}

void ExProgress::Create(quint64 parent, const QString& name) {
    range = 0;
    window = std::make_unique<ProgressWindow>(toolkit::WidgetOf(parent), name,
                                              ProgressWindow::Cancel::kImpossible);
}

void ExProgress::Show() {
    if (!window)
        return;
    window->Begin();
    LetGoLater(0);
}

void ExProgress::SetTitle(const QString& title) {
    if (window)
        window->SetText(title);
}

void ExProgress::SetRange(qint32 count) {
    range = count;
}

void ExProgress::SetPos(qint32 done) {
    if (!window)
        return;
    const Hold hold(*this);
    window->Report(done, range);
    window->LetThrough();
}

} // namespace host
