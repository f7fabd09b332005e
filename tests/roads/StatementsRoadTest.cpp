// What a save costs in the whole client, with console, plan and panel open.
#include "hands/Choices.h"
#include "hands/Hands.h"
#include "site/sqlite/Database.h"
#include "tests/roads/ClientFixture.h"
#include "tests/roads/RoadHands.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"

#include <QElapsedTimer>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

/// A commit is looked after for so long, milliseconds.
constexpr int kLooks = 3200;

void Pass(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(WaitFor([&] { return timer.elapsed() >= milliseconds; }));
}

class StatementsOfTheClient : public ClientOnAFolder {
protected:
    struct Cost {
        qint64 statements = 0; ///< without the looks
        qint64 looks = 0;      ///< for what others committed
    };
    [[nodiscard]] Cost SoFar() const {
        site::Database& db = support::FolderOf(session).Db();
        return {db.StatementsRun() - db.Log().LooksMade(), db.Log().LooksMade()};
    }
    /// From the press of the button until everything is at rest again.
    [[nodiscard]] Cost CostOfASave() {
        EXPECT_TRUE(Press(Qt::Key_1));
        EXPECT_TRUE(WaitFor([] { return tour::ConsoleTotal() >= 5; }));
        Pass(kLooks);
        Cost before;
        const support::ModalVisit visit(u"BimPicEditDlg"_s, [&](QWidget& editor) {
            Type(editor, u"picNameEdit"_s, u"新照片"_s);
            before = SoFar();
            ClickOn(editor, u"okButton"_s);
        });
        EXPECT_TRUE(WaitFor([] {
            return hands::ClickCell(tour::ConsoleGrid(), 0, tour::ConsoleColumn(u"编辑"_s));
        }));
        EXPECT_TRUE(
            WaitFor([] { return tour::ConsoleText(0, u"照片名称"_s).startsWith(u"新照片"_s); }));
        Pass(kLooks);
        const Cost after = SoFar();
        return {after.statements - before.statements, after.looks - before.looks};
    }
    static void ExpectLittle(const Cost& cost) {
        EXPECT_GT(cost.statements, 5);
        EXPECT_LT(cost.statements, 30);
        EXPECT_LE(cost.looks, 20);
    }
};

class StatementsOfTheSampleSite : public StatementsOfTheClient {
protected:
    void SetUp() override { StartOnTheSampleSite(); }
};

TEST_F(StatementsOfTheClient, ASaveReadsAgainWhatItChanged) {
    ExpectLittle(CostOfASave());
}

TEST_F(StatementsOfTheSampleSite, ASaveReadsAgainWhatItChanged) {
    ExpectLittle(CostOfASave());
}

} // namespace
} // namespace roads
