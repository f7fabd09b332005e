#include "host/import/ImportJob.h"

#include "host/import/ImportFiler.h"
#include "host/import/ImportScanner.h"

#include <QCoreApplication>
#include <QEvent>

namespace host {

namespace {

// Carries nothing: it only wakes the thread, which then looks what the worker has ready.
[[nodiscard]] QEvent::Type WakeEvent() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

} // namespace

ImportJob::ImportJob(site::ISite& openSite, QObject* parent) : QObject(parent), site(openSite) {}

ImportJob::~ImportJob() = default;

bool ImportJob::Start(const ImportRequest& request) {
    if (IsRunning()) {
        return false;
    }
    report = {};
    step = {};
    filer = std::make_unique<ImportFiler>(site, request);
    const QEvent::Type wake = WakeEvent();
    scanner = std::make_unique<ImportScanner>(
        request.roots, [this, wake] { QCoreApplication::postEvent(this, new QEvent(wake)); });
    return true;
}

void ImportJob::Cancel() {
    if (IsRunning()) {
        report.cancelled = true;
        End();
    }
}

bool ImportJob::event(QEvent* happening) {
    if (happening->type() != WakeEvent()) {
        return QObject::event(happening);
    }
    if (IsRunning()) {
        FileOne();
    }
    return true;
}

void ImportJob::FileOne() {
    if (const std::optional<ExaminedFile> file = scanner->TakeReady()) {
        step.line = filer->File(*file);
        step.total = scanner->Total();
        ++step.done;
        report.Add(step.line);
        Q_EMIT Stepped(step);
    }
    // A receiver of the signal may have cancelled.
    if (IsRunning() && (!report.fault.isEmpty() || scanner->AtEnd())) {
        End();
    }
}

void ImportJob::End() {
    scanner.reset();
    filer.reset();
    QCoreApplication::removePostedEvents(this, WakeEvent());
    Q_EMIT Finished(report);
}

} // namespace host
