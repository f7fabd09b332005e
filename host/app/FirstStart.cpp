#include "host/app/FirstStart.h"

#include "host/app/FolderMemory.h"
#include "host/app/Platform.h"
#include "host/app/SampleMaking.h"
#include "host/session/HostSession.h"
#include "host/ui/FirstStartPage.h"
#include "site/FreshPlace.h"
#include "site/ICatalogue.h"
#include "site/IIntake.h"
#include "site/SetupRules.h"

#include <QDir>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

bool MayAsk(const CommandLine& line) {
    return !line.sample && (line.isWatched || !IsHeadless());
}

/// No project and nobody in it: what an opening makes of an empty folder.
bool IsUnused(const HostSession& session) {
    return session.Site().NewIntake()->IsEmpty() && session.Site().Catalogue().People().empty();
}

/// As the setup would refuse it.
QString LackOfNewSite(const QString& project, const QString& person) {
    site::SetupState state;
    state.projects = {{0, site::TidyName(project)}};
    state.people = {{0, site::TidyName(person), AllRights(), true}};
    const std::vector<site::SetupFault> faults = site::FaultsOf(state);
    return faults.empty() ? QString() : faults.front().text;
}

/// Where a sample or a new site may go: the named folder, the user's own, or one beside it.
QString PlaceForNew(const CommandLine& line) {
    if (!line.dataFolder.isEmpty()) {
        return DataFolderOf(line);
    }
    const QString own = OwnDataFolder();
    QString place = own;
    for (int number = 2; !site::FreshPlace(place).IsFree(); ++number) {
        place = own + u'-' + QString::number(number);
    }
    return place;
}

/// What is in the folder with which the client would begin.
struct FirstFinding {
    bool isReady = false; ///< the session has it open
    QString fault;        ///< and nobody is to be asked
    QString place;        ///< for what is made
    QString note;
};

/// Of a folder that can't be opened it depends on who named it whether there is a choice.
FirstFinding FindingOfFault(const site::OpenFault& fault, const CommandLine& line) {
    const bool mayPass = fault.fault == site::Fault::Locked;
    if (!line.dataFolder.isEmpty() || mayPass) {
        return {false, fault.text, {}, {}};
    }
    return {false, {}, PlaceForNew(line), fault.text};
}

FirstFinding LookAtFolderOf(HostSession& session, const CommandLine& line) {
    const QString folder = DataFolderOf(line);
    const bool isRemembered = IsRemembered(line);
    if (site::FreshPlace(folder).IsFree()) {
        return {false,
                {},
                isRemembered ? PlaceForNew(line) : folder,
                isRemembered ? LostFolderText(folder) : QString()};
    }
    if (const auto fault = session.Open(folder)) {
        return FindingOfFault(*fault, line);
    }
    try {
        if (!IsUnused(session)) {
            return {true, {}, folder, {}};
        }
    } catch (const site::DataError& error) {
        return {false, error.Text(), {}, {}};
    }
    session.Close();
    return {false, {}, folder, {}};
}

/// Does what was chosen; each answers with what went wrong, and then has left nothing.
class FirstWork final {
public:
    FirstWork(HostSession& session, const CommandLine& line) : m_session(session), m_line(line) {}

    QString MakeSampleIn(const QString& folder) {
        return MakeIn(folder, [this]() -> QString {
            CommandLine line = m_line;
            line.sample = sample::SampleSize::Full;
            const StartResult made = MakeSample(m_session, line);
            if (made.goOn) {
                return {};
            }
            return made.fault.isEmpty() ? u"已取消生成示例，没有留下任何东西。"_s : made.fault;
        });
    }

    QString MakeNewSite(const FirstStartPage& page) {
        return MakeIn(page.Folder(), [&]() -> QString {
            const auto intake = m_session.Site().NewIntake();
            intake->BeginBatch();
            intake->AddProject(site::TidyName(page.Project()));
            intake->AddUser(site::TidyName(page.Person()), AllRights());
            intake->CommitBatch();
            return {};
        });
    }

