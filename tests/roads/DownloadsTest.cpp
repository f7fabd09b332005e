// Downloads in the real client, through its console and a viewer of the real module.
#include "host/app/Client.h"
#include "host/app/ModuleLoader.h"
#include "host/data/HostSession.h"
#include "host/tour/ConsoleEyes.h"
#include "host/tour/TourDriver.h"
#include "host/tour/TourEyes.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "include/IKXVeskPicture.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"
#include "toolkit/Prompts.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using host::TransferFault;
using host::tour::ConsoleTotal;
using support::WaitFor;

/// Chooses a folder and says no to all questions.
class FolderChoice final : public toolkit::IPrompts {
public:
    explicit FolderChoice(const QString& chosen)
        : folder(chosen), before(toolkit::SetPrompts(this)) {}
    ~FolderChoice() override { toolkit::SetPrompts(before); }

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
    toolkit::IPrompts* before;
};

class DownloadsInTheClient : public testing::Test {
protected:
    void SetUp() override {
        site = MakeSmallSite(folder.Path(u"data"_s));
        QDir().mkpath(folder.Path(u"out"_s));
        OpenSession();
    }
    void OpenSession() {
        session = std::make_unique<host::HostSession>();
        ASSERT_FALSE(session->OpenFolder(folder.Path(u"data"_s)));
        ASSERT_TRUE(session->SignIn(u"张伟"_s));
        client = std::make_unique<host::Client>(*session);
        ASSERT_FALSE(client->Start(QCoreApplication::applicationDirPath()));
        ASSERT_TRUE(WaitFor([this] { return client->Window()->isVisible(); }));
        ASSERT_FALSE(module.Load(QCoreApplication::applicationDirPath()));
    }
    /// In the order in which the program ends.
    void EndSession() {
        client->Stop();
        client.reset();
        session.reset();
        support::RunPendingEvents();
    }

    /// The console with its first rows ticked.
    void Tick(int rows) {
        ASSERT_TRUE(WaitFor([this] {
            return host::tour::PressKey(client->Window(), Qt::Key_1, Qt::ControlModifier);
        }));
        ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 5; }));
        ASSERT_TRUE(WaitFor([rows] {
            if (host::tour::ConsoleCheckedRows() < rows)
                host::tour::ClickConsoleCheck(host::tour::ConsoleCheckedRows());
            return host::tour::ConsoleCheckedRows() == rows;
        }));
    }
    static bool PressDownload() {
        return WaitFor(
            [] { return host::tour::Click(host::tour::ConsoleControl(u"downloadButton"_s)); });
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
            if (window->isVisible() && window->isWindow())
                titles << window->windowTitle();
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
    [[nodiscard]] QStringList Messages() const {
        QStringList texts;
        for (const host::HostMessage& message : client->Window()->Messages().Messages())
            texts << message.text;
        return texts;
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

    /// Removed at the end of the program, when the module's workers have ended too.
    static support::TempFolder& NewFolder() {
        static std::vector<std::unique_ptr<support::TempFolder>> folders;
        return *folders.emplace_back(std::make_unique<support::TempFolder>());
    }

    support::TempFolder& folder = NewFolder();
    SmallSite site;
    std::unique_ptr<host::HostSession> session;
    std::unique_ptr<host::Client> client;
    host::ModuleLoader module;
};

TEST_F(DownloadsInTheClient, TickedPhotosCopyIntoTheChosenFolder) {
    const FolderChoice choice(folder.Path(u"out"_s));
    Tick(3);
    ASSERT_TRUE(PressDownload());
    EXPECT_TRUE(WaitFor([this] { return Saved().size() == 3; }));
    EXPECT_EQ(choice.questions, QStringList{u"下载成功，是否打开下载照片的所在目录？"_s});
    EXPECT_EQ(Cached().size(), 3);
    EXPECT_EQ(host::tour::FindWindow(u"progressWindow"_s), nullptr);
}

TEST_F(DownloadsInTheClient, ABatchThatFailsSaysWhyAndBlocksNothing) {
    const FolderChoice choice(folder.Path(u"out"_s));
    Tick(3);
    session->SetTransfers({0, TransferFault::kInTheMiddle});
    ASSERT_TRUE(PressDownload());
    ASSERT_TRUE(WaitFor([this] { return !Messages().isEmpty(); }));
    EXPECT_EQ(Messages().front(), u"下载文件失败：文件传输中断，请检查网络后重试。"_s);
    EXPECT_TRUE(choice.questions.isEmpty());
    EXPECT_TRUE(Saved().isEmpty());
    EXPECT_TRUE(Cached().isEmpty());
    // Once the window would have come up, the client still takes orders.
    EXPECT_TRUE(WaitFor([] { return host::tour::CloseWindow(host::tour::Console()); }));
    EXPECT_TRUE(WaitFor(
        [this] { return host::tour::PressKey(client->Window(), Qt::Key_B, Qt::ControlModifier); }));
    EXPECT_TRUE(WaitFor([] { return host::tour::FindWindow(u"binWindow"_s) != nullptr; }));
}

TEST_F(DownloadsInTheClient, ASlowBatchThatFailsLeavesAProgressWindowThatCanBeClosed) {
    const FolderChoice choice(folder.Path(u"out"_s));
    Tick(3);
    session->SetTransfers({600});
    QTimer later; // while the second one comes: the third will fail
    QObject::connect(&later, &QTimer::timeout, [&] {
        if (Saved().size() == 1)
            session->SetTransfers({0, TransferFault::kAtStart});
    });
    later.start(1);
    ASSERT_TRUE(PressDownload());
    ASSERT_TRUE(WaitFor([this] { return !Messages().isEmpty(); }));
    EXPECT_LT(Saved().size(), 3);
    QWidget* progress = host::tour::FindWindow(u"progressWindow"_s);
    ASSERT_NE(progress, nullptr) << "it stays open";
    ASSERT_TRUE(WaitFor([progress] { return !progress->isModal(); }));
    EXPECT_TRUE(WaitFor([progress] {
        return host::tour::Click(progress->findChild<QPushButton*>(u"progressCancel"_s));
    }));
    EXPECT_EQ(host::tour::FindWindow(u"progressWindow"_s), nullptr);
}

TEST_F(DownloadsInTheClient, AnotherProjectMayBeOpenedWhileAViewerFetches) {
    for (const host::TransferRules& rules :
         {host::TransferRules{20}, host::TransferRules{0, TransferFault::kNeverEnds}}) {
        session->SetTransfers(rules);
        ViewFirstPhoto();
        auto* combo = client->Window()->findChild<QComboBox*>(u"projectChoice"_s);
        ASSERT_TRUE(WaitFor([combo] { return host::tour::ChooseInCombo(combo, u"二期工程"_s); }));
        ASSERT_TRUE(WaitFor([] { return WindowTitles().size() == 1; }));
        ASSERT_TRUE(WaitFor([combo] { return host::tour::ChooseInCombo(combo, u"一期工程"_s); }));
    }
    EndSession();
    ExpectNothingHalf();
}

TEST_F(DownloadsInTheClient, TheClientMayEndWhileAViewerFetches) {
    for (const host::TransferRules& rules :
         {host::TransferRules{20}, host::TransferRules{0, TransferFault::kNeverEnds},
          host::TransferRules{}}) {
        if (session == nullptr)
            OpenSession();
        session->SetTransfers(rules);
        ViewFirstPhoto();
        EndSession();
        ExpectNothingHalf();
    }
}

} // namespace
} // namespace roads
