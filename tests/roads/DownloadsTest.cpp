// Downloads in the real client, through its console and a viewer of the real module.
#include "hands/Hands.h"
#include "tests/roads/ClientFixture.h"

#include "host/app/ModuleLoader.h"
#include "include/IKXVeskPicture.h"
#include "tests/support/HastyClock.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/Prompts.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPushButton>
#include <QTimer>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using site::TransferFault;
using support::WaitFor;
using tour::ConsoleTotal;

/// Chooses a folder and says no to all questions.
class FolderChoice final : public toolkit::IPrompts {
public:
    explicit FolderChoice(const QString& chosen)
        : folder(chosen), m_before(toolkit::SetPrompts(this)) {}
    ~FolderChoice() override { toolkit::SetPrompts(m_before); }

    const QString folder;
    QStringList questions;

    void ShowMessage(toolkit::WindowId, const QString& text) override { questions << text; }
    bool AskOkCancel(toolkit::WindowId, const QString&) override { return false; }
    bool AskYesNo(toolkit::WindowId, const QString& text) override {
        questions << text;
        return false;
    }
    QString AskFolder(toolkit::WindowId, const QString&) override { return folder; }
    QString AskSaveFile(const toolkit::SaveFileRequest&) override { return folder + u"/a.jpg"_s; }
    QStringList AskOpenFiles(const toolkit::OpenFilesRequest&) override { return {}; }
    void OpenFolder(const QString&) override {}
    void RevealFile(const QString&) override {}

private:
    toolkit::IPrompts* m_before;
};

class DownloadsInTheClient : public ClientOnAFolder {
protected:
    void SetUp() override {
        // The module's workers must not come late to a folder that is gone. They may look at the
        // clock until the program ends.
        static support::HastyClock clock;
        toolkit::SetClock(&clock);
        ClientOnAFolder::SetUp();
        QDir().mkpath(folder.Path(u"out"_s));
        ASSERT_FALSE(module.Load(QCoreApplication::applicationDirPath()));
    }
    void TearDown() override { toolkit::SetClock(nullptr); }
    /// In the order in which the program ends.
    void End() {
        client->Stop();
        client.reset();
        session.Close();
        support::RunPendingEvents();
    }
    void StartAgain() {
        ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
        ASSERT_TRUE(session.SignIn(u"张伟"_s));
        Start();
    }

    /// The console with its first rows ticked.
    void Tick(int rows) {
        ASSERT_TRUE(Press(Qt::Key_1));
        ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
        ASSERT_TRUE(WaitFor([rows] {
            if (tour::ConsoleCheckedRows() < rows) {
                tour::ClickConsoleCheck(tour::ConsoleCheckedRows());
            }
            return tour::ConsoleCheckedRows() == rows;
        }));
    }
    static bool PressDownload() {
        return WaitFor([] { return hands::Click(tour::ConsoleControl(u"downloadButton"_s)); });
    }
    void ViewFirstPhoto() {
        const QStringList before = WindowTitles();
        module.Pictures()->ViewBimPic(
            {site.positionKey, site.photos[0], u"-1"_s, 1, site.firstProject});
        ASSERT_TRUE(WaitFor([&] { return WindowTitles().size() > before.size(); }));
    }
    [[nodiscard]] static QStringList WindowTitles() {
        QStringList titles;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->isWindow()) {
                titles << window->windowTitle();
            }
        }
        return titles;
    }
    [[nodiscard]] QStringList Saved() const {
        return QDir(folder.Path(u"out"_s)).entryList(QDir::Files | QDir::Hidden);
    }
    [[nodiscard]] QStringList Cached() const {
        return QDir(folder.Path(u"data/cache/%1/pics"_s.arg(site.firstProject)))
            .entryList(QDir::Files | QDir::Hidden);
    }
    /// Whatever lies in the cache is whole and bears its final name.
    void ExpectNothingHalf() const {
        for (const QString& name : Cached()) {
            EXPECT_TRUE(name.endsWith(u".jpg"_s)) << name.toStdString();
            EXPECT_FALSE(
                QImage(folder.Path(u"data/cache/%1/pics/%2"_s.arg(site.firstProject).arg(name)))
                    .isNull());
        }
    }

    host::ModuleLoader module;
};

