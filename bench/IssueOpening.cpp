#include "bench/IssueOpening.h"

#include "bench/BareDecode.h"
#include "bench/IssueSite.h"
#include "bench/Report.h"
#include "bench/StatementTrace.h"
#include "bench/Stopwatch.h"
#include "bench/WatchedApplication.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "issues/TNPicViewWrap.h"
#include "viewers/GalleryPictures.h"

#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <set>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIssueOpenings = 15;
constexpr int kIssueSettleMs = 400;
constexpr int kIssuePatienceMs = 60'000;
constexpr double kMostOfBare = 1.3;

/// Milliseconds from the call.
struct IssueTimes {
    double returned = -1;
    double picture = -1; ///< the first one is on the screen
};

IssueTimes OpenIssue(WatchedApplication& application, const IssueSite& place) {
    CTNPicViewWrap& viewer = CTNPicViewWrap::Instance();
    CTNPicViewDlg& page = viewer.QuestionView();
    IssueTimes times;
    const Stopwatch timer;
    application.onAnyPainted = [&](const QObject& object) {
        if (&object == page.Widget() && times.picture < 0 && page.ShowsPicture()) {
            times.picture = timer.Milliseconds();
        }
    };
    viewer.ShowQuestion(place.ppid, place.questionId, toolkit::kNoWindow);
    times.returned = timer.Milliseconds();
    const QDeadlineTimer patience(kIssuePatienceMs);
    while (times.picture < 0 && !patience.hasExpired()) {
        QCoreApplication::processEvents();
    }
    application.onAnyPainted = {};
    return times;
}

/// Each different statement that reads rows, once.
std::vector<TracedStatement> DifferentReads(const std::vector<TracedStatement>& traced) {
    std::vector<TracedStatement> reads;
    std::set<std::string> known;
    for (const TracedStatement& statement : traced) {
        if (statement.sql.starts_with("SELECT") && known.insert(statement.sql).second) {
            reads.push_back(statement);
        }
    }
    return reads;
}

struct IssueSeries {
    std::vector<double> picture;
    std::vector<double> returned;
    std::vector<double> queries;
    std::vector<double> decode;
    std::vector<double> ratio;
};

void CloseIssue() {
    CTNPicViewWrap::Instance().Widget()->close();
    Settle(kIssueSettleMs);
}

void MeasureOpening(WatchedApplication& application, const IssueSite& place, IssueSeries& series) {
    static_cast<void>(TakeTrace());
    const IssueTimes times = OpenIssue(application, place);
    const std::vector<TracedStatement> statements = TakeTrace();
    const CTNPicViewDlg& page = CTNPicViewWrap::Instance().QuestionView();
    const QSize shown =
        gallery::DeviceSize(page.State().picRect.size(), page.Widget()->devicePixelRatio());
    CloseIssue();
    series.picture.push_back(times.picture);
    series.returned.push_back(times.returned);
    series.queries.push_back(ReplayMilliseconds(DifferentReads(statements)));
    series.decode.push_back(BareDecode({place.firstPicture, shown, {}}));
    series.ratio.push_back(times.picture / (series.queries.back() + series.decode.back()));
}

} // namespace

bool MeasureIssueOpening(WatchedApplication& application, const QStringList& photos,
                         Report& report) {
    const QTemporaryDir place;
    host::HostSession session;
    host::Serving serving(session);
    if (session.Open(place.filePath(u"site"_s))) {
        return false;
    }
    const IssueSite site = FileIssue(session, photos);
    if (site.ppid == 0) {
        QTextStream(stderr) << u"the issue can't be filed"_s << Qt::endl;
        return false;
    }
    const QString name = u"issue: "_s;
    report.AddFigure(name + u"open, first time"_s, OpenIssue(application, site).picture, u"ms"_s);
    CloseIssue();
    IssueSeries series;
    for (int i = 0; i < kIssueOpenings; ++i) {
        MeasureOpening(application, site, series);
    }
    report.AddFigure(name + u"open to picture"_s, Median(series.picture), u"ms"_s);
    report.AddFigure(name + u"open, nine in ten"_s, NinthDecile(series.picture), u"ms"_s);
    report.AddFigure(name + u"open, worst"_s,
                     *std::max_element(series.picture.begin(), series.picture.end()), u"ms"_s);
    report.AddFigure(name + u"bare queries"_s, Median(series.queries), u"ms"_s);
    report.AddFigure(name + u"bare decode"_s, Median(series.decode), u"ms"_s);
    report.AddGoal(name + u"open, ratio to bare queries and decode"_s, Median(series.ratio), u"x"_s,
                   kMostOfBare);
    report.AddFigure(name + u"of it, until the call returns"_s, Median(series.returned), u"ms"_s);
    CTNPicViewWrap::Instance().Destroy();
    serving.TakeBack();
    session.Close();
    return true;
}

} // namespace bench
