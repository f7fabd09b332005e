#include "host/app/ReportOutput.h"

#include "host/app/DrawingFlow.h"
#include "host/app/Faults.h"
#include "host/app/PlanAxes.h"
#include "host/app/PlanPicture.h"
#include "host/app/PlanReader.h"
#include "host/app/RichRights.h"
#include "host/ui/report/ReportWindow.h"
#include "site/IBlobs.h"
#include "site/ICatalogue.h"
#include "site/IClientFolders.h"
#include "site/IDrawings.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/windows/WaitCursor.h"

#include <QTimer>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

void ReportOutput::End() {
    delete m_window;
}

void ReportOutput::OutputBimReport(const PIC_REPORT::BimReportRequest* request) {
    Output([this, asked = *request] { return ReadBimReport(m_session, asked); });
}

void ReportOutput::OutputPdfReport(const PIC_REPORT::PdfReportRequest* request) {
    Output([this, asked = *request] { return ReadPdfReport(m_session, asked); });
}

void ReportOutput::OutputIssueReport(const PIC_REPORT::IssueReportRequest* request) {
    Output([this, asked = *request] { return ReadIssueReport(m_session, asked); });
}

void ReportOutput::Output(const std::function<ReportReading()>& read) {
    if (m_window && m_window->IsSaving()) {
        m_window->TellBusy();
        m_window->raise();
        m_window->activateWindow();
        return;
    }
    delete m_window;
    m_plan = {};
    m_isSheetAwaited = false;
    m_missing.reset();
    m_window = new ReportWindow(*this);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    // The caller looks for the window soon; reading may take longer.
    QTimer::singleShot(0, m_window, [this, read] {
        const toolkit::WaitCursor wait;
        ReportReading reading;
        const QString fault = !m_session.IsOpen() ? u"没有打开数据文件夹。"_s
                                                  : FaultOfWork([&] { reading = read(); });
        const QString lack = fault.isEmpty() ? reading.lack : fault;
        if (!lack.isEmpty()) {
            m_window->SetLack(lack);
        } else {
            Begin(std::move(reading));
        }
    });
}

void ReportOutput::Begin(ReportReading reading) {
    const ReportPlace place = reading.place;
    m_fetch = new ReportFetch(m_session, std::move(reading), m_window);
    connect(m_window, &ReportWindow::FetchingStopped, m_fetch, &ReportFetch::Stop);
    connect(m_fetch, &ReportFetch::Stepped, m_window, &ReportWindow::SetFetching);
    connect(m_fetch, &ReportFetch::Ended, m_window, [this](int missing) {
        m_missing = missing;
        EndFetching();
    });
    connect(m_window, &ReportWindow::FetchingStopped, this, [this] {
        if (m_isSheetAwaited) {
            TakePlan({});
        }
    });
    AddPlan(place);
    ShowContent();
    m_fetch->Begin();
}

void ReportOutput::EndFetching() {
    if (!m_window || !m_missing) {
        return;
    }
    ShowContent();
    if (m_isSheetAwaited) {
        m_window->SetDrawing();
        return;
    }
    m_window->EndFetching(
        *m_missing == 0
            ? QString()
            : u"有 %1 张图片没有下载成功，报告中注明了原因。请检查网络后重新输出。"_s.arg(
                  *m_missing));
}

void ReportOutput::ShowContent() {
    if (m_window && m_fetch) {
        ReportContent content = m_fetch->Content();
        content.plan = m_plan;
        m_window->SetContent(content);
    }
}

void ReportOutput::AddPlan(const ReportPlace& place) {
    if (place.drawingId != 0) {
        FetchSheet(place);
    } else if (!place.positionKey.isEmpty()) {
        m_plan = PlanPictureOf(ReadFloorPlan(m_session, m_axes), place.positionKey);
    }
}

