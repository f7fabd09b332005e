// ISetup: what is changed there is so for every service, all of it or nothing of it.
#include "site/IBin.h"
#include "site/ICatalogue.h"
#include "site/ISetup.h"
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using site::SetupList;
using site::SetupOutcome;
using site::SetupState;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const site::Signature kSetter{u"li"_s, 1700001000};

/// "li" may set up; floors "1" and "2" with crossings, a label, a photo that uses what it can.
template <class Base> class WithSetup : public Base {
protected:
    WithSetup() {
        corner = this->Position(u"1"_s, u"1"_s, u"A"_s);
        upper = this->Position(u"2"_s, u"1"_s, u"A"_s);
        label = this->site->AddLabel(u"渗漏"_s).toInt();
        picId = this->Photo([&](site::NewBimPhoto& photo) {
            photo.positionKey = corner;
            photo.labelIds = {label};
            photo.uploader = u"li"_s;
        });
        const SetupState seen = Read();
        SetupState wanted = seen;
        wanted.people[0].rights.push_back(site::kRightSetup);
        EXPECT_TRUE(Apply(seen, wanted).IsDone());
    }
    [[nodiscard]] site::ISetup& Settings() { return this->site->Engine()->Setup(); }
    [[nodiscard]] SetupState Read() { return Settings().Read({this->first}); }
    [[nodiscard]] SetupOutcome Apply(const SetupState& seen, const SetupState& wanted) {
        return Settings().Apply(seen, wanted, kSetter);
    }
    /// Of the present state.
    SetupOutcome Change(const std::function<void(SetupState&)>& change) {
        const SetupState seen = Read();
        SetupState wanted = seen;
        change(wanted);
        return Apply(seen, wanted);
    }

    QString corner;
    QString upper;
    qint32 label = 0;
    qint32 picId = 0;
};

} // namespace

class SetupOfASite : public WithSetup<Contract> {};
ON_EVERY_ENGINE(SetupOfASite);

TEST_P(SetupOfASite, ProjectsAndWorksetsAreMadeRenamedAndArchived) {
    ASSERT_TRUE(Change([](SetupState& state) {
                    state.projects[1].name = u"三号楼"_s;
                    state.projects.push_back({0, u"四号楼"_s, 3, true});
                    state.worksets[0].projects = {u"四号楼"_s, u"三号楼"_s};
                    state.worksets.push_back({0, u"旧"_s, {u"三号楼"_s}, true});
                }).IsDone());
    QString name;
    EXPECT_EQ(on.global->GetProjectName(name, site->second), u"三号楼"_s);
    site::ICatalogue& catalogue = site->Engine()->Catalogue();
    const auto made = catalogue.Projects().back();
    EXPECT_EQ(made.name, u"四号楼"_s);
    EXPECT_EQ(made.major, 3);
    EXPECT_TRUE(made.archived);
    ASSERT_EQ(catalogue.Worksets().size(), 2U);
    EXPECT_THAT(catalogue.Worksets()[0].ppids, ElementsAre(made.ppid, site->second));
    EXPECT_TRUE(catalogue.Worksets()[1].archived);
}

TEST_P(SetupOfASite, RightsThatAreTakenGivenOrBlockedAreSoAtOnce) {
    ASSERT_TRUE(Change([](SetupState& state) {
                    state.people[0].rights = {38, site::kRightSetup};
                    state.people[1].rights = {21};
                    state.people.push_back({0, u"zhao"_s, {5, 22}, true});
                }).IsDone());
    EXPECT_TRUE(on.auth->HasRight(38));
    EXPECT_FALSE(on.auth->HasRight(21));
    site->SignIn(u"zhao"_s);
    EXPECT_TRUE(on.auth->HasRight(22));
    EXPECT_FALSE(on.auth->HasRight(21));
    site->SignIn(u"guest"_s);
    EXPECT_TRUE(on.auth->HasRight(21));
    ASSERT_TRUE(Change([](SetupState& state) { state.people[1].active = false; }).IsDone());
    EXPECT_FALSE(on.auth->HasRight(21)) << "who may not sign in has none";
    EXPECT_THAT(site->Engine()->Catalogue().People(), ElementsAre(u"li"_s, u"zhao"_s));
}

