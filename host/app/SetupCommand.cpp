#include "host/app/SetupCommand.h"

#include "host/drawings/DrawingExamination.h"
#include "host/setup/SetupFile.h"
#include "host/setup/SetupPlan.h"
#include "host/setup/SetupText.h"
#include "sheets/SheetFault.h"
#include "sheets/TargetFile.h"
#include "site/DataError.h"
#include "site/ICatalogue.h"
#include "site/IDrawings.h"
#include "site/IIntake.h"
#include "site/ISetup.h"
#include "site/OpenSite.h"
#include "site/SetupRules.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSetupDone = 0;
constexpr int kSetupNotAll = 1;
constexpr int kSetupWrongWords = 2;

/// Stands in the log of actions where a person would: nobody may set up the site yet.
const QString kSetupBy = u"（命令行）"_s;

site::SetupState WholeState(site::ISite& site) {
    site::Projects ppids;
    for (const site::SetupProject& project : site.Setup().Read({}).projects) {
        ppids.push_back(project.ppid);
    }
    return site.Setup().Read(ppids);
}

KnownDrawings DrawingsOf(site::ISite& site, const site::SetupState& state) {
    KnownDrawings known;
    for (const site::SetupProject& project : state.projects) {
        for (const site::DrawingEntry& drawing : site.Drawings().List(project.ppid)) {
            known[project.name].insert(drawing.name);
        }
    }
    return known;
}

/// Why this person can't change a site; empty: nothing is against it. A site in which nobody has
/// the right yet gets its people from the file.
QString LackOfPerson(const site::SetupState& state, const QString& user) {
    QStringList able;
    for (const site::SetupPerson& person : state.people) {
        if (site::MaySetUp(person)) {
            able << person.name;
        }
    }
    if (able.isEmpty() || able.contains(user)) {
        return {};
    }
    const QString who = able.join(u'、');
    return user.isEmpty() ? u"请用 --user 写明由谁修改。能修改设置的人：%1。"_s.arg(who)
                          : u"“%1”没有设置的权限。能修改设置的人：%2。"_s.arg(user, who);
}

bool IsUnused(const QString& folder) {
    return !QFileInfo::exists(folder) || (QFileInfo(folder).isDir() && QDir(folder).isEmpty());
}

/// Takes one setup file to one folder after the other.
class SetupRun final {
public:
    SetupRun(const SetupRequest& request, const DrawingReader::Terms& terms, QTextStream& out,
             QTextStream& err)
        : m_request(request), m_terms(terms), m_out(out), m_err(err),
          m_tables(ReadSetupFile(request.file)) {}

    int Run() {
        QStringList failed;
        for (const QString& folder : m_request.dataFolders) {
            if (m_request.dataFolders.size() > 1) {
                m_out << u"数据文件夹 %1：\n"_s.arg(folder);
                m_out.flush();
            }
            if (!RunOne(folder)) {
                failed << folder;
            }
            m_err.flush();
            m_out.flush();
        }
        if (!failed.isEmpty()) {
            m_err << u"没有修改：%1\n"_s.arg(failed.join(u'、'));
            m_err.flush();
        }
        return failed.isEmpty() ? kSetupDone : kSetupNotAll;
    }

private:
    bool RunOne(const QString& folder) {
        try {
            // What can't be taken, and a check, leave no site behind.
            if (IsUnused(folder)) {
                const SetupPlan plan = PlanSetup(m_tables, {});
                if (TellFaults(plan)) {
                    return false;
                }
                if (m_request.isCheck) {
                    TellDone(plan);
                    return true;
                }
            }
            const site::OpenedSite opened = site::OpenSite(folder);
            if (opened.fault) {
                m_err << opened.fault->text << u'\n';
                return false;
            }
            return ChangeSite(*opened.site);
        } catch (const site::DataError& error) {
            m_err << error.Text() << u'\n';
            return false;
        }
    }
    /// Somebody else may change the same meanwhile: then all of it is looked at again.
    bool ChangeSite(site::ISite& site) {
        constexpr int kTries = 5;
        site::SetupOutcome outcome;
        for (int i = 0; i < kTries; ++i) {
            const site::SetupState seen = WholeState(site);
            const SetupPlan plan = PlanSetup(m_tables, seen, DrawingsOf(site, seen));
            if (TellFaults(plan)) {
                return false;
            }
            const bool isRead = m_request.isCheck || plan.changes.empty();
            const QString lack = isRead ? QString() : LackOfPerson(seen, m_request.user);
            if (!lack.isEmpty()) {
                m_err << lack << u'\n';
                return false;
            }
            outcome = isRead ? site::SetupOutcome() : Take(site, seen, plan);
            if (outcome.IsDone()) {
                TellDone(plan);
                return true;
            }
            if (!outcome.changedMeanwhile) {
                break;
            }
        }
        for (const QString& refusal : outcome.refusals) {
            m_err << refusal << u'\n';
        }
        if (outcome.changedMeanwhile) {
            m_err << u"“%1”一直在被别人修改，请稍后再试。\n"_s.arg(
                NameOf(*outcome.changedMeanwhile));
        }
        return false;
    }
    /// Setup and drawings in one batch, which is undone where it isn't committed.
    site::SetupOutcome Take(site::ISite& site, const site::SetupState& seen,
                            const SetupPlan& plan) {
        const auto intake = site.NewIntake();
        const qint64 now = site.Now();
        const QString& by = m_request.user.isEmpty() ? kSetupBy : m_request.user;
        intake->BeginBatch();
        site::SetupOutcome outcome = site.Setup().Apply(seen, plan.wanted, {by, now});
        if (!outcome.IsDone()) {
            return outcome;
        }
        for (const WantedDrawing& drawing : plan.drawings) {
            const QString path = PathOf(drawing);
            intake->AddDrawing(intake->FindProject(drawing.project), drawing.name, {path, {}},
                               int(m_verdicts[path].pages.size()));
        }
        site.Catalogue().LogAction(
            {now, by, 0, u"按设置文件“%1”修改设置"_s.arg(QFileInfo(m_request.file).fileName())});
        intake->CommitBatch();
        return outcome;
    }

