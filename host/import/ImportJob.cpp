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

ImportJob::ImportJob(site::ISite& openSite, QObject* parent) : QObject(parent), m_site(openSite) {}

ImportJob::~ImportJob() = default;

bool ImportJob::Start(const ImportRequest& request) {
    if (IsRunning()) {
        return false;
    }
    m_report = {};
    m_step = {};
    m_filer = std::make_unique<ImportFiler>(m_site, request);
    const QEvent::Type wake = WakeEvent();
    m_scanner = std::make_unique<ImportScanner>(
        request.roots, [this, wake] { QCoreApplication::postEvent(this, new QEvent(wake)); });
    return true;
}

void ImportJob::Cancel() {
    if (IsRunning()) {
        m_report.cancelled = true;
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
    const auto isKnown = [this](const QString& md5) { return m_filer->IsKnown(md5); };
    if (const std::optional<ExaminedFile> file = m_scanner->TakeReady(isKnown)) {
        m_step.line = m_filer->File(*file);
        m_step.total = m_scanner->Total();
        ++m_step.done;
        m_report.Add(m_step.line);
        Q_EMIT Stepped(m_step);
    }
    // A receiver of the signal may have cancelled.
    if (IsRunning() && (!m_report.fault.isEmpty() || m_scanner->AtEnd())) {
        End();
    } else if (IsRunning() && m_scanner->HasReady()) {
        // What the project has is ready without a word of the worker.
        QCoreApplication::postEvent(this, new QEvent(WakeEvent()));
    }
}

void ImportJob::End() {
    m_scanner.reset();
    m_filer.reset();
    QCoreApplication::removePostedEvents(this, WakeEvent());
    Q_EMIT Finished(m_report);
}

} // namespace host
