// A client that is killed at a random moment while it saves, hides, deletes, restores and purges:
// every change that was acknowledged is there, the one after it is there as a whole or not at all.
#include "tests/site/crash/Child.h"
#include "tests/site/crash/Deeds.h"
#include "tests/site/crash/SiteText.h"

#include "site/sqlite/Database.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <random>
#include <sys/time.h>
#include <unistd.h>

namespace crashtest {

using namespace Qt::StringLiterals;

namespace {

const char16_t* const kChildWord = u"--crash-child";
constexpr int kRounds = 12;
constexpr int kMostBefore = 5;      ///< deeds before the moment of death begins to be awaited
constexpr int kLatestDeath = 9'000; ///< microseconds from then on: two or three deeds
constexpr int kEndlessly = 10'000;  ///< more deeds than a child lives to see

/// The process ends so many microseconds from now, whatever it is doing; nothing is tidied up.
void DieIn(int microseconds) {
    std::signal(SIGALRM, SIG_DFL);
    itimerval moment{};
    moment.it_value.tv_usec = microseconds + 1;
    setitimer(ITIMER_REAL, &moment, nullptr);
}

/// What a child was told, and what it acknowledged.
struct Life {
    int acknowledged = 0; ///< deeds
    bool crashed = false;
    QByteArray said;
};

Life LetLive(const QString& folder, int first, int before, int microseconds) {
    QProcess child;
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {QString::fromUtf16(kChildWord), folder, QString::number(first),
                 QString::number(before), QString::number(microseconds)});
    EXPECT_TRUE(child.waitForFinished(60000));
    Life life;
    life.said = child.readAll();
    life.acknowledged = int(life.said.count('\n'));
    life.crashed = child.exitStatus() == QProcess::CrashExit;
    return life;
}

/// A folder that children change and leave as it is, and one with the same history without a crash.
class Crash : public testing::Test {
protected:
    void SetUp() override {
        for (site::DataFolder* folder : {&m_crashed, &m_whole}) {
            ASSERT_FALSE(folder->Open().has_value());
            FillSite(*folder);
        }
        m_crashed.Close();
        m_whole.Db().Exec(u"PRAGMA synchronous = OFF"_s);
    }

    /// One child's life and what it left behind.
    void Round() {
        const int before = int(m_dice() % (kMostBefore + 1));
        const int microseconds = int(m_dice() % kLatestDeath);
        const Life life = LetLive(m_crashed.Path(), m_done, before, microseconds);
        ASSERT_TRUE(life.crashed) << life.said.toStdString();
        ASSERT_GE(life.acknowledged, before);
        m_acknowledged += life.acknowledged;
        for (int deed = 0; deed < life.acknowledged; ++deed) {
            DoDeed(m_whole, m_done++);
        }
        const auto fault = m_crashed.Open();
        ASSERT_FALSE(fault.has_value()) << fault->text.toStdString();
        EXPECT_EQ(ContradictionsIn(m_crashed).join(u'\n').toStdString(), "");
        const QString left = TextOf(m_crashed).join(u'\n');
        if (left != TextOf(m_whole).join(u'\n')) {
            DoDeed(m_whole, m_done++);
            ++m_committedUntold;
        }
        ASSERT_EQ(left.toStdString(), TextOf(m_whole).join(u'\n').toStdString())
            << "after deed " << m_done;
        m_crashed.Close();
    }

    QTemporaryDir m_dir;
    site::DataFolder m_crashed{m_dir.path() + u"/crashed"_s};
    site::DataFolder m_whole{m_dir.path() + u"/whole"_s};
    std::mt19937 m_dice{unsigned(testing::UnitTest::GetInstance()->random_seed())};
    int m_done = 0; ///< deeds in the history of both
    int m_acknowledged = 0;
    int m_committedUntold = 0;
};

} // namespace

std::optional<int> RunAsChild(const QStringList& words) {
    if (words.size() < 6 || words[1] != QStringView(kChildWord)) {
        return std::nullopt;
    }
    const int first = words[3].toInt();
    const int before = words[4].toInt();
    const int microseconds = words[5].toInt();
    if (before == 0) {
        DieIn(microseconds);
    }
    try {
        site::DataFolder folder(words[2]);
        if (const auto fault = folder.Open()) {
            qWarning("%s", qUtf8Printable(fault->text));
            return 3;
        }
        for (int deed = 0; deed < kEndlessly; ++deed) {
            DoDeed(folder, first + deed);
            // At once and past every buffer: what a person has seen can't be taken back.
            if (write(STDOUT_FILENO, "\n", 1) != 1) {
                return 4;
            }
            if (deed + 1 == before) {
                DieIn(microseconds);
            }
        }
    } catch (const site::DataError& error) {
        qWarning("%s", qUtf8Printable(error.Text()));
    }
    return 5;
}

TEST_F(Crash, WhileSavingAndBinningKeepsWhatWasAcknowledgedAndLeavesNothingHalf) {
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        ASSERT_NO_FATAL_FAILURE(Round());
    }
    EXPECT_GT(m_acknowledged, kRounds);
    RecordProperty("acknowledged", m_acknowledged);
    RecordProperty("committed untold", m_committedUntold);
}

} // namespace crashtest
