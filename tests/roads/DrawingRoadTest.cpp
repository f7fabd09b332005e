// Drawings in the main window, on a real data folder and with a real reader.
#include "tests/roads/DrawingRoad.h"

#include "hands/Hands.h"
#include "host/ui/MessageBar.h"
#include "site/IBin.h"
#include "site/IIntake.h"
#include "site/IPdfPhotos.h"
#include "site/OpenSite.h"
#include "site/sqlite/Database.h"
#include "tests/host/drawings/TestDrawings.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/StoredFiles.h"
#include "tests/support/WaitFor.h"
#include "tour/TourEyes.h"

#include <QAbstractItemView>
#include <QDir>
#include <QDirIterator>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QtTest/QTest>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using host::SheetStore;
using support::WaitFor;

TEST_F(DrawingRoad, TheDrawingIsShownWithItsCheckpointsAtTheirPlaces) {
    EXPECT_TRUE(client->Window()->IsDrawingInFront());
    EXPECT_EQ(Store().Pages().size(), 2U);
    const auto& flags = Canvas().Flags();
    EXPECT_EQ(flags[0].number, 3);
    EXPECT_EQ(flags[0].place, QPointF(0.25, 0.25));
    EXPECT_EQ(flags[0].photos, 1);
    EXPECT_EQ(flags[1].photos, 0);
    ASSERT_TRUE(WaitFor([this] { return Store().IsComplete(); }));
    EXPECT_EQ(session.Drawing().drawingId, drawing);
}

TEST_F(DrawingRoad, ADrawingWithoutAFileSaysSoAndTheOtherComesBack) {
    Choose(Drawings().front());
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Broken; }));
    EXPECT_EQ(Store().Fault(), host::DrawingFault::Missing);
    Choose(u"首层平面图"_s);
    EXPECT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
}

TEST_F(DrawingRoad, ADrawingWhoseFileIsLostIsTriedAgain) {
    Choose(Drawings().front());
    site::DataFolder& data = support::FolderOf(session);
    QString stored;
    QDirIterator walk(data.StorePath(), QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile file(walk.next());
        if (file.open(QIODevice::ReadOnly) && file.read(4) == "%PDF") {
            stored = walk.filePath();
        }
    }
    ASSERT_TRUE(QFile::rename(stored, stored + u".away"_s));
    QDir(folder.Path(u"data/cache"_s)).removeRecursively();
    Choose(u"首层平面图"_s);
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Broken; }));
    ASSERT_TRUE(QFile::rename(stored + u".away"_s, stored));
    QTest::mouseClick(Pane().findChild<QWidget*>(u"retryDrawing"_s), Qt::LeftButton);
    EXPECT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
}

TEST_F(DrawingRoad, PdfFilesThatAreDroppedOnTheWindowBecomeDrawings) {
    const QString path = folder.Write(u"新 图.PDF"_s, drawingtest::PlainPdf(3, kDrawingSheet));
    ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(client->Window(), {path}); }));
    EXPECT_TRUE(Says(u"已导入图纸 1 张"_s));
    EXPECT_EQ(Drawings().last(), u"新 图"_s);
    EXPECT_TRUE(WaitFor(
        [this] { return Choice()->currentText() == u"新 图"_s && Store().Pages().size() == 3U; }));
    EXPECT_EQ(session.Site().Drawings().List(site.firstProject).back().pages, 3);
}

TEST_F(DrawingRoad, PhotosThatAreHeldOverAFlagAreToldItsCheckpoint) {
    const auto hintAt = [this](const QPoint& onCanvas) {
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(u"/somewhere/a.jpg"_s)});
        QDragEnterEvent enter(Canvas().mapTo(&Pane(), onCanvas), Qt::CopyAction, &files,
                              Qt::LeftButton, {});
        QCoreApplication::sendEvent(&Pane(), &enter);
        const auto* hint = Pane().findChild<QLabel*>(u"dropHint"_s, Qt::FindDirectChildrenOnly);
        return hint == nullptr ? QString() : hint->text();
    };
    EXPECT_EQ(hintAt(OnFlag(without)), u"松开后导入到：检查点 4"_s);
    EXPECT_EQ(hintAt(PixelOf(0.9, 0.9)), u"松开后导入到当前工程，不指定位置"_s);
    session.Site().NewIntake()->AddUser(u"张伟"_s, {22});
    EXPECT_EQ(hintAt(OnFlag(without)), u"没有权限在检查点上添加照片，请找有编辑权限的人添加。"_s);
    EXPECT_TRUE(WaitFor([this] { return !PlaceButton()->isVisible(); }))
        << "nor can a new one be set";
}

