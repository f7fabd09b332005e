// From the viewers to a report in a file, and back to a client that answers again.
#include "hands/Hands.h"
#include "host/app/ReportFetch.h"
#include "host/ui/MainWindow.h"
#include "host/ui/report/ReportPreview.h"
#include "host/ui/report/ReportWindow.h"
#include "services/Factories.h"
#include "services/IPicReportCtrl.h"
#include "site/IBimPhotos.h"
#include "site/IBlobs.h"
#include "site/ICatalogue.h"
#include "site/IComments.h"
#include "site/IIssues.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/DrawingRoad.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/AmrFiles.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QtTest/QTest>
#include <QtTest/qtestspontaneevent.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

const QString kReport = u"reportWindow"_s;

host::ReportWindow* Report() {
    return qobject_cast<host::ReportWindow*>(tour::FindWindow(kReport));
}

QString ReportNotice() {
    return tour::ReadText(tour::FindIn(Report(), u"reportNotice"_s));
}

/// The content has come, with all pictures.
bool IsReportReady() {
    const QWidget* save = tour::FindIn(Report(), u"reportSave"_s);
    return save != nullptr && save->isEnabled();
}

/// Opens the report of a viewer and waits for its pages.
void AskForReport(const QWidget& viewer) {
    ClickOn(viewer, u"reportButton"_s);
    ASSERT_TRUE(WaitFor([] { return IsReportReady(); }));
}

