#include "host/ui/ObserverHub.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

struct NamedObs : KXFRAME::IBaseObs {
    explicit NamedObs(const QString& obsName) : name(obsName) {}
    QString GetObsName() const override { return name; }
    QString GetObsClassName() const override { return u"NamedObs"_s; }
    QString name;
};

struct ChangeObs final : NamedObs, KXFRAME::IProjChangeObs {
    ChangeObs(const QString& obsName, QStringList& calls, const QString& who)
        : NamedObs(obsName), log(calls), label(who) {}
    void OnProjChange() override { log << label; }
    QStringList& log;
    QString label;
};

struct ViewObs final : NamedObs, KXFRAME::IViewBimPicObs {
    explicit ViewObs(const QString& obsName) : NamedObs(obsName) {}
    void ViewBimPic(const qint32* ppid, const QString& floor, const QString& key,
                    qint32 markId) override {
        seen = u"%1 %2 %3 %4"_s.arg(*ppid).arg(floor, key).arg(markId);
    }
    void OpenIssueEdit(qint32 mode) override { seen = u"edit %1"_s.arg(mode); }
    void LocateIssue(qint32 ppid, const QString& questionId) override {
        seen = u"%1 %2"_s.arg(ppid).arg(questionId);
    }
    QString seen;
};

TEST(ObserverHub, TellsAProjectChangeToThoseOfThatNameInTheirOrder) {
    QStringList calls;
    ChangeObs first(u"ProjChange"_s, calls, u"first"_s);
    ChangeObs other(u"Other"_s, calls, u"other"_s);
    ChangeObs second(u"ProjChange"_s, calls, u"second"_s);
    ObserverHub hub;
    for (ChangeObs* observer : {&first, &other, &second}) {
        hub.AddObserver(observer);
    }
    hub.TellProjectChange();
    EXPECT_EQ(calls, QStringList({u"first"_s, u"second"_s}));
}

TEST(ObserverHub, PassesOverAnObserverThatBearsTheNameButNotTheInterface) {
    NamedObs plain(u"ProjChange"_s);
    NamedObs viewer(u"ViewBimPic"_s);
    ObserverHub hub;
    hub.AddObserver(&plain);
    hub.AddObserver(&viewer);
    hub.TellProjectChange();
    EXPECT_FALSE(hub.ViewBimPic(1, u"2"_s, u"k"_s, 3));
}

TEST(ObserverHub, KnowsEachObserverOnceAndNoNull) {
    QStringList calls;
    ChangeObs observer(u"ProjChange"_s, calls, u"once"_s);
    ObserverHub hub;
    hub.AddObserver(nullptr);
    hub.AddObserver(&observer);
    hub.AddObserver(&observer);
    EXPECT_EQ(hub.Count(), 1U);
    hub.TellProjectChange();
    EXPECT_EQ(calls, QStringList{u"once"_s});
}

TEST(ObserverHub, HandsAPhotoToTheViewer) {
    ViewObs viewer(u"ViewBimPic"_s);
    ObserverHub hub;
    hub.AddObserver(&viewer);
    EXPECT_TRUE(hub.ViewBimPic(4, u"-1"_s, u"key"_s, 3));
    EXPECT_EQ(viewer.seen, u"4 -1 key 3"_s);
    EXPECT_TRUE(hub.LocateIssue(4, u"q1"_s));
    EXPECT_EQ(viewer.seen, u"4 q1"_s);
}

TEST(ObserverHub, AsksTheFirstViewerUnderThatNameAndNobodyElse) {
    ViewObs other(u"Other"_s);
    ViewObs first(u"ViewBimPic"_s);
    ViewObs second(u"ViewBimPic"_s);
    ObserverHub hub;
    EXPECT_FALSE(hub.LocateIssue(4, u"q1"_s));
    for (ViewObs* observer : {&other, &first, &second}) {
        hub.AddObserver(observer);
    }
    EXPECT_TRUE(hub.LocateIssue(4, u"q1"_s));
    EXPECT_EQ(first.seen, u"4 q1"_s);
    EXPECT_TRUE(other.seen.isEmpty());
    EXPECT_TRUE(second.seen.isEmpty());
    hub.Clear();
    EXPECT_FALSE(hub.ViewBimPic(4, u"-1"_s, u"key"_s, 3));
}

TEST(ObserverHub, TellsTheViewerHowAPickEnded) {
    ViewObs viewer(u"ViewBimPic"_s);
    ObserverHub hub;
    EXPECT_FALSE(hub.TellPickEnded(true));
    hub.AddObserver(&viewer);
    EXPECT_TRUE(hub.TellPickEnded(true));
    EXPECT_EQ(viewer.seen, u"edit 1"_s);
    EXPECT_TRUE(hub.TellPickEnded(false));
    EXPECT_EQ(viewer.seen, u"edit 0"_s);
}

} // namespace
} // namespace host
