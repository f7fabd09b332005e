// Photos on their way in: where a drop says it goes, where it goes, and what is told of it then.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "host/ui/catchup/CatchUpDock.h"
#include "host/ui/photo/PhotoDock.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "site/IClientFolders.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/PhotoFactTable.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAbstractButton>
#include <QDragEnterEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTableWidget>
#include <QUrl>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;
using tour::Console;

class ImportRoad : public PhotoRoad {
protected:
    /// The corner's photo was made of another file.
    void Furnish() override {
        PhotoRoad::Furnish();
        site::DataFolder& data = support::FolderOf(session);
        const site::StoredFile file = data.Store().Put({{}, "the file as it came"});
        data.Store().Settle(file.uuid);
        data.Db().Exec(u"INSERT INTO file (uuid, md5, size, kind, ppid, owner)"
                       " VALUES (?, ?, ?, 11, ?, ?)"_s,
                       {file.uuid, file.md5, file.size, site.firstProject, cornerPhoto});
        site::PhotoFactTable::Note(data.Db(), site.firstProject, cornerPhoto,
                                   {1'710'224'736, u"Maker Model 7"_s, 31.2304, 121.4737, 271.5},
                                   u"手机.HEIC"_s, file.uuid);
    }
    [[nodiscard]] host::MainWindow& Window() const { return *client->Window(); }
    [[nodiscard]] host::PhotoDock& Dock() const { return Window().PhotoFacts(); }
    [[nodiscard]] QString Shown(const QString& caption) const {
        const auto* table = Dock().findChild<QTableWidget*>(u"photoTable"_s);
        for (int row = 0; row < table->rowCount(); ++row) {
            if (table->item(row, 0)->text() == caption) {
                return table->item(row, 1)->text();
            }
        }
        return {};
    }
    [[nodiscard]] QString ShownTitle() const {
        return Dock().findChild<QLabel*>(u"photoTitle"_s)->text();
    }
    void BringUpDock() const {
        Dock().show();
        Dock().raise();
        ASSERT_TRUE(WaitFor([this] { return Dock().IsSeen(); }));
    }
    /// What a window says while a file is held over it.
    [[nodiscard]] static QString HintOver(QWidget& window,
                                          const QString& file = u"/somewhere/a.jpg"_s) {
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &files, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window, &enter);
        const auto* hint = window.findChild<QLabel*>(u"dropHint"_s, Qt::FindDirectChildrenOnly);
        const QString text = hint == nullptr ? QString() : hint->text();
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&window, &leave);
        EXPECT_EQ(window.findChild<QLabel*>(u"dropHint"_s), nullptr);
        return enter.isAccepted() ? text : u"not taken"_s;
    }
    /// What the newest message offers; null: nothing.
    [[nodiscard]] QAbstractButton* MessageButton() const {
        for (auto* button :
             Window().Messages().findChildren<QAbstractButton*>(u"messageAction"_s)) {
            if (button->text() == u"在控制台中查看"_s && button->isVisible()) {
                return button;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QVariant Asked(const QString& sql) const {
        return support::FolderOf(session).Db().Value(sql);
    }
};

TEST_F(ImportRoad, ADropSaysWhereItWillGoAndGoesThere) {
    EXPECT_EQ(HintOver(Window()), u"松开后导入到当前工程，不指定位置"_s);
    ASSERT_TRUE(Plan().LocateKey(cornerKey));
    EXPECT_EQ(HintOver(Window()), u"松开后导入到：-1层 1轴 / A轴"_s);
    const QString photo = folder.Write(u"new/新.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(&Window(), {photo}); }));
    ASSERT_TRUE(WaitFor([] {
        return hands::Click(tour::FindIn(tour::FindWindow(u"importDialog"_s), u"importStart"_s));
    }));
    ASSERT_TRUE(
        WaitFor([&] { return Messages().value(0).startsWith(u"导入 1 张照片，重复 0 张"_s); }));
    EXPECT_EQ(Asked(u"SELECT position_key FROM bim_photo ORDER BY id DESC LIMIT 1"_s), cornerKey);
}

TEST_F(ImportRoad, WhoeverMayNotEditImportsNothing) {
    site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, {22, 38});
    const QString photo = folder.Write(u"new/新.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    const QString whyNot = u"您没有编辑的权限，不能导入照片。"_s;
    EXPECT_EQ(HintOver(Window()), whyNot);
    ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(&Window(), {photo}); }));
    EXPECT_TRUE(WaitFor([&] { return Messages().value(0) == whyNot; }));
    EXPECT_EQ(tour::FindWindow(u"importDialog"_s), nullptr);
}

TEST_F(ImportRoad, ADrawingThatIsHeldIsToldWhereItGoesToo) {
    const QString drawing = u"/somewhere/A.PDF"_s;
    EXPECT_EQ(HintOver(Window(), drawing), u"松开后导入为图纸"_s);
    site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, {22, 38});
    EXPECT_EQ(HintOver(Window(), drawing), u"没有权限导入图纸，请找有编辑权限的人导入。"_s);
}

