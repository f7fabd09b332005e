#include "host/ui/ExProgress.h"

#include "host/ui/ProgressWindow.h"
#include "toolkit/WindowRegistry.h"

namespace host {

ExProgress::ExProgress() = default;

ExProgress::~ExProgress() = default;

void ExProgress::Close() {
    window.reset();
}

void ExProgress::Create(quint64 parent, const QString& name) {
    range = 0;
    window = std::make_unique<ProgressWindow>(toolkit::WidgetOf(parent), name,
                                              ProgressWindow::Cancel::kImpossible);
}

void ExProgress::Show() {
    if (window)
        window->Begin();
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
    window->Report(done, range);
    window->LetThrough();
}

} // namespace host
