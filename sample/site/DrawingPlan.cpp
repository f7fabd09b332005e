#include "sample/site/PlanParts.h"
#include "sample/site/SiteVocabulary.h"

#include <QDateTime>

#include <array>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 kDrawingSeed = 50'000;
constexpr quint64 kPdfPhotoSeed = 60'000;

struct SheetName {
    qint32 project;
    const char16_t* title;
    const char16_t* number;
};
constexpr std::array kSheets{
    SheetName{0, u"首层建筑平面图", u"建施-03"}, SheetName{0, u"地下一层结构平面图", u"结施-11"},
    SheetName{0, u"标准层给排水平面图", u"水施-07"}, SheetName{1, u"二层电气平面图", u"电施-05"}};

void PlanCheckpoints(SitePlan& plan, int drawing, int count, qint64 now, Dice& dice) {
    for (int number = 1; number <= count; ++number) {
        PlannedCheckpoint checkpoint;
        site::NewCheckpoint& record = checkpoint.record;
        const SceneKind kind =
            kAllSceneKinds[static_cast<size_t>(dice.Pick(static_cast<int>(kAllSceneKinds.size())))];
        record.drawingId = drawing;
        record.number = number;
        record.description = Elaborate(Finding(kind, dice), dice);
        record.remark = dice.Chance(0.4F) ? u"下次例会通报"_s : QString();
        record.markId = 1 + dice.Pick(static_cast<int>(SampleMarks().size()));
        record.x = 140 + dice.Pick(660);
        record.y = 130 + dice.Pick(560);
        record.updateTime = PlanTimes(now, dice).made;
        for (int wanted = dice.Pick(3); wanted > 0; --wanted) {
            record.labelIds.push_back(dice.Pick(static_cast<int>(SampleLabels().size())));
        }
        checkpoint.voice = PlanVoice(0.2F, dice);
        checkpoint.voice.text = record.description;
        plan.checkpoints.push_back(std::move(checkpoint));
    }
}

[[nodiscard]] PlannedPdfPhoto PlanPdfPhoto(const SitePlan& plan, int index, QSize size,
                                           qint64 now) {
    Dice dice(kPdfPhotoSeed + static_cast<quint64>(index));
    const auto checkpoints = static_cast<int>(plan.checkpoints.size());
    const SceneKind kind = kAllSceneKinds[static_cast<size_t>(index + 3) % kAllSceneKinds.size()];
    const QString finding = Finding(kind, dice);
    const PlannedTimes times = PlanTimes(now, dice);
    PlannedPdfPhoto photo;
    site::NewPdfPhoto& record = photo.record;
    record.checkpointId = index % checkpoints;
    record.fileName =
        index % 3 == 0
            ? u"IMG_"_s + QDateTime::fromSecsSinceEpoch(times.made).toString(u"yyyyMMdd_HHmmss"_s) +
                  (index % 2 == 0 ? u".JPG"_s : u".jpg"_s)
            : u"%1-%2.jpg"_s.arg(finding).arg(index + 1);
    record.description = index % 11 == 5 ? QString() : Elaborate(finding, dice);
    record.state = PlanState(dice);
    record.status = index % 9 == 4 ? 1 : 0;
    record.uploader = times.author;
    record.uploadTime = times.made;
    record.updater = times.updater;
    record.updateTime = times.changed;
    const auto& checkpoint = plan.checkpoints[static_cast<size_t>(record.checkpointId)].record;
    const PlannedDrawing& drawing = plan.drawings[static_cast<size_t>(checkpoint.drawingId)];
    photo.picture = PlanPicture(kind, size,
                                {SampleProjects()[static_cast<size_t>(drawing.project)].name,
                                 u"%1 检查点%2"_s.arg(drawing.name).arg(checkpoint.number), finding,
                                 times.author, times.made},
                                dice);
    return photo;
}

} // namespace

void PlanDrawings(SitePlan& plan, const PlanScale& scale, qint64 now) {
    for (size_t index = 0; index < kSheets.size(); ++index) {
        Dice dice(kDrawingSeed + index);
        PlannedDrawing drawing;
        drawing.project = kSheets[index].project;
        drawing.name = QString::fromUtf16(kSheets[index].title);
        drawing.sheet = {kDrawingSeed + index,
                         SampleProjects()[static_cast<size_t>(drawing.project)].name, drawing.name,
                         QString::fromUtf16(kSheets[index].number), u"2023-05-18"_s};
        plan.drawings.push_back(drawing);
        PlanCheckpoints(plan, static_cast<int>(index), scale.checkpointsOfADrawing, now, dice);
    }
    for (int index = 0; index < scale.pdfPhotos; ++index) {
        plan.pdfPhotos.push_back(PlanPdfPhoto(plan, index, scale.photoSize, now));
    }
}

} // namespace sample
