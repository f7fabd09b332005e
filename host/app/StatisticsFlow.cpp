#include "host/app/StatisticsFlow.h"

#include "host/app/ConsoleWindow.h"
#include "host/app/DrawingFlow.h"
#include "host/app/Faults.h"
#include "host/ui/MainWindow.h"
#include "host/ui/statistics/StatisticsDock.h"
#include "include/IKXVeskPicture.h"
#include "site/IChanges.h"

#include <QWidget>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Between two counts while others file, milliseconds.
constexpr int kCountPauseMs = 1000;
/// Presets: no mark, no photo, no checkpoint beside what the preset says.
constexpr qint32 kCountedUnread = 0;
constexpr qint32 kCountedMark = 0;
constexpr qint32 kCountedPhoto = -1;

bool ChangesCounts(const site::Change& change) {
    switch (change.kind) {
    case site::ChangeKind::Anything:
    case site::ChangeKind::BimPhoto:
    case site::ChangeKind::PdfPhoto:
    case site::ChangeKind::Issue:
    case site::ChangeKind::Drawing:
    case site::ChangeKind::Project:
    case site::ChangeKind::Mark:
    case site::ChangeKind::Place:
        return true;
    default:
        return false;
    }
}

} // namespace

StatisticsFlow::StatisticsFlow(const Parts& parts)
    : m_parts(parts), m_soon(kCountPauseMs, [this] { Read(); }) {
    connect(&Dock(), &StatisticsDock::ChartWanted, this, &StatisticsFlow::Read);
    connect(&Dock(), &StatisticsDock::BarWanted, this, &StatisticsFlow::Open);
}

StatisticsDock& StatisticsFlow::Dock() const {
    return m_parts.window.Statistics();
}

void StatisticsFlow::ProjectChanged() {
    m_changes.reset();
    WithoutFault(m_parts.session, [&] {
        // Told from inside of any question to the site: what is read comes later.
        m_changes = m_parts.session.Site().Changes().Subscribe([this](const site::Changes& made) {
            if (std::any_of(made.begin(), made.end(), ChangesCounts)) {
                QMetaObject::invokeMethod(
                    this, [this] { m_soon.Ask(); }, Qt::QueuedConnection);
            }
        });
    });
    Read();
}

void StatisticsFlow::Read() {
    if (!Dock().IsInSight() || !m_parts.session.IsOpen()) {
        return;
    }
    CountedChart made;
    const bool isRead = WithoutFault(m_parts.session, [&] {
        made = ReadStatistics(m_parts.session, Dock().Kind(), Dock().Grouping());
    });
    if (!isRead) {
        made.chart.kind = Dock().Kind();
        made.chart.hint = u"读取统计时出错，请换一种统计方式再试。"_s;
    }
    m_shown = std::move(made);
    Dock().SetChart(m_shown.chart);
}

void StatisticsFlow::Open(int row) {
    if (row < 0 || row >= int(m_shown.parts.size())) {
        return;
    }
    // What is shown may change under the console's windows.
    const CountedPart part = m_shown.parts[size_t(row)];
    const StatisticsChart chart = m_shown.chart;
    m_parts.drawings.EndPick();
    // Its keyword, dates and states would limit the list further.
    if (QWidget* console = OpenConsole()) {
        console->close();
    }
    if (part.drawingId != 0 && !m_parts.drawings.MakeCurrent(part.drawingId)) {
        m_parts.window.ShowStatus(u"这张图纸已经不在工程里"_s);
        return;
    }
    ShowInConsole(part);
    m_parts.window.ShowStatus(u"控制台只列出：%1的%2"_s.arg(
        part.phrase, CountText(chart.kind, chart.bars[size_t(row)].count)));
}

void StatisticsFlow::ShowInConsole(const CountedPart& part) {
    switch (m_shown.chart.kind) {
    case CountedKind::BimPhotos:
        m_parts.pictures.ShowBimPicMngFor(kCountedUnread, KeyOfPreset(part.preset), kCountedMark,
                                          kCountedPhoto);
        break;
    case CountedKind::PdfPhotos:
        m_parts.pictures.ShowPdfPicMngFor(kCountedUnread, kCountedMark, part.number);
        break;
    case CountedKind::Issues:
        m_parts.pictures.ShowIssueMngFor(kCountedUnread, KeyOfPreset(part.preset), kCountedMark,
                                         QString());
        break;
    }
}

} // namespace host
