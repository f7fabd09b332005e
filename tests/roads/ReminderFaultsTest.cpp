// What another client files while downloads or the site fail.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "site/IIntake.h"
#include "site/OpenSite.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/Toasts.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/PopupWindow.h"

#include <QAction>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using site::TransferFault;
using support::ToastLines;
using support::WaitFor;

class ReminderFaults : public PhotoRoad {
protected:
    void SetUp() override {
        PhotoRoad::SetUp();
        m_other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        ASSERT_NE(m_other.site, nullptr);
        m_theirs = m_other.site->NewIntake();
    }
    void TearDown() override {
        CBCGPPopupWindow::CloseAll();
        support::RunPendingEvents();
        PhotoRoad::TearDown();
    }
    void StartAgain() {
        ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
        ASSERT_TRUE(session.SignIn(u"张伟"_s));
        Start();
    }
    void FilePhoto(const QString& name) { FilePhoto(*m_theirs, name); }
    void FilePhoto(site::IIntake& into, const QString& name) {
        site::NewBimPhoto photo;
        photo.ppid = site.firstProject;
        photo.fileName = name;
        photo.positionKey = site.positionKey;
        photo.markId = 1;
        photo.uploader = u"李娜"_s;
        photo.uploadTime = 1'700'000'000;
        static_cast<void>(into.FilePhoto(photo, {{}, JpegBytes(kGreen)}));
    }
    void SetFault(TransferFault fault) {
        site::TransferRules rules;
        rules.fault = fault;
        session.Desk()->SetRules(rules);
    }
    [[nodiscard]] host::CatchUpDock& Dock() const { return client->Window()->CatchUpList(); }
    [[nodiscard]] int CountListed() const { return Dock().Model().rowCount(); }
    void InTheDatabase(const QString& statement) {
        support::FolderOf(*m_other.site).Db().Exec(statement);
    }
    static constexpr QRgb kGreen = qRgb(10, 200, 10);

private:
    site::OpenedSite m_other;
    std::unique_ptr<site::IIntake> m_theirs;
};

TEST_F(ReminderFaults, WhatCannotBeFetchedPopsUpWithoutItsPicture) {
    SetFault(TransferFault::AtStart);
    FilePhoto(u"甲.jpg"_s);
    EXPECT_TRUE(WaitFor([] { return ToastLines() == QStringList{u"名称:甲.jpg"_s}; }));
    SetFault(TransferFault::None);
    FilePhoto(u"乙.jpg"_s);
    EXPECT_TRUE(WaitFor([] {
        return ToastLines() == QStringList({u"名称:甲.jpg"_s, u"名称:乙.jpg"_s});
    }));
    EXPECT_FALSE(Messages().filter(u"下载文件失败"_s).isEmpty());
}

TEST_F(ReminderFaults, ADownloadThatStandsStillEndsByItsLimitAndTheNextOnesGoOn) {
    session.Desk()->SetLongestSilence(std::chrono::milliseconds(300));
    SetFault(TransferFault::NeverEnds);
    FilePhoto(u"甲.jpg"_s);
    ASSERT_TRUE(WaitFor([this] { return CountListed() == 1; }));
    FilePhoto(u"乙.jpg"_s);
    EXPECT_TRUE(WaitFor([] {
        return ToastLines() == QStringList({u"名称:甲.jpg"_s, u"名称:乙.jpg"_s});
    }));
}

TEST_F(ReminderFaults, OnesOwnThatIsFiledJustBeforeTheEndIsNoNewsAtTheNextStart) {
    FilePhoto(u"他人.jpg"_s);
    ASSERT_TRUE(WaitFor([] { return !ToastLines().isEmpty(); }));
    FilePhoto(*session.Site().NewIntake(), u"我的.jpg"_s);
    End();
    StartAgain();
    ASSERT_EQ(CountListed(), 1);
    EXPECT_EQ(Dock().Model().At(0).name, u"他人.jpg"_s);
}

TEST_F(ReminderFaults, WhereFilingsCannotBeReadTheClientSaysSoAndWorks) {
    End();
    ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
    ASSERT_TRUE(session.SignIn(u"张伟"_s));
    InTheDatabase(u"ALTER TABLE filing RENAME TO filing_away"_s);
    Start();
    EXPECT_FALSE(Messages().isEmpty());
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_R,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    OpenConsole();
    End();
    InTheDatabase(u"ALTER TABLE filing_away RENAME TO filing"_s);
    StartAgain();
    FilePhoto(u"甲.jpg"_s);
    EXPECT_TRUE(WaitFor([] { return !ToastLines().isEmpty(); }));
}

TEST_F(ReminderFaults, WhatIsFiledWhileMarksCannotBeReadIsListedAndPopsUpAllTheSame) {
    InTheDatabase(u"ALTER TABLE mark RENAME TO mark_away"_s);
    InTheDatabase(u"INSERT INTO change (kind, ppid, object, person, opening)"
                  " VALUES (7, 0, 1, '', 99)"_s);
    FilePhoto(u"甲.jpg"_s);
    EXPECT_TRUE(WaitFor([this] { return CountListed() == 1; }));
    EXPECT_TRUE(Dock().Model().At(0).markName.isEmpty());
    EXPECT_TRUE(WaitFor([] { return ToastLines() == QStringList{u"名称:甲.jpg"_s}; }));
    EXPECT_FALSE(Messages().isEmpty());
    InTheDatabase(u"ALTER TABLE mark_away RENAME TO mark"_s);
    FilePhoto(u"乙.jpg"_s);
    EXPECT_TRUE(WaitFor([this] { return CountListed() == 2; }));
    EXPECT_FALSE(Dock().Model().At(0).markName.isEmpty());
    EXPECT_TRUE(WaitFor([] { return ToastLines().size() == 2; })) << "none comes later";
}

TEST_F(ReminderFaults, AListThatCannotBeReadForAWhileIsWholeAgainAfterwards) {
    client->Window()->PhotoReminders().trigger();
    for (int at = 0; at < 70; ++at) {
        FilePhoto(u"%1.jpg"_s.arg(at));
    }
    ASSERT_TRUE(WaitFor([this] { return CountListed() == 70; }));
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    EXPECT_EQ(CountListed(), 50) << "the first page";
    OtherClient other = Other();
    other.TakePhotosAway();
    Dock().Model().fetchMore({});
    EXPECT_EQ(CountListed(), 50);
    other.BringPhotosBack();
    EXPECT_TRUE(Dock().Model().canFetchMore({})) << "the rest is still wanted";
    Dock().Model().fetchMore({});
    EXPECT_EQ(CountListed(), 70);
}

} // namespace
} // namespace roads
