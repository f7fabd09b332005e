#include "sample/site/PlanParts.h"
#include "sample/site/SiteVocabulary.h"
#include "site/RectifyStates.h"

#include <QDateTime>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 kPhotoSeed = 1000;
constexpr QSize kBigPhoto(4000, 3000);

/// What is odd about a photo. Every case comes once in each run of kCaseCycle photos.
enum class OddCase {
    None,
    NoFloor,
    InvalidPosition,
    UnknownMark,
    Hidden,
    NoDescription,
    LongDescription
};
constexpr int kCaseCycle = 20;

[[nodiscard]] OddCase CaseOf(int index) {
    switch (index % kCaseCycle) {
    case 3:
    case 13:
        return OddCase::NoFloor;
    case 5:
        return OddCase::InvalidPosition;
    case 7:
        return OddCase::UnknownMark;
    case 9:
    case 17:
        return OddCase::Hidden;
    case 11:
        return OddCase::NoDescription;
    case 15:
        return OddCase::LongDescription;
    default:
        return OddCase::None;
    }
}

/// Extensions in all the ways in which they reach a site; most are plain.
[[nodiscard]] QString Extension(int index) {
    switch (index % 16) {
    case 2:
        return u".JPG"_s;
    case 6:
        return u".PNG"_s;
    case 10:
        return u".dwg"_s; // an extension that no picture has
    case 12:
        return {};
    case 14:
        return u".jpeg"_s;
    default:
        return u".jpg"_s;
    }
}

/// Where the scene can be: excavations and basements below ground, facades above.
[[nodiscard]] QString FloorFor(SceneKind kind, qint32 project, Dice& dice) {
    const std::vector<QString> floors = FloorsOf(project);
    const auto count = static_cast<int>(floors.size());
    const auto below = -SampleProjects()[static_cast<size_t>(project)].lowestFloor;
    const int place = IsBelowGround(kind) ? dice.Pick(below) : below + dice.Pick(count - below);
    return floors[static_cast<size_t>(place)];
}

struct Place {
    QString key;
    QString text; ///< for the caption
};

[[nodiscard]] Place PlaceFor(SceneKind kind, qint32 project, bool valid, Dice& dice) {
    const SampleProject& what = SampleProjects()[static_cast<size_t>(project)];
    const QString floor = FloorFor(kind, project, dice);
    const QString x = valid ? QString::number(1 + dice.Pick(what.columns)) : u"1/9"_s;
    const QString y = valid ? QString(QChar(u'A' + dice.Pick(what.rows))) : u"A"_s;
    return {SamplePositionKey(project, floor, x, y), u"%1层 %2-%3轴"_s.arg(floor, x, y)};
}

[[nodiscard]] std::vector<qint32> LabelsFor(Dice& dice) {
    std::vector<qint32> labels;
    const auto count = static_cast<int>(SampleLabels().size());
    for (int wanted = dice.Pick(4); wanted > 0; --wanted) {
        labels.push_back(dice.Pick(count));
    }
    return labels;
}

[[nodiscard]] PlannedPhoto PlanPhoto(int index, QSize size, qint64 now) {
    Dice dice(kPhotoSeed + static_cast<quint64>(index));
    const OddCase oddCase = CaseOf(index);
    const SceneKind kind = kAllSceneKinds[static_cast<size_t>(index) % kAllSceneKinds.size()];
    const QString finding = Finding(kind, dice);
    const PlannedTimes times = PlanTimes(now, dice);
    PlannedPhoto photo;
    site::NewBimPhoto& record = photo.record;
    record.ppid = index % 3 == 2 ? 1 : 0;
    const Place place = PlaceFor(kind, record.ppid, oddCase != OddCase::InvalidPosition, dice);
    record.positionKey = oddCase == OddCase::NoFloor ? QString() : place.key;
    record.fileName = PhotoFileName(index, finding, times.made, Extension(index));
    record.description = Elaborate(finding, dice);
    if (oddCase == OddCase::NoDescription) {
        record.description.clear();
    } else if (oddCase == OddCase::LongDescription) {
        while (record.description.size() < 160) {
            record.description += Elaborate(Finding(kind, dice), dice);
        }
    }
    const int mark = 1 + dice.Pick(static_cast<int>(SampleMarks().size()));
    record.markId = oddCase == OddCase::UnknownMark ? kUnknownMark : mark;
    record.state = PlanState(dice);
    record.status = oddCase == OddCase::Hidden ? 1 : 0;
    record.uploader = times.author;
    record.uploadTime = times.made;
    record.updater = times.updater;
    record.updateTime = times.changed;
    record.labelIds = LabelsFor(dice);
    const QString project = SampleProjects()[static_cast<size_t>(record.ppid)].name;
    photo.voice = PlanVoice(0.16F, dice);
    photo.voice.text = record.description.isEmpty() ? finding : record.description;
    photo.picture = PlanPicture(kind, size,
                                {project, record.positionKey.isEmpty() ? QString() : place.text,
                                 finding, times.author, times.made},
                                dice);
    return photo;
}

} // namespace

bool IsBelowGround(SceneKind kind) {
    return kind == SceneKind::Garage || kind == SceneKind::Pit || kind == SceneKind::Pipes;
}

QString PhotoFileName(int index, const QString& finding, qint64 time, const QString& extension) {
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(time);
    switch (index % 5) {
    case 0:
        return u"IMG_"_s + moment.toString(u"yyyyMMdd_HHmmss"_s) + extension;
    case 1:
        return u"DSC%1"_s.arg(1000 + index * 7, 5, 10, QChar(u'0')) + extension;
    case 2:
        return u"微信图片_"_s + moment.toString(u"yyyyMMddHHmmss"_s) + extension;
    default:
        return u"%1-%2"_s.arg(finding).arg(index + 1, 3, 10, QChar(u'0')) + extension;
    }
}

void PlanPhotos(SitePlan& plan, const PlanScale& scale, qint64 now) {
    const int block = scale.bigPhotos > 0 ? scale.photos / scale.bigPhotos : scale.photos + 1;
    for (int index = 0; index < scale.photos; ++index) {
        // One in each block, of another kind of scene each time.
        const bool big = index % block == index / block % 10 && scale.bigPhotos > 0;
        plan.photos.push_back(PlanPhoto(index, big ? kBigPhoto : scale.photoSize, now));
    }
}

} // namespace sample
