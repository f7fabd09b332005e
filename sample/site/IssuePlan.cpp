#include "sample/site/PlanParts.h"
#include "sample/site/SiteVocabulary.h"
#include "site/RectifyStates.h"

#include <QUuid>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 kIssueSeed = 90'000;
constexpr int kMostAtOnePlace = 12; ///< whatever number of components there are: 3 or 4

void PlanPics(PlannedIssue& issue, SceneKind kind, QSize size, const QString& project, Dice& dice) {
    const site::NewIssue& record = issue.record;
    const auto add = [&](bool rectification, const QString& author, qint64 time) {
        PlannedIssuePic pic;
        pic.record.rectification = rectification;
        pic.record.fileName =
            u"%1_%2.jpg"_s.arg(rectification ? u"整改后"_s : u"问题"_s).arg(issue.pics.size() + 1);
        pic.record.uploader = author;
        pic.record.uploadTime = time;
        pic.picture = PlanPicture(kind, size,
                                  {project, u"%1层 %2"_s.arg(record.floor, record.posInfo),
                                   rectification ? u"整改复查"_s : record.theme, author, time},
                                  dice);
        issue.pics.push_back(std::move(pic));
    };
    for (int wanted = 1 + (dice.Chance(0.3F) ? 1 : 0); wanted > 0; --wanted) {
        add(false, record.creator, record.createTime);
    }
    if (record.state == site::kStateDone && !record.rectifier.isEmpty()) {
        add(true, record.rectifier, record.updateTime);
    }
}

[[nodiscard]] PlannedIssue PlanIssue(const SitePlan& plan, int index, QSize size, qint64 now) {
    Dice dice(kIssueSeed + static_cast<quint64>(index));
    const SceneKind kind = kAllSceneKinds[static_cast<size_t>(index) % kAllSceneKinds.size()];
    PlannedIssue issue;
    site::NewIssue& record = issue.record;
    record.ppid = index % 4 == 3 ? 1 : 0;
    const SampleProject& project = SampleProjects()[static_cast<size_t>(record.ppid)];
    const std::vector<QString> floors = FloorsOf(record.ppid);
    record.floor = floors[static_cast<size_t>(dice.Pick(static_cast<int>(floors.size())))];
    const QString axisX = QString::number(1 + dice.Pick(project.columns));
    const QString axisY(QChar(u'A' + dice.Pick(project.rows)));
    record.posInfo = u"%1-%2轴"_s.arg(axisX, axisY);
    record.theme = Finding(kind, dice);
    record.description = index % 13 == 6 ? QString() : Elaborate(record.theme, dice);
    const site::Component& component =
        ComponentAt(plan, SamplePositionKey(record.ppid, record.floor, axisX, axisY),
                    dice.Pick(kMostAtOnePlace));
    record.componentName = component.name;
    record.componentSubName = component.subName;
    record.componentHandle = component.handle;
    record.markId =
        index % 29 == 8 ? kUnknownMark : 1 + dice.Pick(static_cast<int>(SampleMarks().size()));
    record.state = PlanState(dice);
    record.status = index % 12 == 7 ? 1 : 0;
    const PlannedTimes times = PlanTimes(now, dice);
    record.creator = times.author;
    record.createTime = times.made;
    record.updater = times.updater;
    record.updateTime = times.changed;
    if (record.state == site::kStateInProgress || record.state == site::kStateDone) {
        record.rectifyText = Remedy(dice);
        record.rectifier = SamplePeople()[static_cast<size_t>(dice.Pick(3))].name;
        if (record.updateTime == 0) {
            record.updater = record.rectifier;
            record.updateTime =
                std::min(record.createTime + 3600LL * (1 + dice.Pick(200)), now - 1);
        }
    }
    issue.voice = PlanVoice(0.15F, dice);
    issue.voice.text = record.description.isEmpty() ? record.theme : record.description;
    PlanPics(issue, kind, size, project.name, dice);
    if (!record.rectifier.isEmpty()) {
        issue.rectifyVoice = PlanVoice(index % 2 == 1 ? 1.0F : 0.0F, dice);
        issue.rectifyVoice.text = record.rectifyText;
    }
    if (dice.Chance(0.5F)) {
        issue.code =
            QUuid::createUuidV5(QUuid(), u"issue %1"_s.arg(index)).toString(QUuid::WithoutBraces);
    }
    return issue;
}

} // namespace

void PlanIssues(SitePlan& plan, const PlanScale& scale, qint64 now) {
    for (int index = 0; index < scale.issues; ++index) {
        plan.issues.push_back(PlanIssue(plan, index, scale.issuePicSize, now));
    }
}

} // namespace sample
