// The client ends while reminders are on their way: it ends, and nothing of them is lost.
#include "host/ui/MainWindow.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "site/IIntake.h"
#include "site/OpenSite.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/PopupWindow.h"
#include "tour/ConsoleEyes.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

class ReminderEnds : public PhotoRoad {
protected:
    void FileMany(int count) {
        const site::OpenedSite other = site::OpenSite(folder.Path(u"data"_s), {5000, false});
        ASSERT_NE(other.site, nullptr);
        const auto theirs = other.site->NewIntake();
        theirs->BeginBatch();
        for (int at = 0; at < count; ++at) {
            site::NewBimPhoto photo;
            photo.ppid = site.firstProject;
            photo.fileName = u"%1.jpg"_s.arg(at);
            photo.uploader = u"李娜"_s;
            static_cast<void>(theirs->FilePhoto(photo, {{}, JpegBytes(qRgb(at % 256, 9, 9))}));
        }
        theirs->CommitBatch();
    }
    [[nodiscard]] int Listed() const { return client->Window()->CatchUpList().Model().rowCount(); }
    void ExpectAllAtTheNextStart(int count) {
        CBCGPPopupWindow::CloseAll();
        ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
        ASSERT_TRUE(session.SignIn(u"张伟"_s));
        Start();
        EXPECT_EQ(Listed(), count);
        for (const host::CatchUpItem& item : client->Window()->CatchUpList().Model().All()) {
            EXPECT_FALSE(item.isRead);
        }
    }
};

// The first: after the others no toast comes in this process.
TEST_F(ReminderEnds, AThousandAtOnceAreListedWhileAPersonTypes) {
    OpenConsole();
    auto* keyword = tour::Console()->findChild<QComboBox*>(u"keywordCombo"_s);
    FileMany(1000);
    QString typed;
    bool isToastSeen = false;
    EXPECT_TRUE(WaitFor(
        [&] {
            isToastSeen = isToastSeen || CBCGPPopupWindow::CountShown() > 0;
            if (typed.size() < 40 && isToastSeen) {
                // Without a display every new window is active: to where one types on one.
                QTest::keyClick(keyword->lineEdit(), Qt::Key_A);
                typed += u'a';
            }
            return typed.size() == 40 && Listed() == 1000;
        },
        std::chrono::seconds(60)))
        << Listed() << " listed, typed " << typed.size() << ", toasts " << isToastSeen;
    EXPECT_EQ(keyword->currentText(), typed);
    const auto* count = client->Window()->findChild<QLabel*>(u"catchUpCount"_s);
    EXPECT_EQ(count->text(), u"未读 999+ 项"_s);
}

TEST_F(ReminderEnds, ADownloadThatHangsHoldsNeitherTheEndNorTheList) {
    session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    FileMany(3);
    ASSERT_TRUE(WaitFor([this] { return Listed() == 3; }));
    EXPECT_EQ(CBCGPPopupWindow::CountShown(), 0) << "they wait for their pictures";
    End();
    ExpectAllAtTheNextStart(3);
}

TEST_F(ReminderEnds, WithManyOnTheirWayItEndsAndTheListHasThemAll) {
    FileMany(45);
    ASSERT_TRUE(WaitFor([this] { return Listed() > 0; }));
    End();
    ExpectAllAtTheNextStart(45);
}

} // namespace
} // namespace roads
