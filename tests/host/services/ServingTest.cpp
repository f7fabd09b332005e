// What the services work on: a session from the making of a Serving to its end, what the program
// lends, the present time.
#include "services/Factories.h"
#include "services/IExProgress.h"
#include "services/IKXAuthMng.h"
#include "services/IKXPathMng.h"
#include "services/IKXSysMng.h"
#include "services/IKXView.h"
#include "services/IProjCacheMng.h"
#include "services/ITNQuestionMng.h"
#include "services/IVeskPicMng.h"
#include "services/RichTextRecords.h"
#include "site/IBimPhotos.h"
#include "site/ICatalogue.h"
#include "site/IChanges.h"
#include "site/IIntake.h"
#include "site/sqlite/Database.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"
#include "toolkit/Clock.h"
#include "toolkit/GbkText.h"

#include <QDir>

#include <atomic>
#include <thread>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

constexpr qint64 kNow = 1'772'683'200; ///< 2026-03-05

/// Stands still at kNow while it lives.
class StandingClock final : public toolkit::IClock {
public:
    StandingClock() : m_before(toolkit::SetClock(this)) {}
    ~StandingClock() override { toolkit::SetClock(m_before); }
    StandingClock(const StandingClock&) = delete;
    StandingClock& operator=(const StandingClock&) = delete;

    qint64 NowSeconds() override { return kNow; }
    void SleepMilliseconds(int /*milliseconds*/) override {}

private:
    toolkit::IClock* m_before;
};

} // namespace

namespace {

/// What is written to the log while it lives.
class LogLines final {
public:
    LogLines() : m_before(qInstallMessageHandler(&LogLines::Take)) {
        lines.clear();
        warnings.clear();
    }
    ~LogLines() { qInstallMessageHandler(m_before); }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;

    static inline QStringList lines;
    static inline QStringList warnings; ///< those of them that somebody ought to look into

private:
    static void Take(QtMsgType type, const QMessageLogContext& context, const QString& text) {
        Q_UNUSED(context);
        lines << text;
        if (type == QtWarningMsg || type == QtCriticalMsg) {
            warnings << text;
        }
    }

    QtMessageHandler m_before;
};

} // namespace

TEST(Serving, WithoutASessionTheLogNamesTheFolderThatWasAskedFor) {
    const LogLines log;
    QString folder;
    GetKXPathMng()->GetPicFolder(folder, 1, {});
    GetKXPathMng()->GetThumbFolder(folder, 1, {});
    EXPECT_EQ(folder, QString());
    ASSERT_EQ(LogLines::lines.size(), 2);
    EXPECT_TRUE(LogLines::lines[0].contains(u"读取照片文件夹"_s));
    EXPECT_TRUE(LogLines::lines[1].contains(u"读取缩略图文件夹"_s));
}

TEST(Serving, WhatAnotherPersonDeletedIsToldAndIsNoWarningInTheLog) {
    ServiceSite site;
    const LogLines log;
    EXPECT_FALSE(GetTNQuestionMng()->DeletePics(KX_DATA::kIssuePicKind, {u"gone"_s}));
    EXPECT_TRUE(site.messages.back().contains(u"可能已被他人删除"_s));
    EXPECT_TRUE(LogLines::lines.join(u'\n').contains(u"可能已被他人删除"_s));
    EXPECT_EQ(LogLines::warnings, QStringList());
}

TEST(Serving, AFaultOfTheDataIsAWarningInTheLog) {
    ServiceSite site;
    support::FolderOf(site.session).Db().Exec(u"DROP TABLE bim_tally"_s);
    const LogLines log;
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    EXPECT_EQ(GetVeskPicMng()->QueryBimPics(site.Filter(), {}, result, rows), 0);
    EXPECT_FALSE(LogLines::warnings.isEmpty());
}

