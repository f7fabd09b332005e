// From a message to its toast through the facade, as a host asks for it.
#include "frame/KXVeskPictureImpl.h"
#include "reminder/feed/ReminderFeed.h"
#include "reminder/popups/VeskMsgDlg.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/Hands.h"
#include "tests/support/RecordingMainWindow.h"
#include "tests/support/RecordingSinks.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/Toasts.h"
#include "tests/support/WaitFor.h"
#include "toolkit/GbkText.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPushButton>

#include <gtest/gtest.h>

#include <algorithm>
#include <semaphore>

using namespace Qt::StringLiterals;

using support::RunPendingEvents;
using support::ToastLines;
using support::ToastsInSight;
using support::WaitFor;

namespace {

std::string PhotoText(const QString& name) {
    return toolkit::ToGbk(
        u"{\"ppid\":1,\"markerId\":2,\"picId\":7,\"intersectionId\":\"K7\",\"labels\":[],"
        "\"name\":\"%1\",\"pos\":\"B/7\",\"username\":\"李娜\",\"uuid\":\"u-1\",\"floor\":\"1\"}"_s
            .arg(name));
}

std::string IssueText(const QString& theme) {
    return toolkit::ToGbk(
        u"{\"ppid\":1,\"markerId\":2,\"username\":\"李娜\",\"questionId\":\"q\","
        "\"questionName\":\"%1\",\"pos\":\"墙\",\"handle\":\"4F\",\"uuid\":\"u-1\","
        "\"floor\":\"1\",\"compName\":\"墙-3\"}"_s.arg(theme));
}

class ReadyPopups : public testing::Test {
protected:
    ReadyPopups() {
        host.files.stored[u"u-1"_s] = "jpeg";
        facade.SetPicSink(&sink);
    }
    ~ReadyPopups() override {
        CBCGPPopupWindow::CloseAll();
        RunPendingEvents();
        CKXVeskPictureImpl::ReleaseInstance();
    }
    /// Holds the reminder thread in each download until it is let go once.
    void HoldDownloads() {
        host.script.During("DownloadFile", [this] {
            entered.release();
            open.acquire();
        });
    }
    [[nodiscard]] bool WaitForEvent(int number) {
        return WaitFor([this, number] {
            const auto lines = host.Log().LinesOf({"MainWindow"});
            return std::any_of(lines.begin(), lines.end(), [number](const std::string& line) {
                return line.find("event=" + std::to_string(number)) != std::string::npos;
            });
        });
    }

