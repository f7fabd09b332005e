#include "sample/site/PlanFiling.h"

#include "sample/VoiceNote.h"
#include "sample/site/SiteVocabulary.h"
#include "site/IComments.h"
#include "site/IIntake.h"
#include "site/IIssues.h"
#include "site/IssueCode.h"
#include "site/RectifyStates.h"

namespace sample {

using namespace Qt::StringLiterals;

namespace {

[[nodiscard]] site::FileSource VoiceOf(const PlannedVoice& voice) {
    if (voice.milliseconds == 0) {
        return {};
    }
    return {{}, MakeSpokenNote(voice.text, voice.seed, voice.milliseconds)};
}

/// Without what was done to it later.
[[nodiscard]] site::NewIssue AsRaised(const site::NewIssue& planned) {
    site::NewIssue raised = planned;
    raised.updater.clear();
    raised.updateTime = 0;
    raised.rectifyText.clear();
    if (!planned.rectifier.isEmpty()) {
        raised.state = site::kStateOpen;
    }
    if (planned.updateTime > 0) {
        raised.description = planned.theme; // as somebody writes it down in passing
    }
    return raised;
}

} // namespace

std::vector<PictureOrder> OrdersOf(const SitePlan& plan) {
    std::vector<PictureOrder> orders;
    for (const PlannedPhoto& photo : plan.photos) {
        orders.push_back(photo.picture);
    }
    for (const PlannedPdfPhoto& photo : plan.pdfPhotos) {
        orders.push_back(photo.picture);
    }
    for (const PlannedIssue& issue : plan.issues) {
        for (const PlannedIssuePic& pic : issue.pics) {
            orders.push_back(pic.picture);
        }
    }
    return orders;
}

PlanFiling::PlanFiling(site::ISite& target, const SitePlan& sitePlan,
                       std::function<QString(size_t)> pictureAt, std::function<void()> step)
    : m_site(target), m_intake(target.NewIntake()), m_plan(sitePlan),
      m_pathOf(std::move(pictureAt)), m_onStep(std::move(step)) {}

int PlanFiling::Steps(const SitePlan& plan) {
    return static_cast<int>(plan.photos.size() + plan.drawings.size() + plan.pdfPhotos.size() +
                            plan.issues.size());
}

void PlanFiling::Run() {
    m_intake->BeginBatch();
    FileTables();
    FilePhotos();
    FileDrawings();
    FileIssues();
    m_intake->CommitBatch();
}

site::FileSource PlanFiling::NextPicture() {
    return {m_pathOf(m_nextPicture++), {}};
}

std::vector<qint32> PlanFiling::LabelIds(const std::vector<qint32>& numbers) const {
    std::vector<qint32> ids;
    for (const qint32 number : numbers) {
        ids.push_back(m_labels[static_cast<size_t>(number)]);
    }
    return ids;
}

void PlanFiling::FileTables() {
    for (const SampleProject& project : SampleProjects()) {
        m_projects.push_back(m_intake->AddProject(project.name, project.major));
    }
    m_intake->AddWorkset(SampleWorkset(), m_projects);
    for (const SamplePerson& person : SamplePeople()) {
        m_intake->AddUser(person.name, person.rights);
    }
    for (const SampleMark& mark : SampleMarks()) {
        m_intake->AddMark(mark.id, mark.name, mark.color);
    }
    for (const QString& label : SampleLabels()) {
        m_labels.push_back(m_intake->AddLabel(label));
    }
    for (site::NewPosition position : m_plan.positions) {
        position.ppid = m_projects[static_cast<size_t>(position.ppid)];
        m_intake->AddPosition(position);
    }
    for (site::Component component : m_plan.components) {
        component.ppid = m_projects[static_cast<size_t>(component.ppid)];
        m_intake->AddComponent(component);
    }
}

void PlanFiling::FilePhotos() {
    for (const PlannedPhoto& photo : m_plan.photos) {
        site::NewBimPhoto record = photo.record;
        record.ppid = m_projects[static_cast<size_t>(record.ppid)];
        record.labelIds = LabelIds(record.labelIds);
        m_intake->FilePhoto(record, NextPicture(), VoiceOf(photo.voice));
        m_onStep();
    }
}

void PlanFiling::FileDrawings() {
    std::vector<qint32> drawings;
    for (const PlannedDrawing& drawing : m_plan.drawings) {
        drawings.push_back(m_intake->AddDrawing(m_projects[static_cast<size_t>(drawing.project)],
                                                drawing.name, {{}, MakeDrawing(drawing.sheet)}, 1));
        m_onStep();
    }
    std::vector<qint32> checkpointPpids;
    for (const PlannedCheckpoint& checkpoint : m_plan.checkpoints) {
        site::NewCheckpoint record = checkpoint.record;
        const size_t drawing = static_cast<size_t>(record.drawingId);
        const qint32 ppid = m_projects[static_cast<size_t>(m_plan.drawings[drawing].project)];
        record.drawingId = drawings[drawing];
        checkpointPpids.push_back(ppid);
        record.labelIds = LabelIds(record.labelIds);
        m_checkpoints.push_back(m_intake->AddCheckpoint(ppid, record));
        if (checkpoint.voice.milliseconds > 0) {
            m_intake->SetCheckpointVoice(ppid, m_checkpoints.back(), VoiceOf(checkpoint.voice));
        }
        for (const PlannedComment& comment : checkpoint.comments) {
            static_cast<void>(m_site.Comments().Add({ppid}, m_checkpoints.back(), comment.text,
                                                    {comment.person, comment.at}));
        }
    }
    for (const PlannedPdfPhoto& photo : m_plan.pdfPhotos) {
        site::NewPdfPhoto record = photo.record;
        const size_t checkpoint = static_cast<size_t>(record.checkpointId);
        record.checkpointId = m_checkpoints[checkpoint];
        m_intake->FilePdfPhoto(checkpointPpids[checkpoint], record, NextPicture());
        m_onStep();
    }
}

void PlanFiling::FileIssues() {
    for (const PlannedIssue& issue : m_plan.issues) {
        site::NewIssue record = issue.record;
        record.ppid = m_projects[static_cast<size_t>(record.ppid)];
        const QString questionId = m_intake->FileIssue(AsRaised(record), VoiceOf(issue.voice),
                                                       VoiceOf(issue.rectifyVoice));
        bool isRectified = false;
        for (const PlannedIssuePic& pic : issue.pics) {
            if (pic.record.rectification && !isRectified) {
                Rectify(issue, record.ppid, questionId);
                isRectified = true;
            }
            site::NewIssuePic picture = pic.record;
            picture.questionId = questionId;
            m_intake->FileIssuePic(record.ppid, picture, NextPicture());
        }
        if (!isRectified) {
            Rectify(issue, record.ppid, questionId);
        }
        Finish(issue, record.ppid, questionId);
        m_onStep();
    }
}

void PlanFiling::Rectify(const PlannedIssue& issue, qint32 ppid, const QString& questionId) {
    const site::NewIssue& record = issue.record;
    if (!record.rectifier.isEmpty()) {
        const qint64 between = (record.createTime + record.updateTime) / 2;
        static_cast<void>(m_site.Issues().SaveRectification(
            {ppid}, {questionId, record.rectifyText, record.state, {}, 0, {}},
            {record.rectifier, between}));
    }
}

void PlanFiling::Finish(const PlannedIssue& issue, qint32 ppid, const QString& questionId) {
    const site::NewIssue& record = issue.record;
    if (record.updateTime == 0) {
        return;
    }
    KX_DATA::IssueUpdate update;
    update.questionId = questionId;
    update.questionName = record.theme;
    update.description = record.description;
    update.markId = record.markId;
    update.status = record.status;
    if (!issue.code.isEmpty()) {
        update.qrCode = site::IssueCode(ppid, issue.code);
    }
    static_cast<void>(m_site.Issues().Update(ppid, update, {record.updater, record.updateTime}));
}

} // namespace sample
