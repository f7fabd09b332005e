#include "bench/CheckpointBench.h"

#include "bench/BareDecode.h"
#include "bench/CheckpointSite.h"
#include "bench/Report.h"
#include "bench/StatementTrace.h"
#include "bench/Stopwatch.h"
#include "bench/WatchedApplication.h"
#include "frame/KXVeskPictureImpl.h"
#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "services/Factories.h"
#include "services/IPDFDrawingMng.h"
#include "toolkit/KXTools.h"
#include "toolkit/controls/DiscussListCtrl.h"
#include "viewers/PdfPicViewWrap.h"

#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <set>
#include <string_view>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCheckpointOpenings = 15;
constexpr int kCheckpointSettleMs = 400;
constexpr int kCheckpointPatienceMs = 60'000;
constexpr double kBareWork = 1.3;

/// Milliseconds from the call.
struct CheckpointTimes {
    double returned = -1; ///< the facade's call
    double comments = -1; ///< the newest one is on the screen
    double picture = -1;  ///< the first one is
    [[nodiscard]] double Both() const { return std::max(comments, picture); }
};

/// Of a list that was painted.
bool ShowsNewest(const QListView& list) {
    const int rows = list.model()->rowCount();
    return rows > 0 &&
           list.viewport()->rect().intersects(list.visualRect(list.model()->index(rows - 1, 0)));
}

CheckpointTimes OpenCheckpoint(WatchedApplication& application, const CheckpointSite& place) {
    CPdfPicViewDlg& pane = CPdfPicViewWrap::Instance().Pane();
    CheckpointTimes times;
    const Stopwatch timer;
    application.onAnyPainted = [&](const QObject& object) {
        const DiscussListCtrl* list = pane.Comments().List();
        if (list != nullptr && &object == list->viewport() && times.comments < 0 &&
            ShowsNewest(*list)) {
            times.comments = timer.Milliseconds();
        }
        if (&object == pane.Widget() && times.picture < 0 && pane.ShowsPicture()) {
            times.picture = timer.Milliseconds();
        }
    };
    CKXVeskPictureImpl::Instance().OpenPdfPicView(place.ppid, place.checkpointId, place.drawingName,
                                                  toolkit::kNoWindow);
    times.returned = timer.Milliseconds();
    const QDeadlineTimer patience(kCheckpointPatienceMs);
    while ((times.comments < 0 || times.picture < 0) && !patience.hasExpired()) {
        QCoreApplication::processEvents();
    }
    application.onAnyPainted = {};
    return times;
}

/// The same rows, read the best way: each different statement once, the comments in one.
std::vector<TracedStatement> BestStatements(const std::vector<TracedStatement>& traced) {
    constexpr std::string_view kOfCheckpoint = " WHERE checkpoint_id = ";
    std::vector<TracedStatement> best;
    std::set<std::string> known;
    for (TracedStatement statement : traced) {
        const size_t condition = statement.sql.find(kOfCheckpoint);
        if (statement.sql.find("FROM comment ") != std::string::npos &&
            condition != std::string::npos) {
            // What limits the page goes.
            statement.sql.resize(statement.sql.find(' ', condition + kOfCheckpoint.size()));
            statement.sql += " ORDER BY id";
        }
        const bool readsRows = statement.sql.starts_with("SELECT");
        if (readsRows && known.insert(statement.sql).second) {
            best.push_back(statement);
        }
    }
    return best;
}

std::vector<toolkit::DiscussRow> AllComments(qint32 checkpointId) {
    std::vector<toolkit::DiscussRow> rows;
    std::vector<KX_DATA::CheckpointComment> page;
    for (qint32 number = 0; number == 0 || !page.empty(); ++number) {
        page.clear();
        GetPDFDrawingMng()->GetComments(checkpointId, number, KX_DATA::kCommentPageSize, page);
        for (const KX_DATA::CheckpointComment& comment : page) {
            rows.push_back({comment.text, KXTools::timeToCString(comment.time), comment.commentId});
        }
    }
    return rows;
}

