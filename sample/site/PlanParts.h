// What the parts of the plan share: people, times, captions.
#pragma once

#include "sample/Dice.h"
#include "sample/SampleSize.h"
#include "sample/site/SitePlan.h"

#include <QString>

namespace sample {

/// How many of everything, and how big the pictures are.
struct PlanScale {
    int photos = 0;
    int bigPhotos = 0; ///< of them with 12 megapixels
    int pdfPhotos = 0;
    int checkpointsOfADrawing = 0;
    int issues = 0;
    QSize photoSize;
    QSize issuePicSize;
};
[[nodiscard]] PlanScale ScaleOf(SampleSize size);

/// When something was made and by whom it was changed; updater empty: by nobody.
struct PlannedTimes {
    QString author;
    qint64 made = 0;
    QString updater;
    qint64 changed = 0;
};
[[nodiscard]] PlannedTimes PlanTimes(qint64 now, Dice& dice);

/// A rectification state, most of them open or done.
[[nodiscard]] qint32 PlanState(Dice& dice);
[[nodiscard]] PlannedVoice PlanVoice(float chance, Dice& dice);

/// What a caption tells.
struct CaptionFacts {
    QString project;
    QString place; ///< empty: left out
    QString finding;
    QString author;
    qint64 time = 0;
};
/// A picture of the scene, upright or not, with a caption.
[[nodiscard]] PictureOrder PlanPicture(SceneKind kind, QSize size, const CaptionFacts& facts,
                                       Dice& dice);

/// A name as phones, messengers and people give it; `index` chooses which.
[[nodiscard]] QString PhotoFileName(int index, const QString& finding, qint64 time,
                                    const QString& extension);
[[nodiscard]] bool IsBelowGround(SceneKind kind);

/// Columns, beams, slabs and walls at every intersection, and one component on no floor.
void PlanComponents(SitePlan& plan);
/// One of those at an intersection that has some.
[[nodiscard]] const site::Component& ComponentAt(const SitePlan& plan, const QString& positionKey,
                                                 int number);

/// The three parts of the plan that hold pictures. Each begins its own random sequence.
void PlanPhotos(SitePlan& plan, const PlanScale& scale, qint64 now);
void PlanDrawings(SitePlan& plan, const PlanScale& scale, qint64 now);
void PlanIssues(SitePlan& plan, const PlanScale& scale, qint64 now);

} // namespace sample
