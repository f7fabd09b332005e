#include "bench/StartBench.h"

#include "bench/Report.h"
#include "hands/Hands.h"
#include "host/app/Client.h"
#include "host/session/HostSession.h"
#include "host/ui/MainWindow.h"
#include "sample/SampleSite.h"
#include "tour/ConsoleEyes.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QProcess>
#include <QTextStream>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kStarts = 7;
constexpr int kPatienceMilliseconds = 5000;
const QString kSampleUser = u"张工"_s;

double Since(qint64 spawned) {
    return double(QDateTime::currentMSecsSinceEpoch() - spawned);
}

} // namespace

int RunStartProbe(const QString& folder, qint64 spawned) {
    host::HostSession session;
    QString error;
    if (session.Open(folder) ||
        !sample::CreateSampleSite(
            session.Site(), sample::SampleSize::Full, [](int, int, const QString&) { return true; },
            error) ||
        !session.SignIn(kSampleUser)) {
        return 1;
    }
    host::Client client(session);
    if (client.Start(QCoreApplication::applicationDirPath())) {
        return 1;
    }
    while (!client.Window()->isVisible()) {
        QCoreApplication::processEvents();
    }
    client.Window()->repaint();
    const double mainWindow = Since(spawned);
    // The platform grants the focus in its own time.
    const QDeadlineTimer patience(kPatienceMilliseconds);
    while (!hands::PressKey(client.Window(), Qt::Key_1, Qt::ControlModifier)) {
        if (patience.hasExpired()) {
            return 1;
        }
        QCoreApplication::processEvents();
    }
    QAbstractItemView* rows = tour::ConsoleGrid();
    if (rows == nullptr || rows->model()->rowCount() == 0) {
        return 1;
    }
    rows->window()->repaint();
    rows->viewport()->repaint();
    QTextStream(stdout) << mainWindow << u' ' << Since(spawned) << Qt::endl;
    client.Stop();
    return 0;
}

StartTimes MeasureStart(const QString& folder) {
    std::vector<double> mainWindow;
    std::vector<double> console;
    for (int i = 0; i <= kStarts; ++i) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {u"--start-probe"_s, folder, u"--spawned"_s,
                       QString::number(QDateTime::currentMSecsSinceEpoch())});
        process.waitForFinished(-1);
        const QStringList words =
            QString::fromUtf8(process.readAllStandardOutput()).trimmed().split(u' ');
        if (process.exitCode() != 0 || words.size() != 2) {
            return {};
        }
        if (i == 0) {
            continue;
        }
        mainWindow.push_back(words[0].toDouble());
        console.push_back(words[1].toDouble());
    }
    return {Median(mainWindow), Median(console)};
}

} // namespace bench
