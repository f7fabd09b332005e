#include "sample/site/SitePlan.h"

#include "sample/drawings/SheetGrid.h"
#include "sample/site/PlanFiling.h"
#include "sample/site/SiteVocabulary.h"
#include "site/RectifyStates.h"
#include "site/StoreName.h"

#include <QDateTime>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

using namespace Qt::StringLiterals;
using sample::SampleSize;
using site::NewBimPhoto;

constexpr qint64 kNow = 1'760'000'000;
constexpr qint64 kDay = 24LL * 60 * 60;

/// Everything that a plan says, as text.
QStringList Told(const sample::SitePlan& plan) {
    QStringList told;
    for (const auto& photo : plan.photos) {
        const NewBimPhoto& r = photo.record;
        told += u"%1|%2|%3|%4|%5|%6|%7|%8|%9"_s.arg(r.fileName, r.description, r.positionKey)
                    .arg(r.markId)
                    .arg(r.state)
                    .arg(r.status)
                    .arg(r.uploader, r.updater)
                    .arg(r.uploadTime);
        told += QString::number(photo.voice.seed) + u'|' + QString::number(r.labelIds.size());
    }
    for (const auto& point : plan.checkpoints) {
        told += point.record.description + QString::number(point.record.x);
    }
    for (const auto& photo : plan.pdfPhotos) {
        told += photo.record.fileName + photo.record.description;
    }
    for (const auto& issue : plan.issues) {
        told += issue.record.theme + issue.record.componentHandle + issue.record.rectifyText;
    }
    for (const auto& order : sample::OrdersOf(plan)) {
        told += QString::number(order.seed) + order.lines.join(u'|');
    }
    return told;
}

int CountPhotos(const sample::SitePlan& plan,
                const std::function<bool(const sample::PlannedPhoto&)>& is) {
    return static_cast<int>(std::count_if(plan.photos.begin(), plan.photos.end(), is));
}

TEST(SitePlan, IsTheSameEveryTime) {
    EXPECT_EQ(Told(sample::MakeSitePlan(SampleSize::Full, kNow)),
              Told(sample::MakeSitePlan(SampleSize::Full, kNow)));
}

TEST(SitePlan, OnlyDatesFollowThePresent) {
    const auto one = sample::MakeSitePlan(SampleSize::Small, kNow);
    const auto other = sample::MakeSitePlan(SampleSize::Small, kNow + 100 * kDay);
    ASSERT_EQ(one.photos.size(), other.photos.size());
    for (size_t index = 0; index < one.photos.size(); ++index) {
        EXPECT_EQ(one.photos[index].record.description, other.photos[index].record.description);
        EXPECT_EQ(one.photos[index].record.uploadTime + 100 * kDay,
                  other.photos[index].record.uploadTime);
    }
}

TEST(SitePlan, TheFullSiteHasItsNumbers) {
    const sample::SitePlan plan = sample::MakeSitePlan(SampleSize::Full, kNow);
    EXPECT_EQ(plan.photos.size(), 300);
    EXPECT_EQ(plan.pdfPhotos.size(), 90);
    EXPECT_EQ(plan.drawings.size(), 6);
    EXPECT_EQ(plan.checkpoints.size(), 36);
    EXPECT_EQ(plan.issues.size(), 120);
    std::set<sample::SceneKind> bigKinds;
    int upright = 0;
    int twoMegapixels = 0;
    for (const auto& photo : plan.photos) {
        const QSize size = photo.picture.size;
        const int pixels = size.width() * size.height();
        upright += size.height() > size.width() ? 1 : 0;
        twoMegapixels += pixels == 1600 * 1200 ? 1 : 0;
        if (pixels == 12'000'000) {
            bigKinds.insert(photo.picture.kind);
        }
    }
    EXPECT_EQ(twoMegapixels, 290);
    EXPECT_EQ(bigKinds.size(), 10); // ten of them, no two alike
    EXPECT_GT(upright, 40);
}

TEST(SitePlan, NoPlanForNoSite) {
    EXPECT_TRUE(sample::MakeSitePlan(SampleSize::None, kNow).positions.empty());
}

class SitePlanOf : public testing::TestWithParam<SampleSize> {
protected:
    const sample::SitePlan plan = sample::MakeSitePlan(GetParam(), kNow);
};
INSTANTIATE_TEST_SUITE_P(Sizes, SitePlanOf, testing::Values(SampleSize::Small, SampleSize::Full));

