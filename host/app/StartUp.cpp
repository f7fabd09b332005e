#include "host/app/StartUp.h"

#include "host/app/FolderMemory.h"
#include "host/app/SampleMaking.h"
#include "host/session/HostSession.h"
#include "host/setup/SetupRoles.h"
#include "host/ui/SignInDialog.h"
#include "site/FreshPlace.h"
#include "site/ICatalogue.h"
#include "site/IIntake.h"

#include <QDir>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString LastUserSetting() {
    return u"lastUser"_s;
}

QString RightsText(const std::vector<qint32>& rights) {
    QStringList words;
    for (const auto& [right, word] : RightNames()) {
        if (std::find(rights.begin(), rights.end(), right) != rights.end()) {
            words << word;
        }
    }
    return words.isEmpty() ? u"只能查看"_s : u"可以%1"_s.arg(words.join(u"、"_s));
}

/// A folder without a sample is still somebody's: its first user may do everything.
QString MakeFirstUser(HostSession& session, const QString& wanted) {
    const QString name = wanted.isEmpty() ? u"管理员"_s : wanted;
    session.Site().NewIntake()->AddUser(name, AllRights());
    return name;
}

QString AskUser(HostSession& session, const std::vector<QString>& people) {
    std::vector<SignInEntry> users;
    for (const QString& name : people) {
        users.push_back({name, RightsText(session.Site().Catalogue().RightsOf(name))});
    }
    SignInDialog dialog(users, session.Site().Catalogue().Setting(LastUserSetting()),
                        session.Site().Place());
    return dialog.exec() == QDialog::Accepted ? dialog.UserName() : QString();
}

StartResult SignInOne(HostSession& session, const CommandLine& line) {
    std::vector<QString> people = session.Site().Catalogue().People();
    if (people.empty()) {
        people.push_back(MakeFirstUser(session, line.userName));
    }
    const QString name = line.userName.isEmpty() ? AskUser(session, people) : line.userName;
    if (name.isEmpty()) {
        return {false, {}};
    }
    if (!session.SignIn(name)) {
        const QStringList known(people.begin(), people.end());
        return {false,
                u"数据文件夹里没有用户“%1”。\n可以用的用户：%2"_s.arg(name, known.join(u"、"_s))};
    }
    session.Site().Catalogue().SetSetting(LastUserSetting(), name);
    return {};
}

} // namespace

QString DataFolderOf(const CommandLine& line) {
    if (!line.dataFolder.isEmpty()) {
        return QDir(line.dataFolder).absolutePath();
    }
    return IsRemembered(line) ? RememberedFolder() : OwnDataFolder();
}

bool IsRemembered(const CommandLine& line) {
    return line.dataFolder.isEmpty() && !RememberedFolder().isEmpty();
}

QString LostFolderText(const QString& folder) {
    return u"上次使用的数据文件夹 %1 里没有站点了，可能它已被移动或改名，或者所在的磁盘没有接上。"_s
        .arg(QDir::toNativeSeparators(folder));
}

std::vector<qint32> AllRights() {
    std::vector<qint32> rights;
    for (const auto& [right, word] : RightNames()) {
        rights.push_back(right);
    }
    return rights;
}

StartResult OpenSite(HostSession& session, const CommandLine& line) {
    const QString folder = DataFolderOf(line);
    if (IsRemembered(line) && site::FreshPlace(folder).IsFree()) {
        return {false, LostFolderText(folder) + u"请用 --data 写明数据文件夹。"_s};
    }
    if (const auto fault = session.Open(folder)) {
        return {false, fault->text};
    }
    try {
        if (line.sample == sample::SampleSize::None || !session.Site().NewIntake()->IsEmpty()) {
            return {};
        }
        return MakeSample(session, line);
    } catch (const site::DataError& error) {
        return {false, error.Text()};
    }
}

StartResult SignInUser(HostSession& session, const CommandLine& line) {
    try {
        return SignInOne(session, line);
    } catch (const site::DataError& error) {
        return {false, error.Text()};
    }
}

} // namespace host