void ReportOutput::FetchSheet(const ReportPlace& place) {
    std::optional<site::DrawingEntry> drawing;
    int page = 0;
    const QString fault = FaultOfWork([&] {
        site::IDrawings& drawings = m_session.Site().Drawings();
        drawing = drawings.Drawing(m_session.OpenPpids(), place.drawingId);
        const auto flags = drawings.Flags(m_session.OpenPpids(), place.drawingId);
        for (const site::CheckpointFlag& flag :
             flags.value_or(std::vector<site::CheckpointFlag>())) {
            page = flag.id == place.pointId ? flag.place.page : page;
        }
    });
    const auto folder = m_session.Desk()->Folder([&](site::IClientFolders& folders) {
        return folders.CacheOf(place.ppid, site::IClientFolders::Cache::Drawings);
    });
    // A report without the sheet is one.
    if (!fault.isEmpty() || !drawing || drawing->fileUuid.isEmpty() || !folder ||
        folder->isEmpty()) {
        return;
    }
    const QPointer<ReportFetch> report(m_fetch);
    const QPointer<ReportOutput> self(this);
    const QString path = *folder + u'/' + drawing->fileUuid + u".pdf"_s;
    const auto work = [self, report, place, page, path, uuid = drawing->fileUuid](
                          site::IBlobs& blobs, const site::TransferTerms& terms) {
        const bool isThere = blobs.Fetch(uuid, path, terms).ok;
        toolkit::CallOnInterfaceThread([self, report, place, page, path, isThere] {
            // Another report may stand in the window by then.
            if (!self || !report || self->m_fetch != report || !self->m_isSheetAwaited) {
                return;
            }
            if (isThere) {
                self->DrawSheet(place, page, path);
            } else {
                self->TakePlan({});
            }
        });
    };
    m_isSheetAwaited = m_session.Desk()->Start(work).stop_possible();
}

void ReportOutput::DrawSheet(const ReportPlace& place, int page, const QString& path) {
    std::vector<SheetFlag> flags;
    (void)FaultOfWork([&] {
        const auto points =
            m_session.Site().Drawings().Flags(m_session.OpenPpids(), place.drawingId);
        for (const site::CheckpointFlag& point :
             points.value_or(std::vector<site::CheckpointFlag>())) {
            flags.push_back(FlagOf(point));
        }
    });
    m_sheet = new SheetPicture({path, page, std::move(flags), place.pointId}, m_window);
    connect(m_sheet, &SheetPicture::Made, this, &ReportOutput::TakePlan, Qt::QueuedConnection);
}

void ReportOutput::TakePlan(const QImage& plan) {
    delete m_sheet;
    if (std::exchange(m_isSheetAwaited, false)) {
        m_plan = plan;
        EndFetching();
    }
}

ReportOptions ReportOutput::Options() {
    ReportOptions options;
    WithoutFault(m_session, [&] {
        options = ReportOptionsOf(
            m_session.Site().Catalogue().Setting(u"report-options:"_s + m_session.UserName()));
    });
    return options;
}

void ReportOutput::KeepOptions(const ReportOptions& options) {
    WithoutFault(m_session, [&] {
        m_session.Site().Catalogue().SetSetting(u"report-options:"_s + m_session.UserName(),
                                                ToSetting(options));
    });
}

ReportTemplate ReportOutput::Template(qint32 ppid) {
    ReportTemplate dress;
    WithoutFault(m_session, [&] {
        dress = ReportTemplateOf(
            m_session.Site().Catalogue().Setting(u"report-template:%1"_s.arg(ppid)));
    });
    return dress;
}

QString ReportOutput::KeepTemplate(qint32 ppid, const ReportTemplate& dress) {
    // What everybody's reports look like is for those who may write on them.
    if (!LackOfRichRight().isEmpty()) {
        return u"您没有修改记录的权限，只用于本次报告。"_s;
    }
    return FaultOfWork([&] {
        m_session.Site().Catalogue().SetSetting(u"report-template:%1"_s.arg(ppid),
                                                ToSetting(dress));
        m_session.Actions().Write(
            u"更改工程“%1”的报告版式"_s.arg(m_session.Tables().ProjectName(ppid)));
    });
}

} // namespace host