TEST_P(SitePlanOf, HasEverySpecialCaseOfPhotos) {
    const auto count = [&](const std::function<bool(const NewBimPhoto&)>& is) {
        return CountPhotos(plan, [&](const sample::PlannedPhoto& p) { return is(p.record); });
    };
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.positionKey.isEmpty(); }), 2);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.positionKey.contains(u"1/9"_s); }), 2);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.markId == sample::kUnknownMark; }), 2);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.status == 1; }), 4);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.description.isEmpty(); }), 2);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.description.size() > 100; }), 2);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.labelIds.empty(); }), 2);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.labelIds.size() > 1; }), 2);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.updater.isEmpty(); }), 2);
    EXPECT_GE(count([](const NewBimPhoto& p) { return p.updater == p.uploader; }), 1);
    EXPECT_GE(
        count([](const NewBimPhoto& p) { return !p.updater.isEmpty() && p.updater != p.uploader; }),
        2);
    EXPECT_GE(CountPhotos(plan, [](const auto& p) { return p.voice.milliseconds > 0; }), 2);
    for (const QString& suffix : {u"jpg"_s, u"JPG"_s, u"PNG"_s, u"dwg"_s, u"jpeg"_s, QString()}) {
        EXPECT_GE(
            count([&](const NewBimPhoto& p) { return QFileInfo(p.fileName).suffix() == suffix; }),
            2)
            << suffix.toStdString();
    }
}

TEST_P(SitePlanOf, UsesEveryStateBothProjectsAndEveryPersonThatMayEdit) {
    std::set<qint32> states;
    std::set<qint32> projects;
    std::set<QString> uploaders;
    for (const auto& photo : plan.photos) {
        states.insert(photo.record.state);
        projects.insert(photo.record.ppid);
        uploaders.insert(photo.record.uploader);
    }
    EXPECT_EQ(states.size(), static_cast<size_t>(site::kStateCount));
    EXPECT_EQ(projects.size(), 2);
    EXPECT_EQ(uploaders.size(), sample::SamplePeople().size() - 1);
    EXPECT_FALSE(uploaders.contains(u"赵总"_s)); // who only reads
}

TEST_P(SitePlanOf, EveryPlaceExists) {
    std::set<QString> keys;
    for (const auto& position : plan.positions) {
        EXPECT_TRUE(keys.insert(position.positionKey).second) << "twice";
        EXPECT_EQ(position.valid, position.axisX != u"1/9"_s);
    }
    for (const auto& photo : plan.photos) {
        EXPECT_TRUE(photo.record.positionKey.isEmpty() || keys.contains(photo.record.positionKey));
    }
    for (const auto& photo : plan.pdfPhotos) {
        EXPECT_LT(static_cast<size_t>(photo.record.checkpointId), plan.checkpoints.size());
    }
}

TEST_P(SitePlanOf, CheckpointsLieApartWithinTheAxesOfTheirDrawing) {
    std::set<std::pair<QString, qint32>> names;
    for (const auto& drawing : plan.drawings) {
        EXPECT_TRUE(names.insert({drawing.name, drawing.project}).second) << "twice in a project";
    }
    std::map<qint32, std::vector<QPointF>> placed;
    for (const auto& point : plan.checkpoints) {
        const auto& order = plan.drawings[static_cast<size_t>(point.record.drawingId)].sheet;
        const QRectF outline = sample::SheetGrid(order.columns, order.rows).Outline();
        const QPointF at(static_cast<double>(point.record.x) * sample::kSheetWidth / 1000,
                         static_cast<double>(point.record.y) * sample::kSheetHeight / 1000);
        EXPECT_TRUE(outline.contains(at));
        for (const QPointF& other : placed[point.record.drawingId]) {
            EXPECT_GT((at - other).manhattanLength(), 300) << "3 cm";
        }
        placed[point.record.drawingId].push_back(at);
    }
    EXPECT_EQ(placed.size(), plan.drawings.size());
}

TEST_P(SitePlanOf, CheckpointsAreTalkedAboutAndSomeHaveSeveralPhotos) {
    size_t most = 0;
    for (const auto& point : plan.checkpoints) {
        most = std::max(most, point.comments.size());
        qint64 last = point.record.updateTime;
        for (const auto& comment : point.comments) {
            EXPECT_TRUE(comment.text.startsWith(comment.person + u"："_s));
            EXPECT_GE(comment.at, last);
            EXPECT_LE(comment.at, kNow);
            last = comment.at;
        }
    }
    EXPECT_GE(most, 3U);
    std::map<qint32, int> photos;
    for (const auto& photo : plan.pdfPhotos) {
        ++photos[photo.record.checkpointId];
    }
    EXPECT_GE(std::max_element(
                  photos.begin(), photos.end(),
                  [](const auto& one, const auto& other) { return one.second < other.second; })
                  ->second,
              2);
}

