#include "sample/site/PlanFiling.h"

#include "sample/VoiceNote.h"
#include "sample/site/SiteVocabulary.h"
#include "site/IIntake.h"

namespace sample {

namespace {

[[nodiscard]] site::FileSource VoiceOf(const PlannedVoice& voice) {
    if (voice.milliseconds == 0) {
        return {};
    }
    return {{}, MakeSpokenNote(voice.text, voice.seed, voice.milliseconds)};
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
    : intake(target.NewIntake()), plan(sitePlan), pathOf(std::move(pictureAt)),
      onStep(std::move(step)) {}

int PlanFiling::Steps(const SitePlan& plan) {
    return static_cast<int>(plan.photos.size() + plan.drawings.size() + plan.pdfPhotos.size() +
                            plan.issues.size());
}

void PlanFiling::Run() {
    intake->BeginBatch();
    FileTables();
    FilePhotos();
    FileDrawings();
    FileIssues();
    intake->CommitBatch();
}

site::FileSource PlanFiling::NextPicture() {
    return {pathOf(nextPicture++), {}};
}

std::vector<qint32> PlanFiling::LabelIds(const std::vector<qint32>& numbers) const {
    std::vector<qint32> ids;
    for (const qint32 number : numbers) {
        ids.push_back(labels[static_cast<size_t>(number)]);
    }
    return ids;
}

void PlanFiling::FileTables() {
    for (const SampleProject& project : SampleProjects()) {
        projects.push_back(intake->AddProject(project.name, project.major));
    }
    intake->AddWorkset(SampleWorkset(), projects);
    for (const SamplePerson& person : SamplePeople()) {
        intake->AddUser(person.name, person.rights);
    }
    for (const SampleMark& mark : SampleMarks()) {
        intake->AddMark(mark.id, mark.name, mark.color);
    }
    for (const QString& label : SampleLabels()) {
        labels.push_back(intake->AddLabel(label));
    }
    for (site::NewPosition position : plan.positions) {
        position.ppid = projects[static_cast<size_t>(position.ppid)];
        intake->AddPosition(position);
    }
}

void PlanFiling::FilePhotos() {
    for (const PlannedPhoto& photo : plan.photos) {
        site::NewBimPhoto record = photo.record;
        record.ppid = projects[static_cast<size_t>(record.ppid)];
        record.labelIds = LabelIds(record.labelIds);
        intake->FilePhoto(record, NextPicture(), VoiceOf(photo.voice));
        onStep();
    }
}

void PlanFiling::FileDrawings() {
    std::vector<qint32> drawings;
    for (const PlannedDrawing& drawing : plan.drawings) {
        drawings.push_back(intake->AddDrawing(projects[static_cast<size_t>(drawing.project)],
                                              drawing.name, {{}, MakeDrawing(drawing.sheet)}));
        onStep();
    }
    for (const PlannedCheckpoint& checkpoint : plan.checkpoints) {
        site::NewCheckpoint record = checkpoint.record;
        record.drawingId = drawings[static_cast<size_t>(record.drawingId)];
        record.labelIds = LabelIds(record.labelIds);
        checkpoints.push_back(intake->AddCheckpoint(record));
        if (checkpoint.voice.milliseconds > 0) {
            intake->SetCheckpointVoice(checkpoints.back(), VoiceOf(checkpoint.voice));
        }
    }
    for (const PlannedPdfPhoto& photo : plan.pdfPhotos) {
        site::NewPdfPhoto record = photo.record;
        record.checkpointId = checkpoints[static_cast<size_t>(record.checkpointId)];
        intake->FilePdfPhoto(record, NextPicture());
        onStep();
    }
}

void PlanFiling::FileIssues() {
    for (const PlannedIssue& issue : plan.issues) {
        site::NewIssue record = issue.record;
        record.ppid = projects[static_cast<size_t>(record.ppid)];
        const QString questionId = intake->FileIssue(record, VoiceOf(issue.voice));
        for (const PlannedIssuePic& pic : issue.pics) {
            site::NewIssuePic picture = pic.record;
            picture.questionId = questionId;
            intake->FileIssuePic(picture, NextPicture());
        }
        onStep();
    }
}

} // namespace sample