TEST_F(DownloadsInTheClient, TickedPhotosCopyIntoTheChosenFolder) {
    const FolderChoice choice(folder.Path(u"out"_s));
    Tick(3);
    ASSERT_TRUE(PressDownload());
    EXPECT_TRUE(WaitFor([this] { return Saved().size() == 3; }));
    EXPECT_EQ(choice.questions, QStringList{u"下载成功，是否打开下载照片的所在目录？"_s});
    EXPECT_EQ(Cached().size(), 3);
    EXPECT_EQ(tour::FindWindow(u"progressWindow"_s), nullptr);
}

TEST_F(DownloadsInTheClient, ABatchThatFailsSaysWhyAndBlocksNothing) {
    const FolderChoice choice(folder.Path(u"out"_s));
    Tick(3);
    session.Desk()->SetRules({0, TransferFault::InTheMiddle});
    ASSERT_TRUE(PressDownload());
    ASSERT_TRUE(WaitFor([this] { return !Messages().isEmpty(); }));
    EXPECT_EQ(Messages().front(), u"下载文件失败：文件传输中断，请检查网络后重试。"_s);
    EXPECT_TRUE(choice.questions.isEmpty());
    EXPECT_TRUE(Saved().isEmpty());
    EXPECT_TRUE(Cached().isEmpty());
    // Once the window would have come up, the client still takes orders.
    EXPECT_TRUE(WaitFor([] { return hands::CloseWindow(tour::Console()); }));
    EXPECT_TRUE(Press(Qt::Key_B));
    EXPECT_TRUE(WaitFor([] { return tour::FindWindow(u"binWindow"_s) != nullptr; }));
}

TEST_F(DownloadsInTheClient, ASlowBatchThatFailsLeavesAProgressWindowThatCanBeClosed) {
    const FolderChoice choice(folder.Path(u"out"_s));
    Tick(3);
    session.Desk()->SetRules({600});
    QTimer later; // while the second one comes: the third will fail
    QObject::connect(&later, &QTimer::timeout, [&] {
        if (Saved().size() == 1) {
            session.Desk()->SetRules({0, TransferFault::AtStart});
        }
    });
    later.start(1);
    ASSERT_TRUE(PressDownload());
    ASSERT_TRUE(WaitFor([this] { return !Messages().isEmpty(); }));
    EXPECT_LT(Saved().size(), 3);
    QWidget* progress = tour::FindWindow(u"progressWindow"_s);
    ASSERT_NE(progress, nullptr) << "it stays open";
    ASSERT_TRUE(WaitFor([progress] { return !progress->isModal(); }));
    EXPECT_TRUE(WaitFor([progress] {
        return hands::Click(progress->findChild<QPushButton*>(u"progressCancel"_s));
    }));
    EXPECT_EQ(tour::FindWindow(u"progressWindow"_s), nullptr);
}

TEST_F(DownloadsInTheClient, AnotherProjectMayBeOpenedWhileAViewerFetches) {
    for (const site::TransferRules& rules :
         {site::TransferRules{20}, site::TransferRules{0, TransferFault::NeverEnds}}) {
        session.Desk()->SetRules(rules);
        ViewFirstPhoto();
        ASSERT_TRUE(ChooseProject(u"二期工程"_s));
        ASSERT_TRUE(WaitFor([] { return WindowTitles().size() == 1; }));
        ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    }
    End();
    ExpectNothingHalf();
}

TEST_F(DownloadsInTheClient, TheClientMayEndWhileAViewerFetches) {
    for (const site::TransferRules& rules :
         {site::TransferRules{20}, site::TransferRules{0, TransferFault::NeverEnds},
          site::TransferRules{}}) {
        if (!client) {
            StartAgain();
        }
        session.Desk()->SetRules(rules);
        ViewFirstPhoto();
        End();
        ExpectNothingHalf();
    }
}

} // namespace
} // namespace roads
