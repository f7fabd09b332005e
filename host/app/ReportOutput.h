// The client's component for reports: what the module asks for becomes a window.
#pragma once

#include "host/app/ReportFetch.h"
#include "host/app/ReportReader.h"
#include "host/ui/report/ReportStore.h"
#include "services/IPicReportCtrl.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>

namespace host {

class PlanAxes;
class ReportWindow;
class SheetPicture;

/// One window at a time: another request takes it over, unless a file is being made in it. What it
/// is made of must outlive it. Thread: user interface.
class ReportOutput final : public QObject, public PIC_REPORT::IPicReportCtrl, private IReportStore {
    Q_OBJECT

public:
    ReportOutput(HostSession& hostSession, PlanAxes& planAxes)
        : m_session(hostSession), m_axes(planAxes) {}
    ~ReportOutput() override { End(); }

    /// Closes the window without a question; nothing is left of a file that was being made.
    void End();

    void Reserved1() override {}
    void OutputBimReport(const PIC_REPORT::BimReportRequest* request) override;
    void OutputPdfReport(const PIC_REPORT::PdfReportRequest* request) override;
    void OutputIssueReport(const PIC_REPORT::IssueReportRequest* request) override;

private:
    ReportOptions Options() override;
    void KeepOptions(const ReportOptions& options) override;
    ReportTemplate Template(qint32 ppid) override;
    QString KeepTemplate(qint32 ppid, const ReportTemplate& dress) override;

    /// Opens the window at once, and reads with the next events.
    void Output(const std::function<ReportReading()>& read);
    void Begin(ReportReading reading);
    void AddPlan(const ReportPlace& place);
    void FetchSheet(const ReportPlace& place);
    void DrawSheet(const ReportPlace& place, int page, const QString& path);
    void TakePlan(const QImage& plan);
    void ShowContent();
    /// Of the pictures, or of the sheet: what comes last opens the way to saving.
    void EndFetching();

    HostSession& m_session;
    PlanAxes& m_axes;
    QPointer<ReportWindow> m_window;
    QPointer<ReportFetch> m_fetch; ///< a child of the window, as the one below
    QPointer<SheetPicture> m_sheet;
    QImage m_plan;
    bool m_isSheetAwaited = false;
    std::optional<int> m_missing; ///< pictures that didn't come; nothing while they are coming
};

} // namespace host