/// Saves as a PDF; gives the texts of its pages in one line.
QString SavedText(const QString& path, const QString& proposed) {
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(proposed, path);
    ClickOn(*Report(), u"reportSave"_s);
    EXPECT_TRUE(WaitFor([] { return Report() != nullptr && !Report()->IsSaving(); }));
    EXPECT_EQ(ReportNotice(), u"报告已保存：%1"_s.arg(path));
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    EXPECT_TRUE(reader.waitForFinished(30'000));
    return QString::fromUtf8(reader.readAllStandardOutput()).simplified();
}

int PicturesIn(const QString& path) {
    QProcess reader;
    reader.start(u"pdfimages"_s, {u"-list"_s, path});
    EXPECT_TRUE(reader.waitForFinished(30'000));
    return static_cast<int>(reader.readAllStandardOutput().count(" jpeg "));
}

class ReportRoad : public PhotoRoad {
protected:
    void TearDown() override {
        delete Report();
        PhotoRoad::TearDown();
    }
    void OpenViewer() {
        ClickFlag(Plan(), site.positionKey, 1);
        ASSERT_TRUE(WaitFor([] { return Viewer() != nullptr; }));
        WaitForRecord();
    }
    [[nodiscard]] bool IsBlocked() const { return !client->Window()->isEnabled(); }
};

TEST_F(ReportRoad, APlaceBecomesAPdfWithItsPhotosPlanAndRecord) {
    OpenViewer();
    auto* sheet = Viewer()->findChild<QTextEdit*>(u"noteSheet"_s);
    ASSERT_TRUE(WaitFor([&] { return hands::TypeOver(sheet, u"混凝土强度合格"_s); }));
    AskForReport(*Viewer());
    const QString path = folder.Path(u"report.pdf"_s);
    const QString text = SavedText(path, u"照片报告 -1层 2-B轴 质量"_s);
    for (const QString& words :
         {u"照片报告"_s, u"一期工程"_s, u"楼层"_s, u"-1层"_s, u"2-B轴"_s, u"质量"_s, u"照片0.jpg"_s,
          u"上传：张伟"_s, u"整改记录"_s, u"混凝土强度合格"_s}) {
        EXPECT_TRUE(text.contains(words)) << qUtf8Printable(words) << qUtf8Printable(text);
    }
    EXPECT_GE(PicturesIn(path), 1);
}

TEST_F(ReportRoad, TheClientIsBlockedWhileTheWindowIsOpenAndFreeASecondLater) {
    OpenViewer();
    AskForReport(*Viewer());
    EXPECT_TRUE(IsBlocked());
    EXPECT_TRUE(Report()->isEnabled());
    support::AnsweredPrompts prompts; // nothing asks
    EXPECT_TRUE(hands::CloseWindow(Report()));
    EXPECT_TRUE(IsBlocked());
    EXPECT_TRUE(WaitFor([this] { return !IsBlocked(); }));
}

TEST_F(ReportRoad, AskedForTwiceThereIsOneWindowWithTheLatest) {
    OpenViewer();
    AskForReport(*Viewer());
    const QPointer<QWidget> first(Report());
    AskForReport(*Viewer());
    EXPECT_TRUE(first.isNull());
    int windows = 0;
    for (const QString& name : OpenWindows()) {
        windows += name == kReport ? 1 : 0;
    }
    EXPECT_EQ(windows, 1);
}

TEST_F(ReportRoad, AskedForWhileAFileIsMadeTheWindowStaysUntilItIsThere) {
    OpenViewer();
    AskForReport(*Viewer());
    const QPointer<QWidget> first(Report());
    {
        support::AnsweredPrompts prompts;
        prompts.ExpectSaveFile(u"照片报告 -1层 2-B轴 质量"_s, folder.Path(u"report.pdf"_s));
        // Nothing else happens between this and the next request.
        first->findChild<QPushButton*>(u"reportSave"_s)->click();
    }
    ASSERT_TRUE(Report()->IsSaving());
    const PIC_REPORT::BimReportRequest request;
    GetPicReportCtrl()->OutputBimReport(&request);
    EXPECT_EQ(Report(), first.data());
    EXPECT_TRUE(WaitFor([] { return Report() != nullptr && !Report()->IsSaving(); }));
    EXPECT_TRUE(folder.Read(u"report.pdf"_s).endsWith("%%EOF\n"));
}

TEST_F(ReportRoad, PicturesThatDoNotComeAreTold) {
    OpenViewer();
    // The other photos of the place, which the viewer hasn't fetched yet.
    session.Desk()->SetRules({0, site::TransferFault::AtStart});
    for (const QString& name : Cached()) {
        QFile::remove(name);
    }
    ClickOn(*Viewer(), u"reportButton"_s);
    ASSERT_TRUE(WaitFor([] { return IsReportReady(); }));
    const QString path = folder.Path(u"report.pdf"_s);
    session.Desk()->SetRules({});
    const bool isTold = ReportNotice().contains(u"张图片没有下载成功"_s);
    const QString text = SavedText(path, u"照片报告 -1层 2-B轴 质量"_s);
    EXPECT_EQ(isTold, text.contains(u"图片没有下载成功"_s));
}

TEST_F(ReportRoad, SlowPicturesCanBeDoneWithout) {
    session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    OpenViewer();
    ClickOn(*Viewer(), u"reportButton"_s);
    ASSERT_TRUE(WaitFor([] {
        const QWidget* stop = tour::FindIn(Report(), u"reportStop"_s);
        return stop != nullptr && stop->isEnabled();
    }));
    EXPECT_TRUE(ReportNotice().startsWith(u"正在下载图片"_s));
    ClickOn(*Report(), u"reportStop"_s);
    EXPECT_TRUE(WaitFor([] { return IsReportReady(); }));
    EXPECT_TRUE(ReportNotice().contains(u"没有下载成功"_s));
    session.Desk()->SetRules({});
}

TEST_F(ReportRoad, WhatFailedBeforeTheRestIsDoneWithoutKeepsItsReasonAndCountsOnce) {
    PIC_REPORT::BimReportRequest request;
    request.floor = u"-1"_s;
    request.positionKey = site.positionKey;
    request.markId = 1;
    host::ReportReading reading = host::ReadBimReport(session, request);
    const size_t wanted = reading.wishes.size();
    ASSERT_GE(wanted, 3U);
    reading.wishes[0].uuid = u"unknown"_s;
    host::ReportPhoto without;
    without.lack = u"没有图片文件"_s;
    reading.content.sections[0].photos.push_back(without);
    host::ReportFetch fetch(session, reading, nullptr);
    int done = 0;
    int missing = -1;
    QObject::connect(&fetch, &host::ReportFetch::Stepped, &fetch, [&](int step, int) {
        done = step;
        session.Desk()->SetRules({0, site::TransferFault::NeverEnds});
    });
    QObject::connect(&fetch, &host::ReportFetch::Ended, &fetch,
                     [&](int pictures) { missing = pictures; });
    fetch.Begin();
    EXPECT_TRUE(WaitFor([&] { return done == 1; }));
    fetch.Stop();
    session.Desk()->SetRules({});
    EXPECT_EQ(missing, static_cast<int>(wanted));
    const auto& photos = fetch.Content().sections[0].photos;
    EXPECT_TRUE(photos[0].lack.startsWith(u"图片没有下载成功"_s)) << qUtf8Printable(photos[0].lack);
    EXPECT_EQ(photos[1].lack, u"图片没有下载：已取消");
    EXPECT_EQ(photos.back().lack, u"没有图片文件");
}

TEST_F(ReportRoad, ThePlaceIsShownInThePlan) {
    OpenViewer();
    AskForReport(*Viewer());
    const auto& preview = *Report()->findChild<host::ReportPreview*>();
    const auto hasImage = [&] {
        for (const host::ReportPage& page : preview.Pages().pages) {
            for (const host::PageItem& item : page.items) {
                if (std::holds_alternative<host::ImageItem>(item)) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(hasImage());
    Report()->findChild<QCheckBox*>(u"reportPlan"_s)->click();
    EXPECT_FALSE(hasImage());
}

TEST_F(ReportRoad, AVoiceNoteIsFetchedAndToldWithItsLength) {
    host::ReportReading reading;
    reading.content.sections.resize(1);
    reading.content.sections[0].voices = {{u"照片0.jpg"_s, 0}};
    const QString path = folder.Write(u"voice.amr"_s, support::SilentAmr(250));
    QString uuid;
    session.Desk()->Run([&](site::IBlobs& blobs, const site::TransferTerms& terms) {
        uuid = blobs.Upload(path, terms).uuid;
    });
    reading.wishes = {{host::ReportWish::What::Voice, uuid, folder.Path(u"fetched.amr"_s), 0, 0}};
    host::ReportFetch fetch(session, reading, nullptr);
    bool isEnded = false;
    QObject::connect(&fetch, &host::ReportFetch::Ended, &fetch, [&] { isEnded = true; });
    fetch.Begin();
    EXPECT_TRUE(WaitFor([&] { return isEnded; }));
    EXPECT_EQ(fetch.Content().sections[0].voices[0].seconds, 5);
}

TEST_F(ReportRoad, ThePlaceMayBeGoneMeanwhile) {
    OpenViewer();
    Other().DeletePhotos(site.photos);
    AskForReport(*Viewer());
    const QString text = SavedText(folder.Path(u"report.pdf"_s), u"照片报告 -1层 2-B轴 质量"_s);
    EXPECT_TRUE(text.contains(u"照片数 0"_s)) << qUtf8Printable(text);
}

TEST_F(ReportRoad, TheTemplateStaysWithTheProjectAndTheChoiceWithThePerson) {
    OpenViewer();
    AskForReport(*Viewer());
    Type(*Report(), u"reportHeader"_s, u"示例集团"_s);
    ChooseIn(*Report(), u"reportPictures"_s, u"每页一张"_s);
    EXPECT_TRUE(hands::CloseWindow(Report()));
    AskForReport(*Viewer());
    EXPECT_EQ(tour::ReadText(tour::FindIn(Report(), u"reportHeader"_s)), u"示例集团");
    EXPECT_EQ(tour::ReadText(tour::FindIn(Report(), u"reportPictures"_s)), u"每页一张");
    const auto kept = [this](qint32 ppid) {
        return session.Site().Catalogue().Setting(u"report-template:%1"_s.arg(ppid));
    };
    EXPECT_TRUE(kept(site.firstProject).contains(u"示例集团"_s));
    EXPECT_EQ(kept(site.secondProject), u"");
}

TEST_F(ReportRoad, AWindowManagerCannotCloseTheBlockedClient) {
    OpenViewer();
    AskForReport(*Viewer());
    ASSERT_TRUE(IsBlocked());
    QCloseEvent close;
    QSpontaneKeyEvent::setSpontaneous(&close);
    QApplication::instance()->notify(client->Window(), &close);
    EXPECT_FALSE(close.isAccepted());
    EXPECT_TRUE(client->Window()->isVisible());
    EXPECT_NE(Report(), nullptr);
    EXPECT_NE(Viewer(), nullptr);
    EXPECT_TRUE(IsBlocked());
}

TEST_F(ReportRoad, AClientThatIsToldToEndAsksNothingOfAReportThatIsSaved) {
    OpenViewer();
    AskForReport(*Viewer());
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"照片报告 -1层 2-B轴 质量"_s, folder.Path(u"report.pdf"_s));
    ClickOn(*Report(), u"reportSave"_s);
    QTimer::singleShot(0, client.get(), [this] { client->AskToEnd(); });
    constexpr int kStillThere = 7;
    QTimer::singleShot(10'000, client.get(), [] { QCoreApplication::exit(kStillThere); });
    EXPECT_EQ(QApplication::exec(), 0);
    // One that is still to come would end every loop of the tests behind this one.
    QCoreApplication::removePostedEvents(QCoreApplication::instance(), QEvent::Quit);
    const QByteArray left = folder.Read(u"report.pdf"_s);
    EXPECT_TRUE(left.isEmpty() || left.endsWith("%%EOF\n")) << left.size();
}

TEST_F(ReportRoad, TheClientMayEndUnderTheReport) {
    OpenViewer();
    AskForReport(*Viewer());
    client->Stop();
    EXPECT_EQ(Report(), nullptr);
    EXPECT_TRUE(WaitFor([] { return OpenWindows().isEmpty(); }));
}

TEST_F(ReportRoad, TheClientMayEndWhileAFileIsMade) {
    OpenViewer();
    AskForReport(*Viewer());
    {
        support::AnsweredPrompts prompts;
        prompts.ExpectSaveFile(u"照片报告 -1层 2-B轴 质量"_s, folder.Path(u"report.pdf"_s));
        ClickOn(*Report(), u"reportSave"_s);
    }
    client->Stop();
    EXPECT_EQ(Report(), nullptr);
    const QByteArray left = folder.Read(u"report.pdf"_s);
    EXPECT_TRUE(left.isEmpty() || left.endsWith("%%EOF\n")) << left.size();
}

class IssueReportRoad : public ReportRoad {
protected:
    void Furnish() override {
        ReportRoad::Furnish();
        site::SiteWriter writer(support::FolderOf(session));
        site::NewIssue raised;
        raised.ppid = site.firstProject;
        raised.theme = u"柱脚裂缝"_s;
        raised.description = u"长约两米"_s;
        raised.floor = u"1"_s;
        raised.markId = 1;
        raised.creator = u"张伟"_s;
        raised.createTime = 1'700'000'000;
        issue = writer.FileIssue(raised);
    }
    [[nodiscard]] static QWidget* IssueViewer() { return tour::FindWindow(u"TNPicViewWrap"_s); }
    QString issue;
};

TEST_F(IssueReportRoad, AnIssueBecomesAPdfWithItsFactsHistoryAndCode) {
    client->Window()->show();
    ASSERT_TRUE(Press(Qt::Key_3));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() > 0; }));
    const int row = static_cast<int>(ConsoleColumnTexts(u"问题主题"_s).indexOf(u"柱脚裂缝"_s));
    ASSERT_GE(row, 0);
    ClickRowIcon(row, u"反查"_s);
    ASSERT_TRUE(WaitFor([] { return IssueViewer() != nullptr; }));
    AskForReport(*IssueViewer());
    const QString path = folder.Path(u"issue.pdf"_s);
    const QString text = SavedText(path, u"问题报告 柱脚裂缝"_s);
    for (const QString& words : {u"问题报告"_s, u"柱脚裂缝"_s, u"长约两米"_s, u"整改情况"_s,
                                 u"变更记录"_s, u"提出问题"_s, u"二维码"_s}) {
        EXPECT_TRUE(text.contains(words)) << qUtf8Printable(words) << qUtf8Printable(text);
    }
}

TEST_F(IssueReportRoad, AnIssueThatIsHiddenOrUnknownHasNoReportAndSaysWhy) {
    client->Window()->show();
    session.Site().Issues().SetStatus(site.firstProject, {issue}, KX_DATA::kStatusHidden);
    for (const auto& [id, why] : {std::pair(issue, u"该问题已被隐藏，请先在控制台中显示它。"_s),
                                  std::pair(u"none"_s, u"该问题已被删除，请刷新后再试。"_s)}) {
        PIC_REPORT::IssueReportRequest request;
        request.questionId = id;
        GetPicReportCtrl()->OutputIssueReport(&request);
        EXPECT_TRUE(WaitFor([&why = why] { return ReportNotice() == why; }))
            << qUtf8Printable(ReportNotice());
        EXPECT_FALSE(IsReportReady());
    }
}

class DrawingReportRoad : public DrawingRoad {
protected:
    void TearDown() override {
        delete Report();
        DrawingRoad::TearDown();
    }
    /// Of the checkpoint with a photo; its sheet is there.
    void OpenReport() {
        client->Window()->ShowDrawingFace(true);
        ASSERT_TRUE(WaitFor([this] { return Store().Present() == host::SheetStore::State::Open; }));
        QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, OnFlag(withPhoto));
        ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"PdfPicViewWrap"_s) != nullptr; }));
        AskForReport(*tour::FindWindow(u"PdfPicViewWrap"_s));
        const auto& preview = *Report()->findChild<host::ReportPreview*>();
        const auto hasPlan = [&] {
            for (const host::PageItem& item : preview.Pages().pages[0].items) {
                if (std::holds_alternative<host::ImageItem>(item)) {
                    return true;
                }
            }
            return false;
        };
        EXPECT_TRUE(WaitFor(hasPlan));
    }
};