TEST(Serving, WithoutASessionTheServicesAnswerWithFailures) {
    {
        ServiceSite site;
        EXPECT_TRUE(GetKXAuthMng()->HasRight(21));
    }
    EXPECT_FALSE(GetKXAuthMng()->HasRight(21));
    std::string name = "old";
    GetKXAuthMng()->GetUserName(name);
    EXPECT_EQ(name, "");
    std::vector<QString> floors;
    EXPECT_EQ(GetVeskPicMng()->GetProjectFloors(1, floors), 0);
    EXPECT_EQ(GetProjCacheMng()->GetCurrentProject()->GetProjectRecord(), nullptr);
    EXPECT_TRUE(GetProjCacheMng()->GetCurrentModel()->GetShownPicMarks().empty());
    EXPECT_EQ(TheServices().around.Desk(), nullptr);
    QString folder = u"old"_s;
    GetKXPathMng()->GetPicFolder(folder, 1, {});
    EXPECT_EQ(folder, QString());
}

TEST(Serving, WhatIsLentGoesBackWithItsEnd) {
    SilentProgress progress;
    {
        ServiceSite site;
        Surroundings& around = site.serving.Around();
        around.progress = &progress;
        around.imageFolder = u"/images"_s;
        around.withdraw = [](const QString&) {};
        EXPECT_EQ(GetExProgress(), &progress);
        site.serving.TakeBack();
        EXPECT_NE(GetExProgress(), &progress);
        EXPECT_NE(GetExProgress(), nullptr);
        EXPECT_TRUE(GetKXAuthMng()->HasRight(21)) << "the session stays";
        around.progress = &progress;
    }
    EXPECT_NE(GetExProgress(), &progress);
    EXPECT_TRUE(TheServices().around.imageFolder.isEmpty());
    EXPECT_FALSE(TheServices().around.withdraw);
    EXPECT_EQ(GetKXHoopsModuleMng()->GetView(), nullptr);
}

TEST(Serving, OneThatIsFollowedByAnotherTakesNothingFromIt) {
    ServiceSite site;
    SilentProgress progress;
    {
        auto first = std::make_unique<Serving>(site.session);
        const Serving second(site.session);
        second.Around().progress = &progress;
        first->TakeBack();
        EXPECT_EQ(GetExProgress(), &progress);
        first.reset();
        EXPECT_EQ(GetExProgress(), &progress);
        EXPECT_TRUE(GetKXAuthMng()->HasRight(21));
    }
    EXPECT_FALSE(GetKXAuthMng()->HasRight(21));
}

TEST(Serving, SetsOfServicesKnowNothingOfEachOther) {
    ServiceSite site;
    HostSession other;
    ServiceSet services;
    services.around.SetSession(&other);
    EXPECT_FALSE(services.authMng.HasRight(21));
    EXPECT_TRUE(GetKXAuthMng()->HasRight(21));
    EXPECT_EQ(services.around.Desk(), other.Desk());
    EXPECT_NE(TheServices().around.Desk(), other.Desk());
}

// As the reminder thread asks while a person changes the project.
TEST(Serving, ProjectAndFolderMayBeAskedForByAnyThread) {
    ServiceSite site;
    std::atomic<bool> isOver{false};
    std::thread asker([&] {
        while (!isOver) {
            const auto* record = GetProjCacheMng()->GetCurrentProject()->GetProjectRecord();
            if (record == nullptr) {
                continue;
            }
            EXPECT_EQ(record->name, record->ppid == site.first ? u"一号楼"_s : u"二号楼"_s);
            QString folder;
            GetKXPathMng()->GetPicFolder(folder, record->ppid, record->name);
            EXPECT_TRUE(folder.isEmpty() || folder.contains(QString::number(record->ppid)));
        }
    });
    for (int turn = 0; turn < 200; ++turn) {
        EXPECT_TRUE(site.session.OpenProject(turn % 2 == 0 ? site.second : site.first));
        site.session.CloseProject();
    }
    EXPECT_TRUE(site.session.OpenProject(site.first));
    site.writer.reset();
    site.session.Close();
    QString folder = u"old"_s;
    GetKXPathMng()->GetPicFolder(folder, site.first, {});
    EXPECT_EQ(folder, QString());
    isOver = true;
    asker.join();
    EXPECT_EQ(GetProjCacheMng()->GetCurrentProject()->GetProjectRecord(), nullptr);
}