TEST_F(ImportRoad, ARightThatIsTakenAwayWhileTheQuestionStandsImportsNothing) {
    const QString photo = folder.Write(u"new/新.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(&Window(), {photo}); }));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"importDialog"_s) != nullptr; }));
    site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, {});
    ASSERT_TRUE(WaitFor([] {
        return hands::Click(tour::FindIn(tour::FindWindow(u"importDialog"_s), u"importStart"_s));
    }));
    EXPECT_TRUE(WaitFor([&] { return Messages().value(0).contains(u"没有编辑的权限"_s); }));
}

TEST_F(ImportRoad, WhatIsDroppedOnTheConsoleIsImportedToo) {
    OpenConsole();
    EXPECT_EQ(HintOver(*Console()), u"松开后导入到当前工程，不指定位置"_s);
    const QString photo = folder.Write(u"new/新.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(Console(), {photo}); }));
    ASSERT_TRUE(WaitFor([] {
        return hands::Click(tour::FindIn(tour::FindWindow(u"importDialog"_s), u"importStart"_s));
    }));
    EXPECT_TRUE(
        WaitFor([&] { return Messages().value(0).startsWith(u"导入 1 张照片，重复 0 张"_s); }));
    // A console that was closed and opened again is another window.
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Console()); }));
    ASSERT_TRUE(WaitFor([] { return Console() == nullptr; }));
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return Console() != nullptr; }));
    EXPECT_TRUE(WaitFor([] { return !HintOver(*Console()).isEmpty(); }));
}

TEST_F(ImportRoad, TheMessageLeadsToWhatWasImportedAndToNothingElse) {
    folder.Write(u"new/一.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    folder.Write(u"new/二.jpg"_s, JpegBytes(qRgb(1, 250, 1)));
    folder.Write(u"new/旧.jpg"_s, JpegBytes(ColorOf(0)));
    ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(&Window(), {folder.Path(u"new"_s)}); }));
    ASSERT_TRUE(WaitFor([] {
        return hands::Click(tour::FindIn(tour::FindWindow(u"importDialog"_s), u"importStart"_s));
    }));
    ASSERT_TRUE(
        WaitFor([&] { return Messages().value(0).startsWith(u"导入 2 张照片，重复 1 张"_s); }));
    QWidget* result = tour::FindWindow(u"importResult"_s);
    ASSERT_NE(result, nullptr) << "the doubles are listed";
    result->close();
    ASSERT_TRUE(WaitFor([this] { return hands::Click(MessageButton()); }));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 2; }));
    EXPECT_GE(RowOfPhoto(u"一.jpg"_s), 0);
    EXPECT_GE(RowOfPhoto(u"二.jpg"_s), 0);
    EXPECT_EQ(MessageButton(), nullptr) << "it is done once";
}

TEST_F(ImportRoad, OfAProjectThatIsClosedTheMessageSaysWhich) {
    const QString photo = folder.Write(u"new/新.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(&Window(), {photo}); }));
    ASSERT_TRUE(WaitFor([] {
        return hands::Click(tour::FindIn(tour::FindWindow(u"importDialog"_s), u"importStart"_s));
    }));
    ASSERT_TRUE(WaitFor([this] { return MessageButton() != nullptr; }));
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    ASSERT_TRUE(WaitFor([this] { return hands::Click(MessageButton()); }));
    EXPECT_TRUE(WaitFor([this] {
        return Messages().value(0) == u"这些照片在工程“一期工程”中，请先打开该工程。"_s;
    }));
    EXPECT_EQ(Console(), nullptr);
}

TEST_F(ImportRoad, AConsoleThatIsClosedTakesItsQuestionAlong) {
    OpenConsole();
    const QString photo = folder.Write(u"new/新.jpg"_s, JpegBytes(qRgb(250, 1, 1)));
    ASSERT_TRUE(WaitFor([&] { return hands::DropPaths(Console(), {photo}); }));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"importDialog"_s) != nullptr; }));
    Console()->close();
    EXPECT_TRUE(WaitFor([] { return tour::FindWindow(u"importDialog"_s) == nullptr; }));
    EXPECT_TRUE(WaitFor([&] { return hands::DropPaths(&Window(), {photo}); }));
    EXPECT_TRUE(WaitFor([] { return tour::FindWindow(u"importDialog"_s) != nullptr; }));
}

