// A file of a report in the making.
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/ReportBlocks.h"
#include "host/report/ReportFile.h"

#include <QObject>
#include <QThread>

#include <memory>
#include <stop_token>

namespace host {

/// Makes one file, on a thread of its own; the window goes on working. Ending it ends the making,
/// which leaves nothing behind. Thread: user interface.
class ReportJob final : public QObject {
    Q_OBJECT

public:
    struct Order {
        ReportSheet sheet;
        ReportForm form = ReportForm::Pdf;
        QString path;
    };

    /// Begins. What makes the photographs must outlive it.
    ReportJob(Order reportOrder, PrintPictures& pictures, QObject* parent);
    ~ReportJob() override;

    /// Ended comes soon.
    void Cancel() { m_stop.request_stop(); }
    [[nodiscard]] const QString& Path() const { return m_path; }

signals:
    void Stepped(int done, int total);
    /// @param fault  why there is no file, a sentence; empty with `isThere` false: it was
    /// cancelled.
    void Ended(bool isThere, const QString& fault);

private:
    const QString m_path;
    std::stop_source m_stop;
    std::unique_ptr<QThread> m_thread;
};

} // namespace host
