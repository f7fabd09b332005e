#include "host/app/ProjectChoices.h"

#include "host/session/HostSession.h"
#include "site/ICatalogue.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Every person has a choice of their own.
QString ChoiceSetting(const HostSession& session) {
    return u"lastProject:"_s + session.UserName();
}

QString ChoiceText(const ProjectChoice& choice) {
    return choice.worksetId != 0 ? u"w%1"_s.arg(choice.worksetId) : u"p%1"_s.arg(choice.ppid);
}

} // namespace

std::vector<ProjectChoice> ReadProjectChoices(HostSession& session) {
    std::vector<ProjectChoice> choices;
    for (const site::ProjectEntry& project : session.Site().Catalogue().Projects()) {
        if (!project.archived) {
            choices.push_back({project.name, project.ppid, 0});
        }
    }
    for (const site::WorksetEntry& workset : session.Site().Catalogue().Worksets()) {
        if (!workset.archived) {
            choices.push_back({u"工作集：%1"_s.arg(workset.name), 0, workset.id});
        }
    }
    return choices;
}

int OpenChoice(const HostSession& session, const std::vector<ProjectChoice>& choices) {
    const qint32 worksetId = session.CurrentWorkset().id;
    const qint32 ppid = worksetId != 0 ? 0 : session.CurrentProject().ppid;
    const auto found =
        std::find_if(choices.begin(), choices.end(), [&](const ProjectChoice& choice) {
            return choice.ppid == ppid && choice.worksetId == worksetId;
        });
    return found == choices.end() ? -1 : int(found - choices.begin());
}

bool TakeChoice(HostSession& session, const ProjectChoice& choice) {
    const bool isOpen = choice.worksetId != 0 ? session.OpenWorkset(choice.worksetId)
                                              : session.OpenProject(choice.ppid);
    if (isOpen) {
        session.Site().Catalogue().SetSetting(ChoiceSetting(session), ChoiceText(choice));
    }
    return isOpen;
}

int RememberedChoice(HostSession& session, const std::vector<ProjectChoice>& choices) {
    const QString remembered = session.Site().Catalogue().Setting(ChoiceSetting(session));
    for (int at = 0; at < int(choices.size()); ++at) {
        if (ChoiceText(choices[at]) == remembered) {
            return at;
        }
    }
    return choices.empty() ? -1 : 0;
}

} // namespace host
