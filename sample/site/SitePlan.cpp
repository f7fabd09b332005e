#include "sample/site/SitePlan.h"

#include "sample/site/PlanParts.h"
#include "sample/site/SiteVocabulary.h"
#include "site/RectifyStates.h"

#include <QDateTime>

#include <algorithm>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kDay = 24LL * 60 * 60;

void PlanPositions(SitePlan& plan) {
    const std::vector<SampleProject>& projects = SampleProjects();
    for (size_t index = 0; index < projects.size(); ++index) {
        const auto number = static_cast<qint32>(index);
        const auto add = [&](const QString& floor, const QString& x, const QString& y, bool valid) {
            plan.positions.push_back(
                {number, floor, x, y, SamplePositionKey(number, floor, x, y), valid});
        };
        for (const QString& floor : FloorsOf(number)) {
            for (int column = 0; column < projects[index].columns; ++column) {
                for (int row = 0; row < projects[index].rows; ++row) {
                    add(floor, QString::number(column + 1), QString(QChar(u'A' + row)), true);
                }
            }
            // An axis that a later version of the model gave up.
            add(floor, u"1/9"_s, u"A"_s, false);
        }
    }
}

/// The same day in working hours, or a day earlier if that is still to come.
[[nodiscard]] qint64 AtWork(qint64 time, qint64 now, Dice& dice) {
    constexpr int kFirstMinute = 7 * 60 + 30;
    constexpr int kMinutes = 10 * 60 + 30;
    const QDateTime day = QDateTime::fromSecsSinceEpoch(time);
    const int second = kFirstMinute * 60 + dice.Pick(kMinutes * 60);
    const qint64 moment =
        QDateTime(day.date(), QTime::fromMSecsSinceStartOfDay(second * 1000)).toSecsSinceEpoch();
    return moment < now - 60 ? moment : moment - kDay;
}

} // namespace

PlanScale ScaleOf(SampleSize size) {
    switch (size) {
    case SampleSize::None:
        break;
    case SampleSize::Small:
        return {40, 0, 10, 2, 8, {800, 600}, {640, 480}};
    case SampleSize::Full:
        return {300, 10, 90, 6, 120, {1600, 1200}, {960, 720}};
    }
    return {};
}

PlannedTimes PlanTimes(qint64 now, Dice& dice) {
    const std::vector<SamplePerson>& people = SamplePeople();
    // The last of them only reads.
    const auto author = [&] {
        return people[static_cast<size_t>(dice.Pick(static_cast<int>(people.size()) - 1))].name;
    };
    PlannedTimes times;
    times.author = author();
    const bool recent = dice.Chance(0.13F);
    const qint64 span = recent ? 6 * kDay : (2 * 365 - 2) * kDay;
    const auto back =
        static_cast<qint64>(static_cast<double>(dice.Unit()) * static_cast<double>(span));
    times.made = AtWork(now - back, now, dice);
    if (dice.Chance(0.4F)) {
        times.updater = dice.Chance(0.3F) ? times.author : author();
        const qint64 later = 60 + static_cast<qint64>(dice.Pick(20 * static_cast<int>(kDay)));
        times.changed = std::min(times.made + later, now - 1);
    }
    return times;
}

qint32 PlanState(Dice& dice) {
    const float roll = dice.Unit();
    return roll < 0.42F   ? site::kStateOpen
           : roll < 0.62F ? site::kStateInProgress
           : roll < 0.9F  ? site::kStateDone
                          : site::kStateNotNeeded;
}

PlannedVoice PlanVoice(float chance, Dice& dice) {
    PlannedVoice voice;
    if (dice.Chance(chance)) {
        voice.seed = dice.Next();
        voice.milliseconds = 2000 + dice.Pick(7000);
    }
    return voice;
}

PictureOrder PlanPicture(SceneKind kind, QSize size, const CaptionFacts& facts, Dice& dice) {
    PictureOrder order;
    order.kind = kind;
    order.seed = dice.Next();
    order.size = dice.Chance(0.25F) ? size.transposed() : size;
    const float style = dice.Unit();
    order.caption = style < 0.45F   ? CaptionStyle::Plate
                    : style < 0.65F ? CaptionStyle::Board
                    : style < 0.85F ? CaptionStyle::Stamp
                                    : CaptionStyle::None;
    order.lines.append(u"项目："_s + facts.project);
    if (!facts.place.isEmpty()) {
        order.lines.append(u"部位："_s + facts.place);
    }
    order.lines.append(u"内容："_s + facts.finding);
    order.lines.append(u"拍摄："_s + facts.author);
    order.lines.append(u"时间："_s +
                       QDateTime::fromSecsSinceEpoch(facts.time).toString(u"yyyy-MM-dd HH:mm"_s));
    return order;
}

std::vector<QString> FloorsOf(qint32 project) {
    std::vector<QString> floors;
    const SampleProject& what = SampleProjects()[static_cast<size_t>(project)];
    for (qint32 floor = what.lowestFloor; floor <= what.highestFloor; ++floor) {
        if (floor != 0) {
            floors.push_back(QString::number(floor));
        }
    }
    floors.push_back(RoofFloor());
    return floors;
}

QString SamplePositionKey(qint32 project, const QString& floor, const QString& axisX,
                          const QString& axisY) {
    return u"P%1-F%2-X%3-Y%4"_s.arg(project + 1).arg(floor, axisX, axisY);
}

SitePlan MakeSitePlan(SampleSize size, qint64 now) {
    SitePlan plan;
    if (size == SampleSize::None) {
        return plan;
    }
    const PlanScale scale = ScaleOf(size);
    PlanPositions(plan);
    PlanComponents(plan);
    PlanPhotos(plan, scale, now);
    PlanDrawings(plan, scale, now);
    PlanIssues(plan, scale, now);
    return plan;
}

} // namespace sample