    QString OpenExisting(const QString& folder) {
        if (site::FreshPlace(folder).IsFree()) {
            return u"文件夹 %1 里没有站点，因此没有打开，也没有在里面建立任何东西。\n"
                   "请选择存放站点的文件夹；要在这里开始，请选“新建站点”。"_s.arg(
                       QDir::toNativeSeparators(folder));
        }
        if (const auto fault = m_session.Open(folder)) {
            return fault->text;
        }
        return KeepIf([this]() -> QString {
            return IsUnused(m_session)
                       ? u"文件夹 %1 里的站点还没有工程和人员。请选“新建站点”，并选中这个文件夹。"_s
                             .arg(QDir::toNativeSeparators(m_session.Site().Place()))
                       : QString();
        });
    }

private:
    template <typename Work> QString KeepIf(Work&& work) {
        QString fault;
        try {
            fault = std::forward<Work>(work)();
        } catch (const site::DataError& error) {
            fault = error.Text();
        }
        if (!fault.isEmpty()) {
            m_session.Close();
        }
        return fault;
    }

    /// In a folder without a site, or with one that nobody has used.
    template <typename Work> QString MakeIn(const QString& folder, Work&& work) {
        const site::FreshPlace fresh(folder);
        if (const auto fault = m_session.Open(folder)) {
            // Another client is at it: what lies there is its own.
            if (fault->fault != site::Fault::Locked) {
                fresh.TakeBack();
            }
            return fault->text;
        }
        bool isOurs = false;
        const QString fault = KeepIf([&]() -> QString {
            if (!IsUnused(m_session)) {
                return u"文件夹 %1 里已经有站点，没有改动它。请选“打开已有的数据文件夹”，或另选一个"
                       "空文件夹。"_s.arg(QDir::toNativeSeparators(m_session.Site().Place()));
            }
            const QString trouble = std::forward<Work>(work)();
            isOurs = !trouble.isEmpty() && IsUnused(m_session);
            return trouble;
        });
        if (isOurs) {
            fresh.TakeBack();
        }
        return fault;
    }

    HostSession& m_session;
    const CommandLine& m_line;
};

QString DoChosen(FirstWork& work, const FirstStartPage& page) {
    switch (page.Choice()) {
    case FirstChoice::Sample:
        return work.MakeSampleIn(page.Folder());
    case FirstChoice::NewSite:
        return work.MakeNewSite(page);
    case FirstChoice::OpenFolder:
        break;
    }
    return work.OpenExisting(page.Folder());
}

Beginning BeginningOf(const FirstStartPage& page, const CommandLine& line) {
    Beginning beginning;
    if (page.Choice() == FirstChoice::NewSite) {
        beginning.userName = site::TidyName(page.Person());
        beginning.messages << u"站点已建好。下一步：在“文件 → 设置”里录入楼层、轴线、标识和人员，"
                              "然后导入照片。"_s;
    }
    const bool isNamed =
        !line.dataFolder.isEmpty() && DataFolderOf(line) == QDir(page.Folder()).absolutePath();
    if (!isNamed && !RememberFolder(page.Folder())) {
        beginning.messages << u"没能记住数据文件夹 %1，下次启动时需要再选一次。"_s.arg(
            QDir::toNativeSeparators(page.Folder()));
    }
    return beginning;
}

} // namespace

Beginning BeginClient(HostSession& session, const CommandLine& line) {
    if (!MayAsk(line)) {
        return {OpenSite(session, line), {}, {}};
    }
    const FirstFinding found = LookAtFolderOf(session, line);
    if (found.isReady || !found.fault.isEmpty()) {
        return {{found.isReady, found.fault}, {}, {}};
    }
    FirstStartPage page({found.place, line.userName, LackOfNewSite});
    page.ShowNote(found.note);
    FirstWork work(session, line);
    while (page.exec() == QDialog::Accepted) {
        const QString fault = DoChosen(work, page);
        if (fault.isEmpty()) {
            return BeginningOf(page, line);
        }
        page.ShowNote(fault);
    }
    return {{false, {}}, {}, {}};
}

} // namespace host