/// Rows that are there already into a list of that size, until it is painted.
double FillList(const std::vector<toolkit::DiscussRow>& rows, const QSize& size) {
    DiscussListCtrl list(nullptr, 1);
    list.resize(size);
    list.show();
    Settle(20);
    std::vector<toolkit::DiscussRow> taken = rows;
    const Stopwatch timer;
    list.InsertRows(std::move(taken));
    list.viewport()->repaint();
    return timer.Milliseconds();
}

struct CheckpointSeries {
    std::vector<double> both;
    std::vector<double> returned;
    std::vector<double> comments;
    std::vector<double> picture;
    std::vector<double> own;  ///< its own statements again
    std::vector<double> best; ///< the best way to the same rows
    std::vector<double> decode;
    std::vector<double> ratio;
    std::vector<double> services;
    std::vector<double> list;
};

void Close() {
    CPdfPicViewWrap::Instance().Widget()->close();
    Settle(kCheckpointSettleMs);
}

void MeasureOnce(WatchedApplication& application, const CheckpointSite& place,
                 CheckpointSeries& series) {
    static_cast<void>(TakeTrace());
    const CheckpointTimes times = OpenCheckpoint(application, place);
    const std::vector<TracedStatement> statements = TakeTrace();
    const CPdfPicViewDlg& pane = CPdfPicViewWrap::Instance().Pane();
    const QSize shown =
        gallery::DeviceSize(pane.State().picRect.size(), pane.Widget()->devicePixelRatio());
    const QSize listSize = CPdfPicViewWrap::Instance().Pane().Comments().List()->size();
    Close();
    series.both.push_back(times.Both());
    series.returned.push_back(times.returned);
    series.comments.push_back(times.comments);
    series.picture.push_back(times.picture);
    series.own.push_back(ReplayMilliseconds(statements));
    series.best.push_back(ReplayMilliseconds(BestStatements(statements)));
    series.decode.push_back(BareDecode({place.firstPicture, shown, {}}));
    series.ratio.push_back(times.Both() / (series.best.back() + series.decode.back()));
    const Stopwatch reading;
    const std::vector<toolkit::DiscussRow> rows = AllComments(place.checkpointId);
    series.services.push_back(reading.Milliseconds());
    series.list.push_back(FillList(rows, listSize));
}

void PutCheckpoint(Report& report, const CheckpointSeries& series) {
    const QString name = u"checkpoint: "_s;
    const auto put = [&](const QString& what, const std::vector<double>& times) {
        report.AddFigure(name + what, Median(times), u"ms"_s);
    };
    put(u"open to picture and newest comment"_s, series.both);
    report.AddFigure(name + u"open, nine in ten"_s, NinthDecile(series.both), u"ms"_s);
    report.AddFigure(name + u"open, worst"_s,
                     *std::max_element(series.both.begin(), series.both.end()), u"ms"_s);
    put(u"bare queries"_s, series.best);
    put(u"bare decode"_s, series.decode);
    report.AddGoal(name + u"open, ratio to bare queries and decode"_s, Median(series.ratio), u"x"_s,
                   kBareWork);
    put(u"of it, until the call returns"_s, series.returned);
    put(u"of it, until the newest comment is painted"_s, series.comments);
    put(u"of it, until the picture is painted"_s, series.picture);
    put(u"alone, its own statements"_s, series.own);
    put(u"alone, comments from the service"_s, series.services);
    put(u"alone, comments into a list"_s, series.list);
}

} // namespace

bool MeasureCheckpoint(WatchedApplication& application, const QStringList& photos, Report& report) {
    const QTemporaryDir place;
    host::HostSession session;
    host::Serving serving(session);
    if (session.Open(place.filePath(u"site"_s))) {
        return false;
    }
    const CheckpointSite site = FileCheckpoint(session, photos);
    if (site.ppid == 0) {
        QTextStream(stderr) << u"the checkpoint can't be filed"_s << Qt::endl;
        return false;
    }
    const CheckpointTimes first = OpenCheckpoint(application, site);
    report.AddFigure(u"checkpoint: open, first time"_s, first.Both(), u"ms"_s);
    Close();
    CheckpointSeries series;
    for (int i = 0; i < kCheckpointOpenings; ++i) {
        MeasureOnce(application, site, series);
    }
    PutCheckpoint(report, series);
    serving.TakeBack();
    session.Close();
    return true;
}

} // namespace bench
