#include "report/ReportFlow.h"

namespace report {

void ReportFlow::Run(const std::function<void()>& output) {
    m_block.Begin();
    output();
    if (m_window->HasWindow()) {
        m_window->SetTimer(kReportTimer, kReportLookMs);
    } else {
        m_block.End();
    }
}

bool ReportFlow::OnTimer(int timerId) {
    if (timerId != kReportTimer) {
        return false;
    }
    if (!ClientBlock::IsReportOpen()) {
        m_window->KillTimer(kReportTimer);
        m_block.End();
    }
    return true;
}

} // namespace report