    /// As the table has it, from the setup file's folder on.
    [[nodiscard]] QString PathOf(const WantedDrawing& drawing) const {
        const QDir folder = QFileInfo(m_request.file).absoluteDir();
        return QDir::cleanPath(folder.absoluteFilePath(drawing.file));
    }
    /// All faults of a plan, those of drawings too. False: there are none.
    bool TellFaults(const SetupPlan& plan) {
        std::vector<SetupLineFault> faults = plan.faults;
        for (const WantedDrawing& drawing : plan.drawings) {
            const QString path = PathOf(drawing);
            if (!m_verdicts.contains(path)) {
                m_verdicts.insert(path, ExamineDrawing(path, m_terms));
            }
            if (const DrawingFault fault = m_verdicts[path].fault; fault != DrawingFault::None) {
                faults.push_back({FormOf(SetupTable::Drawing).name, drawing.line,
                                  u"“%1”：%2"_s.arg(drawing.file, DrawingFaultText(fault))});
            }
        }
        for (const SetupLineFault& fault : faults) {
            m_err << TextOf(fault) << u'\n';
        }
        return !faults.empty();
    }
    void TellDone(const SetupPlan& plan) {
        for (const SetupChange& change : plan.changes) {
            m_out << TextOf(change) << u'\n';
        }
        if (plan.changes.empty()) {
            m_out << u"已经是这样，没有要修改的内容。\n"_s;
        } else {
            m_out << (m_request.isCheck ? u"检查通过，共 %1 处；没有写入。\n"_s
                                        : u"已修改 %1 处。\n"_s)
                         .arg(plan.changes.size());
        }
    }

    const SetupRequest& m_request;
    const DrawingReader::Terms& m_terms;
    QTextStream& m_out;
    QTextStream& m_err;
    const SetupTables m_tables;
    QHash<QString, DrawingVerdict> m_verdicts; ///< by path
};

int WriteSetup(const SetupRequest& request, QTextStream& out, QTextStream& err) {
    if (QFileInfo(request.file).suffix().startsWith(u"xls"_s, Qt::CaseInsensitive)) {
        err << u"设置写成文本，不写成工作簿：请把 %1 改为 .txt 结尾的文件名。\n"_s.arg(
            request.file);
        return kSetupWrongWords;
    }
    try {
        const QString& folder = request.dataFolders.front();
        site::SetupState state;
        if (!IsUnused(folder)) {
            const site::OpenedSite opened = site::OpenSite(folder);
            if (opened.fault) {
                err << opened.fault->text << u'\n';
                return kSetupNotAll;
            }
            state = WholeState(*opened.site);
        }
        sheets::TargetFile file(request.file);
        file.Open();
        file.Write(SetupTextOf(state));
        file.Commit();
        out << u"已写入设置文件 %1\n"_s.arg(request.file);
        return kSetupDone;
    } catch (const sheets::SheetFault& fault) {
        err << fault.Text() << u'\n';
    } catch (const site::DataError& error) {
        err << error.Text() << u'\n';
    }
    return kSetupNotAll;
}

} // namespace

int RunSetupCommand(const SetupRequest& request, const DrawingReader::Terms& terms,
                    QTextStream& out, QTextStream& err) {
    int code = kSetupWrongWords;
    if (request.isWritten) {
        code = WriteSetup(request, out, err);
    } else if (!QFileInfo(request.file).isFile()) {
        err << u"没有这个设置文件：%1\n"_s.arg(request.file);
    } else {
        code = SetupRun(request, terms, out, err).Run();
    }
    out.flush();
    err.flush();
    return code;
}

} // namespace host