TEST_P(SetupOfASite, MarksHaveNamesColoursAndAnOrderAndKeepTheirNumbers) {
    ASSERT_TRUE(Change([](SetupState& state) {
                    std::swap(state.marks[0], state.marks[1]);
                    state.marks[0].color = 0x123456;
                    state.marks[1].name = u"外观"_s;
                    state.marks.push_back({0, u"进度"_s, 7});
                }).IsDone());
    KX_DATA::MarkRecord mark;
    ASSERT_TRUE(on.marks->GetMarkInfo(2, mark));
    EXPECT_EQ(mark.color, 0x123456);
    ASSERT_TRUE(on.marks->GetMarkInfo(1, mark));
    EXPECT_EQ(mark.name, u"外观"_s);
    EXPECT_THAT(site->Engine()->Catalogue().MarkOrder(), ElementsAre(2, 1, 3));
}

TEST_P(SetupOfASite, ARenamedLabelIsCalledSoOnItsPhotos) {
    ASSERT_TRUE(Change([](SetupState& state) {
                    state.labels[0].name = u"渗水"_s;
                    state.labels.push_back({0, u"裂缝"_s});
                }).IsDone());
    EXPECT_THAT(BimRows()[0].labelNames, ElementsAre(u"渗水"_s));
    std::vector<KX_DATA::LabelEntry> labels;
    ASSERT_EQ(on.docs->GetLabels(2, labels), KX_DATA::kLabelsOk);
    EXPECT_EQ(labels.size(), 2U);
}

TEST_P(SetupOfASite, FloorsAreOrderedAndRenamedWithWhatStandsOnThem) {
    Issue();
    ASSERT_TRUE(Change([](SetupState& state) {
                    site::SetupGrid& grid = state.grids[0];
                    grid.floors = {{u"2"_s, u"2"_s}, {u"一层"_s, u"1"_s}, {u"屋面"_s, {}}};
                    for (site::SetupCrossing& crossing : grid.crossings) {
                        crossing.floor = crossing.floor == u"1"_s ? u"一层"_s : crossing.floor;
                    }
                    grid.crossings.push_back({{}, u"屋面"_s, u"7"_s, u"C"_s, true});
                }).IsDone());
    std::vector<QString> floors;
    ASSERT_EQ(on.pics->GetProjectFloors(first, floors), KX_DATA::kServiceOk);
    EXPECT_THAT(floors, ElementsAre(u"2"_s, u"一层"_s, u"屋面"_s));
    EXPECT_EQ(BimRows()[0].floor, u"一层"_s);
    EXPECT_EQ(BimRows()[0].positionKey, corner);
    EXPECT_EQ(IssueRows()[0].floor, u"一层"_s);
    std::vector<KX_DATA::AxisYEntry> axes;
    ASSERT_EQ(on.pics->GetFloorAxesY(first, u"屋面"_s, u"7"_s, axes), KX_DATA::kServiceOk);
    ASSERT_EQ(axes.size(), 1U);
    EXPECT_EQ(axes[0].first, u"C"_s);
}

TEST_P(SetupOfASite, WhatIsUsedStaysAndTheRefusalSaysByWhat) {
    const SetupState before = Read();
    const auto refusal = [&](const std::function<void(SetupState&)>& change) {
        const SetupOutcome outcome = Change(change);
        EXPECT_EQ(Read(), before);
        return outcome.refusals.size() == 1 ? outcome.refusals[0].toStdString() : "not one";
    };
    EXPECT_THAT(refusal([](SetupState& state) { state.marks.erase(state.marks.begin()); }),
                HasSubstr("照片 1 张"));
    EXPECT_THAT(refusal([](SetupState& state) { state.labels.clear(); }), HasSubstr("照片 1 张"));
    EXPECT_THAT(refusal([](SetupState& state) {
                    state.people.push_back({0, u"zhao"_s, {site::kRightSetup}, true});
                    state.people.erase(state.people.begin());
                }),
                HasSubstr("照片 1 张"));
    EXPECT_THAT(refusal([](SetupState& state) {
                    state.projects.erase(state.projects.begin());
                    state.worksets.clear();
                    state.grids.clear();
                }),
                HasSubstr("照片 1 张"));
    EXPECT_THAT(refusal([](SetupState& state) {
                    state.grids[0].crossings.erase(state.grids[0].crossings.begin());
                }),
                HasSubstr("照片 1 张"));
    EXPECT_EQ(Settings().UsesOfFloor(first, u"1"_s), u"照片 1 张"_s);
    EXPECT_EQ(Settings().UsesOfCrossing(corner), u"照片 1 张"_s);
    EXPECT_EQ(Settings().UsesOf(SetupList::Label, label), u"照片 1 张"_s);
    EXPECT_EQ(Settings().UsesOf(SetupList::Mark, 2), QString());
}

