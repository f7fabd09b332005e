#include "bench/FeedBench.h"

#include "bench/ReminderMessages.h"
#include "bench/Report.h"
#include "bench/Stopwatch.h"
#include "reminder/feed/ReminderFeed.h"
#include "toolkit/GbkText.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCoreApplication>
#include <QWidget>

#include <boost/property_tree/json_parser.hpp>
#include <boost/property_tree/ptree.hpp>

#include <algorithm>
#include <sstream>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

using Messages = std::vector<ReminderMessage>;

constexpr double kMostTimesBare = 1.5;

/// Milliseconds.
struct Time {
    double wall = 0;
    double cpu = 0; ///< of the interface thread alone
};

/// The host's window: takes out what is ready when it is told.
class Drain final {
public:
    explicit Drain(reminder::ReminderFeed& toDrain)
        : m_feed(toDrain),
          m_id(toolkit::RegisterWindow(&m_widget, [this](const toolkit::WindowEvent& event) {
              if (event.number == reminder::kPicMessageEvent ||
                  event.number == reminder::kIssueMessageEvent) {
                  m_taken += m_feed.TakeReady().size();
              }
              return qintptr(0);
          })) {}
    ~Drain() { toolkit::UnregisterWindow(m_id); }
    Drain(const Drain&) = delete;
    Drain& operator=(const Drain&) = delete;

    [[nodiscard]] toolkit::WindowId Id() const { return m_id; }
    void WaitFor(size_t records) const {
        while (m_taken < records) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

private:
    reminder::ReminderFeed& m_feed;
    QWidget m_widget;
    size_t m_taken = 0;
    toolkit::WindowId m_id;
};

Time TimeOfFeed(const Messages& messages) {
    reminder::ReminderFeed feed;
    const Drain drain(feed);
    const Stopwatch watch;
    for (const ReminderMessage& message : messages) {
        if (message.isPicture) {
            feed.OnPicMessage(drain.Id(), message.json);
        } else {
            feed.OnIssueMessage(drain.Id(), message.json);
        }
    }
    drain.WaitFor(messages.size());
    return {watch.Milliseconds(), watch.CpuMilliseconds()};
}

Time TimeOfBareParse(const Messages& messages) {
    size_t nodes = 0;
    const Stopwatch watch;
    for (const ReminderMessage& message : messages) {
        std::istringstream text(toolkit::FromGbk(message.json).toUtf8().toStdString());
        boost::property_tree::ptree tree;
        boost::property_tree::read_json(text, tree);
        nodes += tree.size();
    }
    const Time time{watch.Milliseconds(), watch.CpuMilliseconds()};
    return nodes > messages.size() ? time : Time();
}

void Put(Report& report, const QString& name, const std::vector<double>& times) {
    report.AddFigure(name + u", first run"_s, times.front(), u"ms"_s);
    const std::vector<double> again(times.begin() + 1, times.end());
    report.AddFigure(name + u", median"_s, Median(again), u"ms"_s);
    report.AddFigure(name + u", nine in ten"_s, NinthDecile(again), u"ms"_s);
    report.AddFigure(name + u", worst"_s, *std::max_element(again.begin(), again.end()), u"ms"_s);
    report.AddFigure(name + u", best"_s, *std::min_element(again.begin(), again.end()), u"ms"_s);
}

} // namespace

bool MeasureFeed(int count, int runs, Report& report) {
    const Messages messages = MakeReminderMessages(count);
    std::vector<double> ours;
    std::vector<double> bare;
    std::vector<double> work;
    std::vector<double> bareWork;
    for (int run = 0; run <= runs; ++run) {
        const Time feed = TimeOfFeed(messages);
        const Time parse = TimeOfBareParse(messages);
        ours.push_back(feed.wall);
        work.push_back(feed.cpu);
        bare.push_back(parse.wall);
        bareWork.push_back(parse.cpu);
    }
    const QString what = u"%1 reminders"_s.arg(count);
    Put(report, what + u" parsed, queued, drained"_s, ours);
    Put(report, what + u", bare parse"_s, bare);
    report.AddFigure(what + u": work of the interface thread to that of a bare parse"_s,
                     Median(work) / Median(bareWork), u"x"_s);
    // The first run has the pages of the memory to fetch.
    ours.erase(ours.begin());
    const double best = *std::min_element(bare.begin(), bare.end());
    report.AddFigure(what + u": best to best bare"_s,
                     *std::min_element(ours.begin(), ours.end()) / best, u"x"_s);
    report.AddGoal(what + u": median to best bare"_s, Median(ours) / best, u"x"_s, kMostTimesBare);
    return best > 0;
}

} // namespace bench