    support::ScriptedHost host;
    support::RecordingMainWindow window{host.script};
    support::RecordingSink sink{host.script};
    CKXVeskPictureImpl& facade = CKXVeskPictureImpl::Instance();
    std::binary_semaphore entered{0};
    std::binary_semaphore open{0};
};

TEST_F(ReadyPopups, AllThatIsReadyIsShownAtOnceInTheOrderOfItsMessages) {
    HoldDownloads();
    facade.OnPicMessage(window.Id(), PhotoText(u"甲"_s));
    entered.acquire();
    facade.OnPicMessage(window.Id(), PhotoText(u"乙"_s));
    facade.OnPicMessage(window.Id(), PhotoText(u"丙"_s));
    for (int download = 0; download < 2; ++download) {
        open.release();
        entered.acquire();
    }
    ASSERT_TRUE(WaitForEvent(reminder::kPicMessageEvent)) << "of the first batch";
    host.Log().Clear();
    open.release();
    ASSERT_TRUE(WaitForEvent(reminder::kPicMessageEvent)) << "of the second one";
    EXPECT_EQ(ToastLines(), QStringList()) << "until the host asks";
    facade.ShowPicPopups(window.Id());
    EXPECT_EQ(ToastLines(), (QStringList{u"名称:甲"_s, u"名称:乙"_s, u"名称:丙"_s}));
    facade.ShowPicPopups(window.Id());
    EXPECT_EQ(ToastsInSight().size(), 3U) << "each once";
}

TEST_F(ReadyPopups, APhotoInABatchWhoseLastIsAnIssueIsShownAsOne) {
    HoldDownloads();
    facade.OnPicMessage(window.Id(), PhotoText(u"甲"_s));
    entered.acquire();
    facade.OnIssueMessage(window.Id(), IssueText(u"漏水"_s));
    open.release();
    entered.acquire();
    open.release();
    ASSERT_TRUE(WaitForEvent(reminder::kIssueMessageEvent));
    ASSERT_TRUE(WaitFor([this] {
        facade.ShowIssuePopups(window.Id());
        return ToastsInSight().size() == 2;
    }));
    EXPECT_EQ(ToastLines(), (QStringList{u"问题主题:"_s, u"问题主题:漏水"_s}));
    for (const QWidget* toast : ToastsInSight()) {
        EXPECT_EQ(toast->windowTitle(), u"TN问题提醒"_s);
    }
}

TEST_F(ReadyPopups, AChangeOfProjectLeavesWhatIsReadyAndWhatIsOnItsWayAlone) {
    support::RecordingHub hub{host.script};
    facade.AttachObservers(&hub);
    facade.OnPicMessage(window.Id(), PhotoText(u"甲"_s));
    ASSERT_TRUE(WaitForEvent(reminder::kPicMessageEvent));
    HoldDownloads();
    facade.OnPicMessage(window.Id(), PhotoText(u"乙"_s));
    entered.acquire();
    facade.OnPicMessage(window.Id(), PhotoText(u"丙"_s));
    host.project.project = KX_DATA::ProjectRecord{u"二"_s, 2};
    dynamic_cast<KXFRAME::IProjChangeObs&>(*hub.observers.at(0)).OnProjChange();
    open.release();
    entered.acquire();
    open.release();
    EXPECT_TRUE(WaitFor([this] {
        facade.ShowPicPopups(window.Id());
        return ToastsInSight().size() == 3;
    }));
    EXPECT_EQ(ToastLines(), (QStringList{u"名称:甲"_s, u"名称:乙"_s, u"名称:丙"_s}));
}

TEST_F(ReadyPopups, AToastMayEndWhileTheMessageOfItsClickStandsOpen) {
    support::AnsweredPrompts prompts;
    KX_DATA::PicMsgRecord record;
    record.questionId = u"q"_s;
    reminder::ShowPopup(record, toolkit::kNoWindow, reminder::kIssuePopup);
    host.script.FailNext("LocateIssue");
    prompts.ExpectMessage(u"请先开启TN问题显示再定位！"_s);
    prompts.Meanwhile([] {
        CBCGPPopupWindow::CloseAll();
        RunPendingEvents();
        EXPECT_TRUE(ToastsInSight().empty());
    });
    support::Click(ToastsInSight().at(0)->findChild<QWidget*>(u"look"_s));
    EXPECT_TRUE(prompts.AllAnswered());
}

TEST_F(ReadyPopups, AnIssuesPreviewIsPaintedAgainAfterEightSecondsAndBothCloseAfterTen) {
    reminder::ShowPopup({}, toolkit::kNoWindow, reminder::kPicPopup);
    reminder::ShowPopup({}, toolkit::kNoWindow, reminder::kIssuePopup);
    QElapsedTimer since;
    since.start();
    struct PreviewPaints final : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return QObject::eventFilter(watched, event);
        }
        int count = 0;
    } ofPhoto, ofIssue;
    const std::vector<QWidget*> toasts = ToastsInSight();
    ASSERT_EQ(toasts.size(), 2U);
    std::vector<QWidget*> dialogs;
    for (QWidget* toast : toasts) {
        dialogs.push_back(toast->findChild<QWidget*>(u"preview"_s)->parentWidget());
    }
    const auto move = [&dialogs] {
        for (QWidget* dialog : dialogs) {
            QMouseEvent event(QEvent::MouseMove, QPointF(5, 5), dialog->mapToGlobal(QPointF(5, 5)),
                              Qt::NoButton, Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(dialog, &event);
        }
        RunPendingEvents();
    };
    // Fading in and the first move may paint.
    constexpr int kPreviewMs = 8'000;
    constexpr int kOpenMs = 10'000;
    constexpr int kLate = 100; // the clock starts after the toasts
    ASSERT_TRUE(WaitFor([&] {
        return std::all_of(toasts.begin(), toasts.end(),
                           [](const QWidget* toast) { return toast->windowOpacity() >= 1; });
    }));
    move();
    toasts[0]->findChild<QWidget*>(u"preview"_s)->installEventFilter(&ofPhoto);
    toasts[1]->findChild<QWidget*>(u"preview"_s)->installEventFilter(&ofIssue);
    ASSERT_TRUE(WaitFor([&] {
        move();
        return ofIssue.count > 0;
    }));
    EXPECT_GE(since.elapsed(), kPreviewMs - kLate);
    EXPECT_EQ(ofPhoto.count, 0) << "a photo has no timer";
    EXPECT_EQ(ToastsInSight().size(), 2U);
    ASSERT_TRUE(WaitFor([] { return ToastsInSight().empty(); }));
    EXPECT_GE(since.elapsed(), kOpenMs - kLate);
}

} // namespace