TEST_P(SitePlanOf, NamesAreFitForTheStore) {
    for (const auto& photo : plan.photos) {
        EXPECT_TRUE(site::IsPlainFileName(photo.record.fileName))
            << photo.record.fileName.toStdString();
    }
    for (const auto& photo : plan.pdfPhotos) {
        EXPECT_TRUE(site::IsPlainFileName(photo.record.fileName))
            << photo.record.fileName.toStdString();
    }
}

TEST_P(SitePlanOf, DatesLieInTwoYearsAndSomeInTheLastWeek) {
    int recent = 0;
    int old = 0;
    for (const auto& photo : plan.photos) {
        const NewBimPhoto& record = photo.record;
        EXPECT_LT(record.uploadTime, kNow);
        EXPECT_GE(record.uploadTime, kNow - 730 * kDay);
        EXPECT_EQ(record.updateTime != 0, !record.updater.isEmpty());
        if (record.updateTime != 0) {
            EXPECT_GT(record.updateTime, record.uploadTime);
            EXPECT_LT(record.updateTime, kNow);
        }
        recent += record.uploadTime > kNow - 7 * kDay ? 1 : 0;
        old += record.uploadTime < kNow - 365 * kDay ? 1 : 0;
    }
    EXPECT_GE(recent, 2);
    EXPECT_GE(old, 5);
}

TEST_P(SitePlanOf, PhotosAreTakenInWorkingHours) {
    for (const auto& photo : plan.photos) {
        const int hour = QDateTime::fromSecsSinceEpoch(photo.record.uploadTime).time().hour();
        EXPECT_GE(hour, 7);
        EXPECT_LE(hour, 18);
    }
}

TEST_P(SitePlanOf, IssuesHavePicturesAndTheDoneOnesAPictureOfTheRemedy) {
    int done = 0;
    for (const auto& issue : plan.issues) {
        EXPECT_FALSE(issue.pics.empty());
        EXPECT_FALSE(issue.pics.front().record.rectification);
        const bool isDone = issue.record.state == site::kStateDone;
        EXPECT_EQ(issue.pics.back().record.rectification, isDone);
        EXPECT_EQ(issue.record.rectifier.isEmpty(),
                  issue.record.state == site::kStateOpen ||
                      issue.record.state == site::kStateNotNeeded);
        done += isDone ? 1 : 0;
    }
    EXPECT_GE(done, 1);
}

TEST_P(SitePlanOf, AnIssuesComponentStandsWhereTheIssueIsAndHandlesAreEachTheirOwn) {
    std::map<std::pair<qint32, QString>, const site::Component*> byHandle;
    for (const auto& component : plan.components) {
        EXPECT_TRUE(
            byHandle.emplace(std::pair(component.ppid, component.handle), &component).second);
    }
    for (const auto& issue : plan.issues) {
        const auto found = byHandle.find({issue.record.ppid, issue.record.componentHandle});
        ASSERT_NE(found, byHandle.end());
        const site::Component& component = *found->second;
        EXPECT_EQ(component.floor, issue.record.floor);
        EXPECT_EQ(component.name, issue.record.componentName);
        EXPECT_EQ(component.subName, issue.record.componentSubName);
        const QString axes = component.properties[3].second;
        EXPECT_EQ(QString(axes).replace(u'/', u'-') + u'轴', issue.record.posInfo);
    }
    EXPECT_EQ(std::count_if(plan.components.begin(), plan.components.end(),
                            [](const auto& each) { return each.floor.isEmpty(); }),
              2)
        << "one of each project stands on no floor";
}

TEST(SitePlan, FloorsGoFromTheBasementToTheRoofWithoutAZero) {
    EXPECT_EQ(sample::FloorsOf(1),
              (std::vector<QString>{u"-1"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s,
                                    u"8"_s, u"屋面"_s}));
    EXPECT_EQ(sample::FloorsOf(0).front(), u"-2"_s);
    EXPECT_EQ(sample::FloorsOf(0).size(), 15);
}

} // namespace
