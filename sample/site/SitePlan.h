// Everything that the sample site consists of, before anything is drawn or stored.
#pragma once

#include "sample/PictureArtist.h"
#include "sample/SampleSize.h"
#include "sample/drawings/DrawingSheet.h"
#include "site/IComponents.h"
#include "site/NewRecords.h"

#include <QString>

#include <vector>

namespace sample {

/// A voice note; 0 milliseconds: none.
struct PlannedVoice {
    quint64 seed = 0;
    int milliseconds = 0; ///< where nobody can speak the text
    QString text;
};

/// Numbers in place of ids, which the database gives later: projects from 0 in the order of
/// SampleProjects(), labels from 0 in that of SampleLabels(), checkpoints in the plan's own order.
struct PlannedPhoto {
    site::NewBimPhoto record; ///< ppid: number of the project; labelIds: numbers of labels
    PictureOrder picture;
    PlannedVoice voice;
};

struct PlannedPdfPhoto {
    site::NewPdfPhoto record; ///< checkpointId: number of the checkpoint
    PictureOrder picture;
};

struct PlannedComment {
    QString person;
    QString text; ///< with the name before it, as a viewer sends it
    qint64 at = 0;
};

struct PlannedCheckpoint {
    site::NewCheckpoint record; ///< drawingId: number of the drawing; labelIds: numbers of labels
    PlannedVoice voice;
    std::vector<PlannedComment> comments; ///< the oldest first
};

struct PlannedDrawing {
    qint32 project = 0;
    QString name;
    DrawingOrder sheet;
};

struct PlannedIssuePic {
    site::NewIssuePic record; ///< questionId stays empty
    PictureOrder picture;
};

struct PlannedIssue {
    site::NewIssue record;             ///< ppid: number of the project
    std::vector<PlannedIssuePic> pics; ///< those of the rectification last
    PlannedVoice voice;
    PlannedVoice rectifyVoice;
    QString code; ///< what its QR code ends with; empty: none
};

struct SitePlan {
    std::vector<site::NewPosition> positions; ///< ppid: number of the project
    std::vector<site::Component> components;  ///< likewise; those of one position in a row
    std::vector<PlannedPhoto> photos;
    std::vector<PlannedDrawing> drawings;
    std::vector<PlannedCheckpoint> checkpoints;
    std::vector<PlannedPdfPhoto> pdfPhotos;
    std::vector<PlannedIssue> issues;
};

/// Equal arguments give equal plans. Times lie within the two years before `now` (seconds since
/// 1970), a good tenth of them in its last seven days. None gives an empty plan. Thread: any.
[[nodiscard]] SitePlan MakeSitePlan(SampleSize size, qint64 now);

/// The floors of a project from the lowest up, the roof last.
[[nodiscard]] std::vector<QString> FloorsOf(qint32 project);
/// The key of an intersection of the sample projects.
[[nodiscard]] QString SamplePositionKey(qint32 project, const QString& floor, const QString& axisX,
                                        const QString& axisY);

} // namespace sample
