#include "bench/BulkFolder.h"

#include "host/session/HostSession.h"
#include "tests/bulk/BulkSite.h"
#include "tests/support/EngineFolder.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>

#include <cstdio>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBigProject = 1;

const QString& User() {
    static const QString name = u"bench"_s;
    return name;
}

bool OpenOrFill(host::HostSession& session, const QString& folder) {
    if (session.Open(folder)) {
        return false;
    }
    if (session.SignIn(User())) {
        return true;
    }
    session.Close();
    const QStringList words = QCoreApplication::arguments().mid(1);
    return QProcess::execute(QCoreApplication::applicationFilePath(),
                             QStringList{u"--fill"_s} + words) == 0 &&
           !session.Open(folder) && session.SignIn(User());
}

} // namespace

void AddFolderOptions(QCommandLineParser& options) {
    options.addOption({u"data"_s, u"Data folder; filled if it is empty."_s, u"folder"_s});
    options.addOption({u"photos"_s, u"BIM photos."_s, u"n"_s, u"1000000"_s});
    options.addOption({u"drawing-photos"_s, u"Drawing photos."_s, u"n"_s, u"200000"_s});
    options.addOption({u"issues"_s, u"Issues."_s, u"n"_s, u"200000"_s});
    options.addOption(QCommandLineOption(u"fill"_s, u"Only fill the data folder."_s));
}

int FillFolder(const QCommandLineParser& options) {
    host::HostSession session;
    if (const auto fault = session.Open(options.value(u"data"_s))) {
        QTextStream(stderr) << fault->text << Qt::endl;
        return 1;
    }
    bulk::BulkSize size;
    size.bimPhotos = options.value(u"photos"_s).toInt();
    size.pdfPhotos = options.value(u"drawing-photos"_s).toInt();
    size.issues = options.value(u"issues"_s).toInt();
    QTextStream(stderr) << u"filling the data folder, once"_s << Qt::endl;
    bulk::FillBulkSite(support::FolderOf(session), size);
    return 0;
}

bool OpenFolder(host::HostSession& session, const QCommandLineParser& options) {
    if (OpenOrFill(session, options.value(u"data"_s)) && session.OpenProject(kBigProject)) {
        return true;
    }
    QTextStream(stderr) << u"the data folder can't be used"_s << Qt::endl;
    return false;
}

} // namespace bench
