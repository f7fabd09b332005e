#include "host/app/FirstStart.h"

#include "hands/Hands.h"
#include "host/app/Client.h"
#include "host/app/FolderMemory.h"
#include "host/app/Program.h"
#include "host/session/HostSession.h"
#include "host/ui/FirstStartPage.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "site/ICatalogue.h"
#include "site/SetupState.h"
#include "tests/roads/RoadHands.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WaitFor.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include <gmock/gmock.h>

#include <deque>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::ModalVisit;
using testing::Contains;

/// An environment variable of a test.
class Variable final {
public:
    Variable(const char* name, const QString& value) : m_name(name), m_before(qgetenv(name)) {
        qputenv(name, value.toUtf8());
    }
    ~Variable() {
        if (m_before.isEmpty()) {
            qunsetenv(m_name);
        } else {
            qputenv(m_name, m_before);
        }
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_name;
    QByteArray m_before;
};

/// Somebody's first start, in a home of the test's own.
class FirstStart : public testing::Test {
protected:
    void SetUp() override { line.isWatched = true; }

    /// The modal windows that come one after another, and what is done in each.
    struct Visit {
        QString window;
        ModalVisit::Action action;
    };
    void Expect(const QString& window, ModalVisit::Action action) {
        m_toCome.push_back({window, std::move(action)});
        if (m_toCome.size() == 1 && (m_visit == nullptr || m_visit->HasCome())) {
            Await();
        }
    }
    void ExpectPage(const ModalVisit::Action& action) { Expect(u"firstStartPage"_s, action); }
    void ExpectEscape() {
        ExpectPage([](QWidget& page) { hands::PressKey(&page, Qt::Key_Escape); });
    }

    static void Choose(const QWidget& page, const QString& card) {
        page.findChild<QAbstractButton*>(card)->click();
    }
    static void MakeNewSite(QWidget& page) {
        Choose(page, u"chooseNewSite"_s);
        page.findChild<QLineEdit*>(u"firstProject"_s)->setText(u"一号楼"_s);
        page.findChild<QLineEdit*>(u"firstPerson"_s)->setText(u"王强"_s);
        page.findChild<QAbstractButton*>(u"firstMake"_s)->click();
    }
    void MakeNewSiteIn(QWidget& page, const QString& path) {
        prompts.ExpectFolder(u"选择存放站点的空文件夹"_s, path);
        page.findChild<QAbstractButton*>(u"firstChange"_s)->click();
        MakeNewSite(page);
    }
    void OpenFolderOf(const QWidget& page, const QString& path) {
        prompts.ExpectFolder(u"打开已有的数据文件夹"_s, path);
        Choose(page, u"chooseFolder"_s);
    }
    static QString NoteOf(const QWidget& page) {
        const auto* note = page.findChild<QLabel*>(u"firstNote"_s);
        return note->isVisible() ? note->text() : QString();
    }

    [[nodiscard]] QStringList AllFiles() const {
        QStringList names;
        QDirIterator all(folder.Path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            names << all.next();
        }
        return names;
    }
    host::Beginning Begin() { return host::BeginClient(session, line); }
    void ExpectGivenUp(const host::Beginning& beginning) {
        EXPECT_FALSE(beginning.site.goOn);
        EXPECT_TRUE(beginning.site.fault.isEmpty()) << beginning.site.fault.toStdString();
        EXPECT_FALSE(session.IsOpen());
    }

    support::TempFolder folder;
    const Variable config{"XDG_CONFIG_HOME", folder.Path(u"config"_s)};
    const Variable share{"XDG_DATA_HOME", folder.Path(u"share"_s)};
    support::AnsweredPrompts prompts;
    host::CommandLine line;
    host::HostSession session;

private:
    void Await() {
        const Visit visit = m_toCome.front();
        m_visit = std::make_unique<ModalVisit>(visit.window, [this, visit](QWidget& window) {
            visit.action(window);
            m_toCome.pop_front();
            if (!m_toCome.empty()) {
                // Not inside of the visit that it replaces.
                QTimer::singleShot(0, qApp, [this] { Await(); });
            }
        });
    }