TEST_F(DrawingRoad, FilesThatAreNoUseAreNamedWithTheirReasonAndNothingIsFiled) {
    const int stored = support::CountStored(support::FolderOf(session));
    const QStringList before = Drawings();
    const QString good = folder.Write(u"好.pdf"_s, drawingtest::PlainPdf(1, kDrawingSheet));
    ASSERT_TRUE(WaitFor([&] {
        return hands::DropPaths(
            client->Window(),
            {folder.Write(u"密码.pdf"_s, drawingtest::EncryptedPdf()),
             folder.Write(u"坏.pdf"_s, "%PDF-1.4 no more"), folder.Write(u"不是.pdf"_s, "hello"),
             folder.Write(u"千页.pdf"_s, drawingtest::PlainPdf(1000)),
             folder.Write(u"巨大.pdf"_s, drawingtest::PlainPdf(1, {14'400, 14'400})),
             folder.Path(u"没有.pdf"_s), good,
             folder.Write(u"首层平面图.pdf"_s, drawingtest::PlainPdf(1, kDrawingSheet))});
    }));
    EXPECT_TRUE(Says(u"已导入图纸 1 张，7 个文件没有导入"_s));
    const QWidget* result = tour::FindWindow(u"importResult"_s);
    ASSERT_NE(result, nullptr);
    const QAbstractItemModel* rows = result->findChild<QAbstractItemView*>()->model();
    QStringList reasons;
    for (int row = 0; row < rows->rowCount(); ++row) {
        reasons << rows->index(row, 0).data().toString() + rows->index(row, 2).data().toString();
    }
    for (const QString& said :
         {u"密码.pdfPDF 文件有密码"_s, u"/坏.pdfPDF 文件已损坏"_s, u"不是.pdf文件不是 PDF"_s,
          u"千页.pdfPDF 文件超过"_s, u"巨大.pdfPDF 页面过大"_s, u"没有.pdf文件不存在"_s,
          u"首层平面图.pdf"_s}) {
        EXPECT_EQ(reasons.filter(said).size(), 1) << said.toStdString();
    }
    EXPECT_EQ(Drawings(), before + QStringList{u"好"_s});
    EXPECT_EQ(support::CountStored(support::FolderOf(session)), stored + 1);
}

TEST_F(DrawingRoad, ClicksSetCheckpointsUntilOneLeavesOff) {
    QTest::mouseClick(PlaceButton(), Qt::LeftButton);
    EXPECT_FALSE(Pane().Hint().isEmpty());
    ClickOnSheet(0.5, 0.6);
    ClickOnSheet(0.6, 0.6);
    EXPECT_EQ(Points().size(), 4U);
    EXPECT_EQ(Points().back().number, 6);
    EXPECT_NEAR(double(Points()[2].place.x), 500, 2);
    EXPECT_NEAR(double(Points()[2].place.y), 600, 2);
    EXPECT_TRUE(WaitFor([this] { return Canvas().Flags().size() == 4U; }));
    QTest::keyClick(&Canvas(), Qt::Key_Escape);
    EXPECT_TRUE(Pane().Hint().isEmpty());
    ClickOnSheet(0.4, 0.4);
    EXPECT_EQ(Points().size(), 4U);
    EXPECT_FALSE(PlaceButton()->isChecked());
}

TEST_F(DrawingRoad, APlaceHasItsPage) {
    Canvas().ShowPage(1);
    EXPECT_TRUE(ChooseInMenu(PixelOf(0.5, 0.5), u"在此新建检查点"_s));
    ASSERT_EQ(Points().size(), 3U);
    EXPECT_EQ(Points().back().place.page, 1);
}

TEST_F(DrawingRoad, ACheckpointIsMovedByItsMenuAndAClick) {
    EXPECT_TRUE(ChooseInMenu(OnFlag(without), u"移动检查点"_s));
    EXPECT_TRUE(Pane().Hint().contains(u"检查点4"_s));
    ClickOnSheet(0.9, 0.8);
    EXPECT_TRUE(Pane().Hint().isEmpty());
    EXPECT_NEAR(double(Points()[1].place.x), 900, 2);
    EXPECT_NEAR(double(Points()[1].place.y), 800, 2);
    EXPECT_TRUE(ChooseInMenu(OnFlag(without), u"移动检查点"_s));
    QTest::keyClick(&Canvas(), Qt::Key_Escape);
    ClickOnSheet(0.1, 0.1);
    EXPECT_NEAR(double(Points()[1].place.x), 900, 2) << "left off";
}