TEST_P(SetupOfASite, EveryKindOfUseIsNamed) {
    const auto uses = [this](SetupList list, qint32 id) { return Settings().UsesOf(list, id); };
    const auto has = [](const QString& text) { return HasSubstr(text.toStdString()); };
    site->AddComponent({first, u"h7"_s, u"2"_s, upper, {}, {}, {}, {}});
    Issue([](site::NewIssue& issue) { issue.markId = 2; });
    const qint32 drawing = site->AddDrawing(first, u"首层"_s);
    const qint32 point = Point(drawing, 1, [this](site::NewCheckpoint& made) {
        made.markId = 2;
        made.labelIds = {label};
    });
    PdfPhoto(point, u"p.jpg"_s);
    KX_DATA::CheckpointComment comment;
    ASSERT_EQ(on.drawings->AddComment(point, u"请复查"_s, comment), KX_DATA::kServiceOk);
    KX_DATA::RichTextKey key;
    key.objectType = 1;
    key.objectId = corner;
    key.subId = 1;
    key.projectId = key.ownerId = first;
    KX_DATA::RichTextMsg message;
    message.docName = u"doc"_s;
    ASSERT_TRUE(on.richTexts->SaveRichText(u"已整改"_s, message, key, {}, {}));

    const std::string project = uses(SetupList::Project, first).toStdString();
    for (const QString& said :
         {u"照片 1 张、图纸照片 1 张、问题 1 个、图纸 1 张"_s, u"富文本记录 1 条"_s}) {
        EXPECT_THAT(project, has(said));
    }
    EXPECT_EQ(uses(SetupList::Mark, 2), u"检查点 1 个、问题 1 个"_s);
    EXPECT_EQ(uses(SetupList::Mark, 1), u"照片 1 张、富文本记录 1 条"_s);
    EXPECT_EQ(uses(SetupList::Label, label), u"照片 1 张、检查点 1 个"_s);
    const qint32 li = Read().people[0].id;
    EXPECT_EQ(uses(SetupList::Person, li), u"照片 1 张、评论 1 条、富文本版本 1 个"_s);
    EXPECT_EQ(Settings().UsesOfFloor(first, u"1"_s), u"照片 1 张、问题 1 个、富文本记录 1 条"_s);
    EXPECT_EQ(Settings().UsesOfFloor(first, u"2"_s), u"构件 1 个"_s);
    EXPECT_EQ(Settings().UsesOfCrossing(corner), u"照片 1 张、富文本记录 1 条"_s);
    EXPECT_EQ(Settings().UsesOfCrossing(upper), u"构件 1 个"_s);
}

TEST_P(SetupOfASite, WhoSignedAnythingIsUsedAndKeepsTheName) {
    const SetupState seen = Read();
    SetupState wanted = seen;
    wanted.people.push_back({0, u"zhang"_s, {}, true});
    ASSERT_TRUE(Apply(seen, wanted).IsDone());
    Issue();
    PdfPhoto(Point(site->AddDrawing(first, u"首层"_s), 1), u"p.jpg"_s);
    EXPECT_EQ(Settings().UsesOf(SetupList::Person, Read().people.back().id),
              u"图纸照片 1 张、问题 1 个"_s);
    EXPECT_FALSE(Change([](SetupState& state) { state.people.back().name = u"zhao"_s; }).IsDone());
}

TEST_P(SetupOfASite, WhatOnlyTheBinUsesStaysToo) {
    ASSERT_TRUE(on.pics->DeleteBimPics({picId}));
    EXPECT_EQ(Settings().UsesOf(SetupList::Mark, 1), u"回收站 1 项"_s);
    EXPECT_FALSE(Change([](SetupState& state) { state.labels.clear(); }).IsDone());
    site::IBin& bin = site->Engine()->Bin();
    bin.Purge({bin.List().front().id});
    EXPECT_TRUE(Change([](SetupState& state) { state.labels.clear(); }).IsDone());
    EXPECT_TRUE(Read().labels.empty());
}