    std::deque<Visit> m_toCome;
    std::unique_ptr<ModalVisit> m_visit;
};

TEST_F(FirstStart, WhoGivesUpLeavesNothingBehind) {
    ExpectEscape();
    EXPECT_EQ(host::RunClient(line), host::kExitDone);
    EXPECT_EQ(AllFiles(), QStringList());
}

TEST_F(FirstStart, TheNamedFolderIsntMadeEither) {
    line.dataFolder = folder.Path(u"a/b"_s);
    ExpectPage([](QWidget& page) {
        EXPECT_EQ(NoteOf(page), QString());
        page.close();
    });
    EXPECT_EQ(host::RunClient(line), host::kExitDone);
    EXPECT_EQ(AllFiles(), QStringList());
}

TEST_F(FirstStart, WithoutAnybodyAtTheWindowsOrWithASampleNamedNothingIsAsked) {
    line.sample = sample::SampleSize::None;
    EXPECT_TRUE(Begin().site.goOn);
    EXPECT_TRUE(session.IsOpen());
    EXPECT_EQ(session.Site().Place(), host::OwnDataFolder());
}

TEST_F(FirstStart, ASiteWithSomebodyInItOpensWithoutAQuestionAndGetsNoSample) {
    static_cast<void>(MakeSmallSite(folder.Path(u"data"_s)));
    line.dataFolder = folder.Path(u"data"_s);
    EXPECT_TRUE(Begin().site.goOn);
    EXPECT_EQ(session.Site().Catalogue().Projects().size(), 2U);
}

TEST_F(FirstStart, ANewSiteHasItsProjectAndAFirstPersonWhoMayDoEverything) {
    ExpectPage(MakeNewSite);
    const host::Beginning beginning = Begin();
    ASSERT_TRUE(beginning.site.goOn);
    EXPECT_EQ(beginning.userName, u"王强"_s);
    EXPECT_EQ(session.Site().Place(), host::OwnDataFolder());
    ASSERT_EQ(session.Site().Catalogue().Projects().size(), 1U);
    EXPECT_EQ(session.Site().Catalogue().Projects().front().name, u"一号楼"_s);
    ASSERT_TRUE(session.SignIn(u"王强"_s));
    for (const qint32 right : {5, 21, 22, 38, site::kRightSetup}) {
        EXPECT_TRUE(session.HasRight(right)) << right;
    }
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"config"_s)));
}

TEST_F(FirstStart, ASiteThatNobodyHasUsedIsAskedForAgainAndTaken) {
    line.sample = sample::SampleSize::None;
    ASSERT_TRUE(Begin().site.goOn);
    session.Close();
    line.sample.reset();
    ExpectPage(MakeNewSite);
    EXPECT_TRUE(Begin().site.goOn);
    EXPECT_EQ(session.Site().Place(), host::OwnDataFolder());
}

TEST_F(FirstStart, ANewSiteElsewhereIsOpenedTheNextTimeAndTheCommandLineGoesFirst) {
    const QString there = folder.Path(u"there"_s);
    ExpectPage([&](QWidget& page) { MakeNewSiteIn(page, there); });
    ASSERT_TRUE(Begin().site.goOn);
    session.Close();
    ASSERT_TRUE(Begin().site.goOn);
    EXPECT_EQ(session.Site().Place(), there);
    session.Close();
    static_cast<void>(MakeSmallSite(folder.Path(u"data"_s)));
    line.dataFolder = folder.Path(u"data"_s);
    ASSERT_TRUE(Begin().site.goOn);
    EXPECT_EQ(session.Site().Place(), line.dataFolder);
    EXPECT_EQ(host::RememberedFolder(), there);
    EXPECT_FALSE(QFileInfo::exists(host::OwnDataFolder()));
}

TEST_F(FirstStart, WhatTheCommandLineNamesIsntRemembered) {
    line.dataFolder = folder.Path(u"data"_s);
    ExpectPage(MakeNewSite);
    ASSERT_TRUE(Begin().site.goOn);
    EXPECT_EQ(host::RememberedFolder(), QString());
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"config"_s)));
}

TEST_F(FirstStart, AFolderWithoutASiteIsToldAndStaysAsItIsAndOneWithASiteIsOpened) {
    ASSERT_TRUE(QDir(folder.Path()).mkdir(u"empty"_s));
    folder.Write(u"mine/note.txt"_s, "mine");
    static_cast<void>(MakeSmallSite(folder.Path(u"data"_s)));
    ExpectPage([&](QWidget& page) { OpenFolderOf(page, folder.Path(u"empty"_s)); });
    ExpectPage([&](QWidget& page) {
        EXPECT_TRUE(NoteOf(page).contains(folder.Path(u"empty"_s))) << NoteOf(page).toStdString();
        EXPECT_TRUE(QDir(folder.Path(u"empty"_s)).isEmpty());
        OpenFolderOf(page, folder.Path(u"mine"_s));
    });
    ExpectPage([&](QWidget& page) {
        EXPECT_TRUE(NoteOf(page).contains(u"note.txt"_s)) << NoteOf(page).toStdString();
        OpenFolderOf(page, folder.Path(u"data"_s));
    });
    ASSERT_TRUE(Begin().site.goOn);
    EXPECT_EQ(QDir(folder.Path(u"mine"_s)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
              QStringList{u"note.txt"_s});
    EXPECT_EQ(session.Site().Place(), folder.Path(u"data"_s));
    EXPECT_EQ(host::RememberedFolder(), folder.Path(u"data"_s));
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"share"_s)));
}

TEST_F(FirstStart, AFolderThatIsGoneIsToldAndNotMadeAnew) {
    ASSERT_TRUE(host::RememberFolder(folder.Path(u"gone"_s)));
    ExpectPage([&](QWidget& page) {
        EXPECT_EQ(NoteOf(page), host::LostFolderText(folder.Path(u"gone"_s)));
        hands::PressKey(&page, Qt::Key_Escape);
    });
    ExpectGivenUp(Begin());
    line.isWatched = false; // as for an import from a terminal
    EXPECT_TRUE(Begin().site.fault.contains(u"--data"_s));
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"gone"_s)));
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"share"_s)));
}

