// From the viewers to a report in a file, and back to a client that answers again.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/report/ReportPreview.h"
#include "host/ui/report/ReportWindow.h"
#include "site/IBimPhotos.h"
#include "site/IComments.h"
#include "site/IIssues.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/DrawingRoad.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest/QTest>

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

class DrawingReportRoad : public DrawingRoad {
protected:
    void TearDown() override {
        delete Report();
        DrawingRoad::TearDown();
    }
};

TEST_F(DrawingReportRoad, ADrawingBecomesAPdfWithAllItsCheckpoints) {
    ASSERT_TRUE(session.Site().Comments().Add({site.firstProject}, without, u"尚未拍照"_s,
                                              {u"张伟"_s, 1'700'000'000}));
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
    const QString path = folder.Path(u"drawing.pdf"_s);
    const QString text = SavedText(path, u"图纸照片报告 首层平面图"_s);
    for (const QString& words : {u"首层平面图"_s, u"检查点 3"_s, u"墙面.jpg"_s, u"检查点 4"_s,
                                 u"尚未拍照"_s, u"打开的是检查点 3"_s}) {
        EXPECT_TRUE(text.contains(words)) << qUtf8Printable(words) << qUtf8Printable(text);
    }
    EXPECT_EQ(PicturesIn(path), 1);
}

} // namespace
} // namespace roads
