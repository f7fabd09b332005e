// The filter line alone: its controls in a bare window, without a grid, a manager or the facade.
#include "console/ConsoleControls.h"
#include "console/ConsoleFilterBar.h"
#include "tests/console/ModuleFixture.h"
#include "tests/support/Hands.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/KXComboBox.h"
#include "toolkit/windows/PopTipDlg.h"

#include <QCheckBox>
#include <QDateEdit>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using support::Choose;
using support::CloseList;
using support::DropDown;
using support::Entries;
using testing::ElementsAre;

const QString kHint = u"输入关键字"_s;

class FilterBarTest : public ModuleFixture {
protected:
    ~FilterBarTest() override {
        if (controls) {
            bar.Detach();
        }
        dialog.Destroy();
    }
    void Open(ConsoleMode kind = kModeBim) {
        dialog.Create(toolkit::kNoWindow);
        controls = std::make_unique<ConsoleControls>(dialog.Widget());
        bar.Attach(*controls, kind, kHint);
        bar.FillProjects();
        bar.Init();
        bar.FillStates();
        bar.Connect();
        PutInARow();
        dialog.ShowRestored();
        Log().Clear();
    }
    /// Apart from each other, as the console lays them out; the rest of its controls stays above.
    void PutInARow() {
        int right = 0;
        for (QWidget* control : controls->Filters()) {
            control->move(right, 100);
            right += control->width();
        }
        dialog.Widget()->resize(right, 200);
    }

    CPopTipDlg dialog;
    std::vector<qint32> used = {1, 2};
    bool known = true;
    std::function<void()> meanwhile = [] {}; ///< while the marks are fetched
    int searches = 0;
    ConsoleFilterBar bar{dialog,
                         {[this] { ++searches; },
                          [this](std::vector<qint32>& ids) {
                              ids = used;
                              meanwhile();
                              return known;
                          }}};
    std::unique_ptr<ConsoleControls> controls;
};

TEST_F(FilterBarTest, AtFirstItChoosesAllOfTheOpenProject) {
    Open();
    const FilterChoice choice = bar.TakeChoice();
    EXPECT_EQ(choice.keyword, QString());
    EXPECT_EQ(choice.markId, 0);
    EXPECT_EQ(choice.labelId, QString());
    EXPECT_TRUE(choice.noDateLimit);
    EXPECT_EQ(choice.start, QDate(2026, 2, 26));
    EXPECT_EQ(choice.end, QDate(2026, 3, 5));
    EXPECT_EQ(choice.status, u"全部"_s);
    EXPECT_THAT(choice.projectIds, ElementsAre(1));
    EXPECT_EQ(searches, 0);
}

TEST_F(FilterBarTest, EveryChoiceIsSearchedOnceAndRead) {
    host.pics.bimLabels = {{u"l1"_s, u"裂缝"_s}};
    Open();
    DropDown(*controls->markCombo);
    CloseList(*controls->markCombo);
    Choose(*controls->markCombo, 2);
    EXPECT_EQ(searches, 1);
    DropDown(*controls->labelCombo);
    CloseList(*controls->labelCombo);
    Choose(*controls->labelCombo, 1);
    EXPECT_EQ(searches, 2);
    Choose(*controls->statusCombo, 1);
    EXPECT_EQ(searches, 3);
    support::Click(controls->noDateLimit);
    EXPECT_EQ(searches, 4);
    const FilterChoice choice = bar.TakeChoice();
    EXPECT_EQ(choice.markId, 2);
    EXPECT_EQ(choice.labelId, u"l1"_s);
    EXPECT_EQ(choice.status, u"待整改"_s);
    EXPECT_FALSE(choice.noDateLimit);
}

TEST_F(FilterBarTest, AKeywordIsTrimmedAndRememberedAndTheHintIsNone) {
    Open();
    controls->keywordCombo->setEditText(u"  漏水 "_s);
    EXPECT_EQ(bar.TakeChoice().keyword, u"漏水"_s);
    controls->keywordCombo->setEditText(kHint);
    EXPECT_EQ(bar.TakeChoice().keyword, QString());
    EXPECT_THAT(Entries(*controls->keywordCombo), ElementsAre("漏水"));
    bar.SaveKeywords();
    EXPECT_THAT(Log().LinesOf({"SaveRecent"}), ElementsAre("SaveRecent([漏水])"));
}

TEST_F(FilterBarTest, ADatePastTheOtherComesBackAndIsSaid) {
    Open();
    support::Click(controls->noDateLimit);
    controls->startPicker->setDate(QDate(2026, 3, 1));
    controls->startPicker->setDate(QDate(2026, 3, 9));
    EXPECT_EQ(controls->startPicker->date(), QDate(2026, 3, 1));
    EXPECT_EQ(support::BalloonAt(controls->startPicker), "开始时间不能大于结束时间!");
    EXPECT_EQ(searches, 1) << "dates search nothing by themselves";
}

TEST_F(FilterBarTest, AnotherKindFetchesItsMarksAndForgetsWhatWasChosen) {
    Open();
    DropDown(*controls->markCombo);
    CloseList(*controls->markCombo);
    Choose(*controls->markCombo, 1);
    bar.ChangeKind(kModePdf, u"别的"_s);
    EXPECT_EQ(bar.TakeChoice().markId, 0);
    used = {3};
    DropDown(*controls->markCombo);
    EXPECT_EQ(controls->markCombo->count(), 2);
}

TEST_F(FilterBarTest, APresetsMarkIsChosenUntilItsSearchHasEnded) {
    Open();
    bar.StartPreset(7).key = u"K1"_s;
    EXPECT_EQ(bar.TakeChoice().markId, 7);
    EXPECT_EQ(bar.TakeChoice().markId, 7) << "no search has ended";
    bar.EndSearch();
    EXPECT_EQ(bar.TakeChoice().markId, 0);
    EXPECT_EQ(bar.Preset().key, QString());
}

TEST_F(FilterBarTest, AWindowThatEndsWhileTheMarksAreFetchedIsLeftAlone) {
    Open();
    known = false;
    meanwhile = [this] {
        bar.Detach();
        dialog.Destroy();
    };
    emit controls->markCombo->dropDown();
    EXPECT_THAT(prompts.Parents(), testing::IsEmpty()) << "nothing is said of a window that ended";
    controls.reset();
}

} // namespace