TEST_F(FirstStart, TheUsersOwnFolderNeedsNoMemory) {
    ASSERT_TRUE(host::RememberFolder(folder.Path(u"gone"_s)));
    ExpectPage(MakeNewSite);
    ASSERT_TRUE(Begin().site.goOn);
    EXPECT_EQ(session.Site().Place(), host::OwnDataFolder());
    EXPECT_EQ(host::RememberedFolder(), QString());
}

TEST_F(FirstStart, ASiteInTheUsersOwnFolderIsLeftAloneWhereTheChosenOneIsGone) {
    static_cast<void>(MakeSmallSite(host::OwnDataFolder()));
    ASSERT_TRUE(host::RememberFolder(folder.Path(u"gone"_s)));
    ExpectPage(MakeNewSite);
    ASSERT_TRUE(Begin().site.goOn);
    EXPECT_EQ(session.Site().Place(), host::OwnDataFolder() + u"-2"_s);
}

TEST_F(FirstStart, ANewSiteIsNotMadeOverAnotherNorAmongOthersFiles) {
    static_cast<void>(MakeSmallSite(folder.Path(u"data"_s)));
    folder.Write(u"mine/note.txt"_s, "mine");
    ExpectPage([&](QWidget& page) { MakeNewSiteIn(page, folder.Path(u"data"_s)); });
    ExpectPage([&](QWidget& page) {
        EXPECT_TRUE(NoteOf(page).contains(u"已经有站点"_s)) << NoteOf(page).toStdString();
        EXPECT_EQ(page.findChild<QLineEdit*>(u"firstProject"_s)->text(), u"一号楼"_s);
        MakeNewSiteIn(page, folder.Path(u"mine"_s));
    });
    ExpectPage([&](QWidget& page) {
        EXPECT_TRUE(NoteOf(page).contains(u"note.txt"_s)) << NoteOf(page).toStdString();
        page.close();
    });
    ExpectGivenUp(Begin());
    ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
    EXPECT_EQ(session.Site().Catalogue().Projects().size(), 2U);
}

TEST_F(FirstStart, WhereNothingCanBeWrittenThePageComesBackWithTheReason) {
    folder.Write(u"file"_s, "x");
    ExpectPage([&](QWidget& page) { MakeNewSiteIn(page, folder.Path(u"file/data"_s)); });
    ExpectPage([&](QWidget& page) {
        EXPECT_TRUE(NoteOf(page).contains(folder.Path(u"file/data"_s)));
        page.close();
    });
    ExpectGivenUp(Begin());
    EXPECT_EQ(AllFiles(), QStringList{folder.Path(u"file"_s)});
}

TEST_F(FirstStart, AFullDiskIsToldAndNothingHalfStays) {
    std::unique_ptr<support::FileSizeLimit> full;
    ExpectPage([&](QWidget& page) {
        full = std::make_unique<support::FileSizeLimit>(16 * 1024);
        MakeNewSite(page);
    });
    ExpectPage([&](QWidget& page) {
        full.reset();
        EXPECT_FALSE(NoteOf(page).isEmpty());
        EXPECT_EQ(AllFiles(), QStringList());
        page.close();
    });
    ExpectGivenUp(Begin());
}

TEST_F(FirstStart, ASampleThatIsCancelledLeavesNothingAndComesBackToThePage) {
    ExpectPage([](QWidget& page) { Choose(page, u"chooseSample"_s); });
    Expect(u"progressWindow"_s, [](QWidget& window) {
        window.findChild<QAbstractButton*>(u"progressCancel"_s)->click();
        window.hide(); // the work ends with its next report
    });
    ExpectPage([&](QWidget& page) {
        EXPECT_TRUE(NoteOf(page).contains(u"已取消"_s)) << NoteOf(page).toStdString();
        EXPECT_EQ(AllFiles(), QStringList());
        hands::PressKey(&page, Qt::Key_Escape);
    });
    ExpectGivenUp(Begin());
    EXPECT_EQ(AllFiles(), QStringList());
}

QStringList MessageTextsOf(const host::MainWindow& window) {
    QStringList texts;
    for (const host::HostMessage& message : window.Messages().Messages()) {
        texts << message.text;
    }
    return texts;
}

TEST_F(FirstStart, TheClientOpensOnTheNewSiteAndSaysWhatComesNext) {
    QStringList messages;
    QString user;
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, qApp, [&] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* window = qobject_cast<host::MainWindow*>(widget);
            if (window != nullptr && window->isVisible() &&
                !window->Messages().Messages().empty()) {
                messages = MessageTextsOf(*window);
                user = window->findChild<QLabel*>(u"userName"_s)->text();
                looks.stop();
                window->close();
            }
        }
    });
    looks.start(10);
    ExpectPage(MakeNewSite);
    EXPECT_EQ(host::RunClient(line), host::kExitDone);
    EXPECT_THAT(messages, Contains(u"站点已建好。下一步：在“文件 → 设置”里录入楼层、轴线、标识和"
                                   "人员，然后导入照片。"_s));
    EXPECT_EQ(user, u"王强"_s);
}

} // namespace
} // namespace roads