TEST_F(DrawingRoad, WhatAnotherClientMovedMeanwhileIsNotMovedUnseen) {
    EXPECT_TRUE(ChooseInMenu(OnFlag(without), u"移动检查点"_s));
    auto theirs = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    EXPECT_EQ(theirs.site->Drawings().MoveCheckpoint({site.firstProject}, without, {0, 10, 10},
                                                     {u"李娜"_s, 1'700'000'000}),
              site::Saved::Yes);
    ClickOnSheet(0.9, 0.8);
    EXPECT_TRUE(Says(u"检查点4刚被其他人修改"_s));
    EXPECT_EQ(Points()[1].place.x, 10);
    EXPECT_TRUE(WaitFor([this] { return Canvas().Flags()[1].place == QPointF(0.01, 0.01); }));
}

TEST_F(DrawingRoad, WhatAnotherClientChangesIsSeenAtOnce) {
    auto theirs = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    EXPECT_TRUE(theirs.site->Drawings()
                    .AddCheckpoint({site.firstProject}, drawing, {0, 500, 500}, 0,
                                   {u"李娜"_s, 1'700'000'000})
                    .has_value());
    EXPECT_TRUE(WaitFor([this] { return Canvas().Flags().size() == 3U; }));
    site::NewPdfPhoto filed;
    filed.checkpointId = without;
    filed.fileName = u"新.jpg"_s;
    filed.uploader = u"李娜"_s;
    filed.uploadTime = 1'700'000'000;
    static_cast<void>(theirs.site->NewIntake()->FilePdfPhoto(site.firstProject, filed,
                                                             {{}, JpegBytes(qRgb(1, 2, 3))}));
    EXPECT_TRUE(WaitFor([this] { return Canvas().Flags()[1].photos == 1; }));
    static_cast<void>(theirs.site->NewIntake()->AddDrawing(
        site.firstProject, u"二层"_s, {{}, drawingtest::PlainPdf(1, kDrawingSheet)}));
    EXPECT_TRUE(WaitFor([this] { return Choice()->findText(u"二层"_s) >= 0; }));
    EXPECT_EQ(Choice()->currentText(), u"首层平面图"_s);
    EXPECT_EQ(Store().Present(), SheetStore::State::Open) << "not opened again";
}

TEST_F(DrawingRoad, TheMarkThatAnotherClientGivesACheckpointColoursItsFlagAtOnce) {
    auto theirs = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    const auto colourOfFirst = [this] { return Canvas().Flags()[0].color; };
    const QColor before = colourOfFirst();
    KX_DATA::DrawingRecord record;
    ASSERT_TRUE(theirs.site->PdfPhotos().Checkpoint({site.firstProject}, withPhoto, record));
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = withPhoto;
    edit.markId = 2;
    ASSERT_EQ(theirs.site->PdfPhotos().UpdateCheckpoint({site.firstProject}, edit,
                                                        {u"李娜"_s, 1'700'000'000}),
              site::Saved::Yes);
    EXPECT_TRUE(WaitFor([&] { return colourOfFirst() != before; }));
    EXPECT_EQ(Canvas().Flags()[0].photos, 1);
}

TEST_F(DrawingRoad, ACheckpointWithPhotosStaysAndOneWithoutGoesToTheBin) {
    support::AnsweredPrompts prompts;
    prompts.ExpectOkCancel(u"确定删除检查点3？30 天内可以从回收站恢复。"_s, true);
    EXPECT_TRUE(ChooseInMenu(OnFlag(withPhoto), u"删除检查点"_s));
    EXPECT_EQ(Points().size(), 2U);
    EXPECT_FALSE(Messages().isEmpty());
    prompts.ExpectOkCancel(u"确定删除检查点4？30 天内可以从回收站恢复。"_s, false);
    EXPECT_TRUE(ChooseInMenu(OnFlag(without), u"删除检查点"_s));
    EXPECT_EQ(Points().size(), 2U);
    prompts.ExpectOkCancel(u"确定删除检查点4？30 天内可以从回收站恢复。"_s, true);
    EXPECT_TRUE(ChooseInMenu(OnFlag(without), u"删除检查点"_s));
    EXPECT_EQ(Points().size(), 1U);
    EXPECT_EQ(session.Site().Bin().List().front().kind, site::BinKind::Checkpoint);
    EXPECT_TRUE(WaitFor([this] { return Canvas().Flags().size() == 1U; }));
}

TEST_F(DrawingRoad, PhotosAreFiledOnAFlagByDropAndByMenu) {
    const QString first = folder.Write(u"photos/甲.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    const QString second = folder.Write(u"photos/乙.jpg"_s, JpegBytes(qRgb(1, 250, 1)));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(first)});
    const QPoint at = Canvas().mapTo(&Pane(), OnFlag(without));
    QDragEnterEvent enter(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Pane(), &enter);
    QDropEvent drop(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Pane(), &drop);
    EXPECT_TRUE(WaitFor([this] { return Points()[1].photos == 1; }));
    EXPECT_TRUE(Says(u"1"_s));
    support::AnsweredPrompts prompts;
    prompts.ExpectOpenFiles(u"照片 (*.jpg *.jpeg *.png *.bmp *.gif *.heic *.heif *.hif *.tif *.tiff"
                            " *.webp);;所有文件 (*)"_s,
                            {second, first});
    EXPECT_TRUE(WaitFor([this] { return ChooseInMenu(OnFlag(without), u"添加照片..."_s); }));
    EXPECT_TRUE(WaitFor([this] { return Points()[1].photos == 2; })) << "one was there already";
    EXPECT_TRUE(WaitFor([this] { return Canvas().Flags()[1].photos == 2; }));
}

TEST_F(DrawingRoad, ALookupBringsTheDrawingToTheFrontAndItsFlagBlinks) {
    Choose(Drawings().front());
    client->Window()->ShowDrawingFace(false);
    Locate(without);
    ASSERT_TRUE(WaitFor([this] { return client->Window()->IsDrawingInFront(); }));
    EXPECT_TRUE(WaitFor([this] { return Canvas().IsLit(); }));
    EXPECT_EQ(session.Drawing().drawingId, drawing);
    Locate(987'654);
    EXPECT_TRUE(WaitFor([this] { return !Canvas().IsLit(); }));
    EXPECT_EQ(session.Drawing().drawingId, drawing) << "nobody knows where that is";
}

TEST_F(DrawingRoad, WithoutTheRightNothingCanBeChanged) {
    End();
    ASSERT_FALSE(session.Open(folder.Path(u"data"_s)));
    ASSERT_TRUE(session.SignIn(u"李娜"_s));
    Start();
    ASSERT_TRUE(ChooseProject(u"一期工程"_s) || session.CurrentProject().ppid != 0);
    Press(Qt::Key_D);
    Choose(u"首层平面图"_s);
    ASSERT_TRUE(WaitFor([this] { return Canvas().Flags().size() == 2U; }));
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
    EXPECT_FALSE(PlaceButton()->isVisible());
    EXPECT_FALSE(ChooseInMenu(PixelOf(0.5, 0.5), u"在此新建检查点"_s));
    EXPECT_FALSE(ChooseInMenu(OnFlag(without), u"删除检查点"_s));
    ASSERT_TRUE(WaitFor([&] {
        return hands::DropPaths(
            client->Window(), {folder.Write(u"甲.pdf"_s, drawingtest::PlainPdf(1, kDrawingSheet))});
    }));
    EXPECT_TRUE(Says(u"没有权限导入图纸"_s));
    EXPECT_EQ(Drawings().size(), 2);
}

TEST_F(DrawingRoad, AnotherProjectHasItsOwnDrawings) {
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_EQ(Choice()->count(), 0);
    EXPECT_TRUE(Canvas().Flags().empty());
    EXPECT_EQ(Store().Present(), SheetStore::State::Empty);
    ASSERT_TRUE(ChooseProject(u"一期工程"_s));
    EXPECT_EQ(Choice()->count(), 2);
}

TEST_F(DrawingRoad, WhatCannotBeReadForAWhileIsToldAndStaysAsItWasSeen) {
    auto theirs = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    site::Database& database = support::FolderOf(*theirs.site).Db();
    for (const auto& [table, kind] : {std::pair(u"checkpoint"_s, 4), std::pair(u"drawing"_s, 5)}) {
        database.Exec(u"ALTER TABLE %1 RENAME TO away"_s.arg(table));
        database.Exec(u"INSERT INTO change (kind, ppid, object, person, opening)"
                      " VALUES (?, ?, 0, '', 99)"_s,
                      {kind, site.firstProject});
        EXPECT_TRUE(WaitFor([this] { return !Messages().isEmpty(); })) << table.toStdString();
        EXPECT_EQ(Canvas().Flags().size(), 2U);
        EXPECT_EQ(Choice()->count(), 2);
        EXPECT_EQ(Store().Present(), SheetStore::State::Open);
        database.Exec(u"ALTER TABLE away RENAME TO "_s + table);
        client->Window()->Messages().Clear();
    }
}

TEST_F(DrawingRoad, ADrawingThatIsRemovedElsewhereGoesFromTheView) {
    auto theirs = site::OpenSite(folder.Path(u"data"_s), {5000, false});
    const qint32 added = theirs.site->NewIntake()->AddDrawing(
        site.firstProject, u"二层"_s, {{}, drawingtest::PlainPdf(1, kDrawingSheet)});
    ASSERT_TRUE(WaitFor([this] { return Choice()->findText(u"二层"_s) >= 0; }));
    Choose(u"二层"_s);
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
    EXPECT_TRUE(
        theirs.site->Bin().DeleteDrawing({site.firstProject}, added, {u"李娜"_s, 1'700'000'000}));
    EXPECT_TRUE(WaitFor([this] { return Choice()->findText(u"二层"_s) < 0; }));
    EXPECT_NE(session.Drawing().drawingId, added);
}

} // namespace
} // namespace roads