TEST(ShownMarks, ComeInTheCodePageAndAreMadeOncePerChange) {
    ServiceSite site;
    site.session.ShowPhotos(
        {{u"地下一层"_s, {{1, {{u"甲/1"_s, {3, 5}}, {u"乙/2"_s, {4}}}}, {2, {}}}},
         {u"其他"_s, {}}});
    KX_DATA::IProjModelHandle* model = GetProjCacheMng()->GetCurrentModel();
    const KX_DATA::ShownPicMarks& shown = model->GetShownPicMarks();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_TRUE(shown.at(toolkit::ToGbk(u"其他"_s)).empty()) << "the whole floor";
    const auto& marks = shown.at(toolkit::ToGbk(u"地下一层"_s)).at(QString());
    EXPECT_TRUE(marks.at(2).empty()) << "the whole mark";
    std::vector<qint32> ids;
    for (const KX_DATA::ShownPicItem& item : marks.at(1)) {
        ids.push_back(item.picId);
    }
    EXPECT_EQ(ids, (std::vector<qint32>{3, 5, 4}));
    EXPECT_EQ(marks.at(1)[1].itemName, toolkit::ToGbk(u"甲/1"_s));
    EXPECT_EQ(marks.at(1)[2].itemName, toolkit::ToGbk(u"乙/2"_s));
    const void* made = &marks.at(1)[0];
    EXPECT_EQ(&model->GetShownPicMarks().at(toolkit::ToGbk(u"地下一层"_s)).at(QString()).at(1)[0],
              made);
    site.session.CloseProject();
    EXPECT_TRUE(model->GetShownPicMarks().empty());
}

TEST(PresentTime, IsThatOfTheClockSeamEverywhere) {
    const StandingClock clock;
    ServiceSite site;
    EXPECT_EQ(KX_DATA::RichTextMsg().updateTime, kNow);
    EXPECT_EQ(site.session.Site().Now(), kNow);
    GetKXSysMng()->WriteActionLog(u"删除Vesk照片"_s);
    EXPECT_EQ(site.session.Site().Catalogue().Actions(1).at(0).at, kNow);
    const qint32 id = site.AddPhoto([](site::NewBimPhoto&) {});
    ASSERT_TRUE(GetVeskPicMng()->DeleteBimPics({id}));
    const auto deleted =
        support::FolderOf(site.session).Db().Value(u"SELECT deleted_at FROM bin"_s);
    EXPECT_EQ(deleted.toLongLong(), kNow);
    const auto applied =
        support::FolderOf(site.session).Db().Value(u"SELECT min(applied) FROM schema_version"_s);
    EXPECT_EQ(applied.toLongLong(), kNow);
}

TEST(SiteTables, AreReadAnewOnlyAfterAChangeOfThem) {
    ServiceSite site;
    SiteTables& tables = site.session.Tables();
    EXPECT_EQ(tables.Marks().size(), 2U);
    EXPECT_EQ(tables.ProjectName(site.second), u"二号楼"_s);
    EXPECT_EQ(tables.ProjectName(4711), QString());
    // Behind the back of the feed.
    support::FolderOf(site.session).Db().Exec(u"UPDATE mark SET name = '背后' WHERE id = 1"_s);
    EXPECT_EQ(tables.Marks().at(1).name, u"质量"_s);
    site.writer->AddMark(3, u"进度"_s, 0xff0000);
    site.session.Site().Changes().Look();
    EXPECT_EQ(tables.Marks().size(), 3U);
    EXPECT_EQ(tables.Marks().at(1).name, u"背后"_s);
}

} // namespace host