TEST_F(DrawingReportRoad, ADrawingBecomesAPdfWithAllItsCheckpoints) {
    ASSERT_TRUE(session.Site().Comments().Add({site.firstProject}, without, u"尚未拍照"_s,
                                              {u"张伟"_s, 1'700'000'000}));
    OpenReport();
    const QString path = folder.Path(u"drawing.pdf"_s);
    const QString text = SavedText(path, u"图纸照片报告 首层平面图"_s);
    for (const QString& words : {u"首层平面图"_s, u"检查点 3"_s, u"墙面.jpg"_s, u"检查点 4"_s,
                                 u"尚未拍照"_s, u"打开的是检查点 3"_s}) {
        EXPECT_TRUE(text.contains(words)) << qUtf8Printable(words) << qUtf8Printable(text);
    }
    EXPECT_EQ(PicturesIn(path), 1);
}

TEST_F(DrawingReportRoad, ACheckpointHasAllItsCommentsHoweverMany) {
    for (int number = 0; number < 201; ++number) {
        ASSERT_TRUE(session.Site().Comments().Add({site.firstProject}, without,
                                                  QString::number(number),
                                                  {u"张伟"_s, 1'700'000'000 + number}));
    }
    PIC_REPORT::PdfReportRequest request;
    request.drawingId = without;
    const host::ReportReading reading = host::ReadPdfReport(session, request);
    ASSERT_EQ(reading.content.sections.size(), 2U);
    const auto& comments = reading.content.sections[1].comments;
    ASSERT_EQ(comments.size(), 201U);
    EXPECT_EQ(comments.front().text, u"0");
    EXPECT_EQ(comments.back().text, u"200");
    EXPECT_EQ(comments.back().person, u"张伟");
    request.drawingId = 12345;
    EXPECT_EQ(host::ReadPdfReport(session, request).lack, u"该检查点已被删除，请刷新后再试。");
}

TEST_F(DrawingReportRoad, TheNameOfADrawingIsNoPlaceForNumbers) {
    ASSERT_EQ(session.Site().Drawings().Rename({site.firstProject}, drawing, u"坡度50%2号"_s,
                                               {u"张伟"_s, 1'700'000'000}),
              site::Saved::Yes);
    OpenReport();
    const QString text = SavedText(folder.Path(u"drawing.pdf"_s), u"图纸照片报告 坡度50%2号"_s);
    EXPECT_TRUE(text.contains(u"图纸“坡度50%2号”第 1 页，打开的是检查点 3"_s))
        << qUtf8Printable(text);
}

} // namespace
} // namespace roads
