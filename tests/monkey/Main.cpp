// vesk_monkey --seed N (--deeds N | --seconds N) --site FOLDER [--only 1-20,33] [--log FILE]
//             [--answer SECONDS]
// Exit code: 0 no fault, 1 faults, 2 words that make no sense; a crash as the sanitizer ends it.
#include "host/app/Client.h"
#include "host/app/StartUp.h"
#include "host/session/HostSession.h"
#include "sample/SampleSite.h"
#include "site/ICatalogue.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/monkey/Faults.h"
#include "tests/monkey/Monkey.h"
#include "tests/monkey/MonkeyPrompts.h"
#include "tests/monkey/Neighbour.h"
#include "tests/monkey/Watchdog.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/ScriptedAudio.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace monkey {
namespace {

using namespace Qt::StringLiterals;

constexpr int kNoFault = 0;
constexpr int kFault = 1;
constexpr int kWrongWords = 2;

struct Words {
    MonkeyRules rules;
    QString site;
    QString log;
    int answerSeconds = 5;
    QString error;
};

Words ReadWords(const QStringList& arguments) {
    QCommandLineParser parser;
    for (const QString& name :
         {u"seed"_s, u"deeds"_s, u"seconds"_s, u"site"_s, u"only"_s, u"log"_s, u"answer"_s}) {
        parser.addOption({name, QString(), name});
    }
    Words words;
    std::vector<int> only;
    if (!parser.parse(arguments)) {
        words.error = parser.errorText();
    } else if (!ReadNumbers(parser.value(u"only"_s), only)) {
        words.error = u"--only: numbers and ranges"_s;
    }
    words.rules.seed = parser.value(u"seed"_s).toULongLong();
    words.rules.deeds = parser.value(u"deeds"_s).toInt();
    words.rules.seconds = parser.value(u"seconds"_s).toInt();
    words.rules.only.insert(only.begin(), only.end());
    words.site = QDir(parser.value(u"site"_s)).absolutePath();
    words.log = parser.value(u"log"_s);
    if (parser.isSet(u"answer"_s)) {
        words.answerSeconds = parser.value(u"answer"_s).toInt();
    }
    if (words.rules.deeds <= 0 && words.rules.seconds <= 0) {
        words.error = u"--deeds or --seconds"_s;
    }
    if (!parser.isSet(u"site"_s) || words.answerSeconds <= 0) {
        words.error = u"--site, --answer"_s;
    }
    return words;
}

/// The sample site, made once; from then on it is copied.
bool MakeSite(const QString& folder) {
    const site::OpenedSite data = site::OpenSite(folder);
    QString error;
    if (data.fault) {
        error = data.fault->text;
    } else if (data.site->NewIntake()->IsEmpty()) {
        static_cast<void>(sample::CreateSampleSite(
            *data.site, sample::SampleSize::Small, [](int, int, const QString&) { return true; },
            error));
    }
    if (!error.isEmpty()) {
        std::fprintf(stderr, "monkey: %s\n", qUtf8Printable(error));
    }
    return error.isEmpty();
}

void CopyFolder(const QString& from, const QString& to) {
    QDir().mkpath(to);
    QDirIterator files(from, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString target = QDir(to).filePath(QDir(from).relativeFilePath(path));
        QDir().mkpath(QFileInfo(target).path());
        QFile::copy(path, target);
    }
}

/// What is dropped and chosen: pictures, and what only looks like one.
void FillDropFolder(const QString& folder) {
    QDir().mkpath(folder);
    const auto write = [&](const QString& name, const QByteArray& bytes) {
        QFile file(QDir(folder).filePath(name));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(bytes);
        }
    };
    for (int number = 1; number <= 5; ++number) {
        write(u"现场%1.jpg"_s.arg(number), roads::JpegBytes(qRgb(50 * number, 20, 200)));
    }
    write(u"坏.jpg"_s, "not a picture");
    write(u"空.png"_s, {});
    write(u"说明.txt"_s, "text");
}

QString ChangeTransfers(host::HostSession& session, const Deed& deed) {
    using site::TransferFault;
    struct Row {
        const char* name;
        site::TransferRules rules;
    };
    static const std::array rows = {
        Row{"good", {}},
        Row{"good", {}},
        Row{"slow", {50, TransferFault::None}},
        Row{"fail at the start", {0, TransferFault::AtStart}},
        Row{"fail in the middle", {0, TransferFault::InTheMiddle}},
        Row{"hang", {0, TransferFault::NeverEnds}},
    };
    const Row& row = rows[size_t(deed.Of(0, qsizetype(rows.size())))];
    session.Desk()->SetRules(row.rules);
    return QString::fromLatin1(row.name);
}

/// The first client's person has all rights; later ones are asked, those that aren't told are next.
bool SignIn(host::HostSession& session, int number) {
    if (number > 0 && host::SignInUser(session, {}).goOn) {
        return true;
    }
    const std::vector<QString> people = session.Site().Catalogue().People();
    return !people.empty() && session.SignIn(people[size_t(number) % people.size()]);
}

/// One client from its start to its end.
bool RunClient(const QString& folder, Monkey& monkey, int number) {
    host::HostSession session;
    if (const auto fault = session.Open(folder)) {
        TellFault(fault->text);
        return false;
    }
    if (!SignIn(session, number)) {
        TellFault(u"nobody can sign in"_s);
        return false;
    }
    Note(u"client %1: %2"_s.arg(number).arg(session.UserName()));
    monkey.surroundings.changeTransfers = [&session](const Deed& deed) {
        return ChangeTransfers(session, deed);
    };
    host::Client client(session);
    if (const auto lack = client.Start(QCoreApplication::applicationDirPath())) {
        TellFault(*lack);
        return false;
    }
    QApplication::exec();
    Note(u"client %1 ends"_s.arg(number));
    client.Stop();
    monkey.surroundings.changeTransfers = {};
    return true;
}

void RunAll(const Words& words, const QString& folder) {
    Watchdog watchdog(words.answerSeconds);
    const QString dropFolder = QDir(folder).filePath(u"files"_s);
    FillDropFolder(dropFolder);
    const MonkeyPrompts prompts(words.rules.seed, dropFolder);
    Neighbour neighbour(QDir(folder).filePath(u"data"_s));
    Monkey monkey(words.rules, {neighbour, {}, dropFolder}, watchdog);
    monkey.Start();
    int number = 0;
    while (!monkey.IsOver()) {
        watchdog.Beat();
        neighbour.BringPhotosBack();
        if (!RunClient(QDir(folder).filePath(u"data"_s), monkey, number++)) {
            return;
        }
    }
    std::printf("monkey: seed %llu, %d deeds, %d clients, %d faults\n",
                static_cast<unsigned long long>(words.rules.seed), monkey.Done(), number,
                FaultCount());
}

int Run(const QStringList& arguments) {
    const Words words = ReadWords(arguments);
    if (!words.error.isEmpty()) {
        std::fprintf(stderr, "monkey: %s\n", qUtf8Printable(words.error));
        return kWrongWords;
    }
    const QTemporaryDir folder;
    if (!folder.isValid() || !MakeSite(words.site)) {
        return kFault;
    }
    CopyFolder(words.site, folder.filePath(u"data"_s));
    OpenHistory(words.rules.seed, words.log);
    WatchMessages();
    RunAll(words, folder.path());
    return FaultCount() == 0 ? kNoFault : kFault;
}

} // namespace
} // namespace monkey

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const support::ScriptedAudio noSound;
    toolkit::ApplyLook(app);
    return monkey::Run(QApplication::arguments());
}