TEST_F(ImportRoad, APhotoThatIsLookedUpTellsOfItsTaking) {
    BringUpDock();
    OpenConsole();
    LookUp(u"转角.jpg"_s);
    ASSERT_TRUE(WaitFor([this] { return ShownTitle() == u"转角.jpg"_s; }));
    EXPECT_EQ(Shown(u"相机"_s), u"Maker Model 7"_s);
    EXPECT_EQ(Shown(u"拍摄位置"_s), u"31.230400°N, 121.473700°E"_s);
    EXPECT_EQ(Shown(u"原始文件"_s), u"手机.HEIC"_s);
    EXPECT_TRUE(WaitFor([this] { return Shown(u"像素"_s) == u"32 × 24"_s; }));
    ChooseOfFlag(Plan(), site.positionKey, 1, u"照片0.jpg"_s);
    ASSERT_TRUE(WaitFor([this] { return ShownTitle() == u"照片0.jpg"_s; }));
    EXPECT_EQ(Shown(u"相机"_s), u"未记录"_s);
    EXPECT_FALSE(Dock().findChild<QPushButton*>(u"openOriginal"_s)->isVisible());
    CloseViewer();
    ASSERT_TRUE(ChooseProject(u"二期工程"_s));
    EXPECT_TRUE(WaitFor([this] { return ShownTitle().startsWith(u"还没有照片"_s); }));
}

TEST_F(ImportRoad, ARowOfTheConsoleTellsOfItsTaking) {
    BringUpDock();
    OpenConsole();
    const int name = tour::ConsoleColumn(u"照片名称"_s);
    const auto click = [name](const QString& photo) {
        return hands::ClickCell(tour::ConsoleGrid(),
                                int(ConsoleColumnTexts(u"照片名称"_s).indexOf(photo)), name);
    };
    ASSERT_TRUE(WaitFor([&] { return click(u"转角.jpg"_s); }));
    ASSERT_TRUE(WaitFor([this] { return ShownTitle() == u"转角.jpg"_s; }));
    EXPECT_EQ(Shown(u"相机"_s), u"Maker Model 7"_s);
    ASSERT_TRUE(WaitFor([&] { return click(u"照片0.jpg"_s); }));
    EXPECT_TRUE(WaitFor([this] { return ShownTitle() == u"照片0.jpg"_s; }));
}

TEST_F(ImportRoad, WhatWasLookedUpWhileNobodySawTheDockIsThereWhenItComesUp) {
    OpenConsole();
    LookUp(u"转角.jpg"_s);
    EXPECT_TRUE(ShownTitle().startsWith(u"还没有照片"_s));
    BringUpDock();
    EXPECT_TRUE(WaitFor([this] { return ShownTitle() == u"转角.jpg"_s; }));
}

TEST_F(ImportRoad, APhotoChosenOfAFlagTellsToo) {
    BringUpDock();
    ChooseOfFlag(Plan(), cornerKey, 1, u"转角.jpg"_s);
    EXPECT_TRUE(WaitFor([this] { return ShownTitle() == u"转角.jpg"_s; }));
    CloseViewer();
}

TEST_F(ImportRoad, TheFileAsItCameIsOpenedAndSaved) {
    support::AnsweredPrompts prompts;
    BringUpDock();
    OpenConsole();
    LookUp(u"转角.jpg"_s);
    ASSERT_TRUE(WaitFor([this] { return ShownTitle() == u"转角.jpg"_s; }));
    const QString saved = folder.Path(u"saved.HEIC"_s);
    prompts.ExpectSaveFile(u"手机.HEIC"_s, saved);
    ASSERT_TRUE(WaitFor(
        [this] { return hands::Click(Dock().findChild<QPushButton*>(u"saveOriginal"_s)); }));
    ASSERT_TRUE(WaitFor([&] { return QFile::exists(saved); }));
    EXPECT_EQ(folder.Read(u"saved.HEIC"_s), "the file as it came");
    const QString opened =
        session.Site().Folders().Opened() + u'/' +
        Asked(u"SELECT substr(original_uuid, 1, 8) FROM photo_fact"_s).toString() + u"-手机.HEIC"_s;
    prompts.ExpectOpenFolder(opened);
    ASSERT_TRUE(WaitFor(
        [this] { return hands::Click(Dock().findChild<QPushButton*>(u"openOriginal"_s)); }));
    ASSERT_TRUE(WaitFor([&] { return prompts.AllAnswered(); }));
}

TEST_F(ImportRoad, AnOriginalThatIsNoPictureByItsNameIsNotOpened) {
    support::FolderOf(session).Db().Exec(u"UPDATE photo_fact SET original_name = '手机.desktop'"_s);
    support::AnsweredPrompts prompts;
    BringUpDock();
    OpenConsole();
    LookUp(u"转角.jpg"_s);
    ASSERT_TRUE(WaitFor([this] { return ShownTitle() == u"转角.jpg"_s; }));
    ASSERT_TRUE(WaitFor(
        [this] { return hands::Click(Dock().findChild<QPushButton*>(u"openOriginal"_s)); }));
    EXPECT_TRUE(WaitFor([this] {
        return Messages().value(0) ==
               u"没有打开“手机.desktop”：不是图片的扩展名。可以另存后查看。"_s;
    }));
}

} // namespace
} // namespace roads
