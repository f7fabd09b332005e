#include "sample/drawings/SheetGrid.h"
#include "sample/site/PlanParts.h"
#include "sample/site/SiteVocabulary.h"

#include <QDateTime>

#include <algorithm>
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
    SheetTrade trade;
};
constexpr std::array kSheets{SheetName{0, u"首层建筑平面图", u"建施-03", SheetTrade::Building},
                             SheetName{0, u"地下一层结构平面图", u"结施-11", SheetTrade::Structure},
                             SheetName{0, u"标准层给排水平面图", u"水施-07", SheetTrade::Plumbing},
                             SheetName{1, u"二层电气平面图", u"电施-05", SheetTrade::Electrical},
                             SheetName{0, u"十二层建筑平面图", u"建施-14", SheetTrade::Building},
                             SheetName{1, u"首层建筑平面图", u"建施-02", SheetTrade::Building}};

/// In a bay of its own, each checkpoint of a drawing; fewer checkpoints than bays.
QPoint PlaceOf(const DrawingOrder& sheet, int number, Dice& dice) {
    const SheetGrid grid(sheet.columns, sheet.rows);
    const int across = sheet.columns - 1;
    // Steps that no number of bays divides by lead through all of them.
    const int bay = number * 7 % (across * (sheet.rows - 1));
    const double dx = 0.2 + 0.6 * static_cast<double>(dice.Unit());
    const double dy = 0.2 + 0.6 * static_cast<double>(dice.Unit());
    const int row = bay / across;
    return SheetGrid::Thousandths(grid.At(bay % across + dx, row + dy));
}

/// The first checkpoint of a drawing is talked about, and some of the others.
std::vector<PlannedComment> PlanComments(int number, qint64 from, qint64 now, Dice& dice) {
    static constexpr std::array kTalk{u"请尽快整改，整改完成后上传照片。",
                                      u"收到，今天安排人处理。",
                                      u"现场看过了，位置比图上偏北约半米。",
                                      u"已处理，请复查。",
                                      u"复查通过 👍",
                                      u"还有一处没有处理：\n1. 灰缝不饱满\n2. 表面不平整"};
    std::vector<PlannedComment> comments;
    const int count = number == 1 ? 3 + dice.Pick(4) : dice.Pick(2);
    qint64 at = from;
    for (int index = 0; index < count; ++index) {
        PlannedComment comment;
        const int person = dice.Pick(static_cast<int>(SamplePeople().size()));
        comment.person = SamplePeople()[static_cast<size_t>(person)].name;
        comment.text = comment.person + u"："_s +
                       QString::fromUtf16(kTalk[static_cast<size_t>(index) % kTalk.size()]);
        at = std::min(at + 600 + dice.Pick(50'000), now);
        comment.at = at;
        comments.push_back(comment);
    }
    return comments;
}

void PlanCheckpoints(SitePlan& plan, int drawing, int count, qint64 now, Dice& dice) {
    const DrawingOrder& sheet = plan.drawings[static_cast<size_t>(drawing)].sheet;
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
        const QPoint place = PlaceOf(sheet, number, dice);
        record.x = place.x();
        record.y = place.y();
        record.updateTime = PlanTimes(now, dice).made;
        for (int wanted = dice.Pick(3); wanted > 0; --wanted) {
            record.labelIds.push_back(dice.Pick(static_cast<int>(SampleLabels().size())));
        }
        checkpoint.voice = PlanVoice(0.2F, dice);
        checkpoint.voice.text = record.description;
        checkpoint.comments = PlanComments(number, record.updateTime, now, dice);
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
    // Half of them on the first checkpoint of a drawing: some have many, and some few.
    const auto drawings = static_cast<int>(plan.drawings.size());
    record.checkpointId =
        index % 2 == 0 ? index / 2 % checkpoints : index / 2 % drawings * (checkpoints / drawings);
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
        // Of seeds close to each other the sequences are the same ones, a few rolls later.
        const quint64 seed = kDrawingSeed + 1000 * index;
        Dice dice(seed);
        PlannedDrawing drawing;
        drawing.project = kSheets[index].project;
        drawing.name = QString::fromUtf16(kSheets[index].title);
        drawing.sheet = {seed,
                         SampleProjects()[static_cast<size_t>(drawing.project)].name,
                         drawing.name,
                         QString::fromUtf16(kSheets[index].number),
                         u"2023-05-18"_s,
                         kSheets[index].trade,
                         SampleProjects()[static_cast<size_t>(drawing.project)].columns,
                         SampleProjects()[static_cast<size_t>(drawing.project)].rows};
        plan.drawings.push_back(drawing);
        PlanCheckpoints(plan, static_cast<int>(index), scale.checkpointsOfADrawing, now, dice);
    }
    for (int index = 0; index < scale.pdfPhotos; ++index) {
        plan.pdfPhotos.push_back(PlanPdfPhoto(plan, index, scale.photoSize, now));
    }
}

} // namespace sample