TEST_P(SetupOfASite, NothingIsHalfTaken) {
    const SetupState before = Read();
    EXPECT_FALSE(Change([](SetupState& state) {
                     state.projects.push_back({0, u"四号楼"_s, 1, false});
                     state.labels.push_back({0, u"裂缝"_s});
                     state.grids[0].floors.push_back({u"2"_s, {}});
                 }).IsDone());
    EXPECT_FALSE(Change([](SetupState& state) {
                     state.projects.push_back({0, u"四号楼"_s, 1, false});
                     state.marks.erase(state.marks.begin());
                 }).IsDone());
    EXPECT_EQ(Read(), before);
}

TEST_P(SetupOfASite, OfTwoWhoChangeTheSameListTheSecondIsTold) {
    const SetupState seen = Read();
    SetupState one = seen;
    one.marks[0].name = u"外观"_s;
    SetupState two = seen;
    two.marks[0].name = u"观感"_s;
    two.labels.push_back({0, u"裂缝"_s});
    ASSERT_TRUE(Apply(seen, one).IsDone());
    EXPECT_EQ(Apply(seen, two).changedMeanwhile, SetupList::Mark);
    EXPECT_EQ(Read().marks[0].name, u"外观"_s);
    EXPECT_EQ(Read().labels.size(), 1U) << "of the other list neither";
    two.marks = seen.marks;
    EXPECT_TRUE(Apply(seen, two).IsDone()) << "another list was changed";
}

TEST_P(SetupOfASite, WhatIsAgainstTheRulesAlreadyKeepsNobodyFromChangingTheRest) {
    site->AddLabel(u"ab"_s);
    site->AddLabel(u"AB"_s); // an editor takes both
    EXPECT_TRUE(Change([](SetupState& state) { state.marks[0].name = u"外观"_s; }).IsDone());
    EXPECT_TRUE(Change([](SetupState& state) { state.labels.push_back({0, u"裂缝"_s}); }).IsDone());
    const SetupOutcome third = Change([](SetupState& state) {
        state.labels.push_back({0, u"Ab"_s});
    });
    EXPECT_EQ(third.refusals.size(), 1U);
    EXPECT_EQ(Read().labels.size(), 4U);
}

TEST_P(SetupOfASite, EachListIsToldThatWasChangedMeanwhile) {
    const std::vector<std::pair<SetupList, std::function<void(SetupState&, const QString&)>>>
        changes{{SetupList::Project,
                 [](SetupState& state, const QString& name) {
                     state.projects.push_back({0, name, 1, false});
                 }},
                {SetupList::Workset,
                 [](SetupState& state, const QString& name) { state.worksets[0].name = name; }},
                {SetupList::Person,
                 [](SetupState& state, const QString& name) {
                     state.people.push_back({0, name, {}, true});
                 }},
                {SetupList::Label,
                 [](SetupState& state, const QString& name) { state.labels[0].name = name; }},
                {SetupList::Floor,
                 [](SetupState& state, const QString& name) {
                     state.grids[0].floors.push_back({name, {}});
                 }},
                {SetupList::Crossing, [](SetupState& state, const QString& name) {
                     state.grids[0].crossings[0].axisX = name;
                 }}};
    for (const auto& [list, change] : changes) {
        const SetupState seen = Read();
        SetupState mine = seen;
        SetupState theirs = seen;
        change(theirs, u"x1"_s);
        change(mine, u"x2"_s);
        ASSERT_TRUE(Apply(seen, theirs).IsDone());
        EXPECT_EQ(Apply(seen, mine).changedMeanwhile, list);
    }
}

TEST_P(SetupOfASite, SomebodyAlwaysMaySetUp) {
    EXPECT_FALSE(Change([](SetupState& state) { state.people[0].rights = {21}; }).IsDone());
    EXPECT_FALSE(Change([](SetupState& state) { state.people[0].active = false; }).IsDone());
    EXPECT_TRUE(on.auth->HasRight(site::kRightSetup));
}

class SetupFailures : public WithSetup<FailureContract> {};
WHERE_AN_ENGINE_FAILS(SetupFailures);

TEST_P(SetupFailures, AChangeTellsItAndNothingIsChanged) {
    const SetupState seen = Read();
    SetupState wanted = seen;
    wanted.projects.push_back({0, u"四号楼"_s, 1, false});
    wanted.labels.push_back({0, u"裂缝"_s});
    Fail({});
    EXPECT_THROW(static_cast<void>(Apply(seen, wanted)), site::DataError);
    if (StillReads()) {
        EXPECT_EQ(Read(), seen);
    }
}

} // namespace contracts
