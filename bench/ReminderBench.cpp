// Reminders from the host's message on.
#include "bench/FeedBench.h"
#include "bench/Report.h"

#include <QApplication>
#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMessages = 100'000;
constexpr int kRuns = 11;

} // namespace

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({u"out"_s, u"JSON file of the results."_s, u"file"_s, u"reminders.json"_s});
    options.addOption({u"messages"_s, u"How many."_s, u"number"_s, QString::number(kMessages)});
    options.process(app);
    bench::Report report;
    if (!bench::MeasureFeed(std::max(1, options.value(u"messages"_s).toInt()), kRuns, report)) {
        return 1;
    }
    return report.WriteJson(options.value(u"out"_s)) ? 0 : 1;
}
