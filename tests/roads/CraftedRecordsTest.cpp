// Records that no client writes: of another version, by another program, by a fault of the disk.
// They are shown where they can be, told where they can't, and never reach beyond their places.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "site/IBin.h"
#include "site/blobs/FileStore.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"

#include <QAbstractItemView>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFontMetrics>
#include <QTableView>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

constexpr int kMillion = 1'000'000;

/// Lines, controls, a change of direction that is never ended, marks on marks, and no end.
QString Nasty() {
    return u"\u202E<b>a</b>\r\n\t\x01\x07\x1B[31m\u2028\u0301\u0301\u0301%1%s%n"_s +
           QString(kMillion, u'宽');
}

class CraftedRecords : public PhotoRoad {
protected:
    void SetTexts(const QString& table, const QStringList& columns, qint64 id) {
        for (const QString& column : columns) {
            Db().Exec(u"UPDATE %1 SET %2 = ? WHERE id = ?"_s.arg(table, column), {Nasty(), id});
        }
    }
    void Set(const QString& table, const QString& column, const QVariant& value, qint64 id) {
        Db().Exec(u"UPDATE %1 SET %2 = ? WHERE id = ?"_s.arg(table, column), {value, id});
    }
    site::Database& Db() { return support::FolderOf(session).Db(); }
    qint64 First(const QString& table) {
        return Db().Value(u"SELECT min(id) FROM "_s + table).toLongLong();
    }
    /// What a row of the console's list looks like.
    static QImage RowPicture(int row) {
        QAbstractItemView* grid = tour::ConsoleGrid();
        const QModelIndex first = grid->model()->index(row, 0);
        QRect place = grid->visualRect(first);
        place.setLeft(0);
        place.setWidth(grid->viewport()->width());
        return grid->viewport()->grab(place).toImage();
    }
    static int RowHeight(int row) {
        return tour::ConsoleGrid()
            ->visualRect(tour::ConsoleGrid()->model()->index(row, 0))
            .height();
    }
    void OpenKind(Qt::Key key, int total) {
        ASSERT_TRUE(Press(key));
        ASSERT_TRUE(WaitFor([&] { return tour::ConsoleTotal() == total; })) << tour::ConsoleTotal();
    }
    static void CloseConsole() {
        ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(tour::Console()); }));
    }
    QString StoredAt(qint32 picId) {
        const QString uuid =
            Db().Value(u"SELECT file_uuid FROM bim_photo WHERE id = ?"_s, {picId}).toString();
        return support::FolderOf(session).Store().PathOf(uuid);
    }
};

TEST_F(CraftedRecords, APhotoOfTheConsoleStaysInItsRowWhateverItHolds) {
    OpenConsole();
    const QImage before = RowPicture(3);
    const int height = RowHeight(4);
    const qint32 crafted = site.photos[2]; // row 4, below 照片3.jpg
    ASSERT_EQ(RowOfPhoto(u"照片3.jpg"_s), 3);
    SetTexts(u"bim_photo"_s, {u"description"_s, u"pos_text"_s, u"updater"_s}, crafted);
    Set(u"bim_photo"_s, u"mark_id"_s, 999, crafted);
    Set(u"bim_photo"_s, u"state"_s, -7, crafted);
    Set(u"bim_photo"_s, u"status"_s, 77, crafted);
    Set(u"bim_photo"_s, u"uploaded"_s, -5'000'000'000LL, crafted);
    Set(u"bim_photo"_s, u"updated"_s, -1, crafted);
    ClickOn(*tour::Console(), u"searchButton"_s);
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleText(4, u"描述"_s).size() > 20; }));
    EXPECT_EQ(RowHeight(4), height);
    EXPECT_EQ(RowPicture(3), before);
    EXPECT_TRUE(Messages().isEmpty()) << Messages().join(u'\n').left(500).toStdString();
}

TEST_F(CraftedRecords, ADrawingPhotoAndAnIssueStayInTheirRowsWhateverTheyHold) {
    const qint64 pdf = First(u"pdf_photo"_s);
    SetTexts(u"pdf_photo"_s, {u"name"_s, u"description"_s, u"drawing_name"_s, u"updater"_s}, pdf);
    Set(u"pdf_photo"_s, u"mark_id"_s, -3, pdf);
    Set(u"pdf_photo"_s, u"state"_s, 99, pdf);
    Set(u"pdf_photo"_s, u"status"_s, -1, pdf);
    Set(u"pdf_photo"_s, u"uploaded"_s, -1, pdf);
    const qint64 issue = First(u"issue"_s);
    SetTexts(u"issue"_s,
             {u"theme"_s, u"description"_s, u"floor"_s, u"pos_info"_s, u"component_name"_s,
              u"creator"_s},
             issue);
    Set(u"issue"_s, u"mark_id"_s, 999, issue);
    Set(u"issue"_s, u"state"_s, 99, issue);
    Set(u"issue"_s, u"status"_s, 12, issue);
    Set(u"issue"_s, u"created"_s, -9'000'000'000'000LL, issue);
    OpenKind(Qt::Key_2, 1);
    EXPECT_LT(RowHeight(0), 60);
    EXPECT_FALSE(tour::Console()->grab().isNull());
    CloseConsole();
    OpenKind(Qt::Key_3, 2);
    EXPECT_EQ(RowHeight(0), RowHeight(1));
    EXPECT_FALSE(tour::Console()->grab().isNull());
    for (int row = 0; row < 2; ++row) {
        ClickRowIcon(row, u"预览"_s);
    }
    EXPECT_TRUE(tour::Console()->isVisible());
}

TEST_F(CraftedRecords, TheViewerShowsACraftedPhotoInItsLinesAndStepsOn) {
    const qint32 crafted = site.photos[3];
    SetTexts(u"bim_photo"_s, {u"name"_s, u"description"_s, u"uploader"_s, u"updater"_s}, crafted);
    Set(u"bim_photo"_s, u"uploaded"_s, -1, crafted);
    ASSERT_TRUE(WaitFor([this] { return hands::PressKey(client->Window(), Qt::Key_F5); }));
    ClickFlag(Plan(), site.positionKey, 1);
    ASSERT_NE(Viewer(), nullptr);
    const QSize size = Viewer()->size();
    for (int step = 0; step < 5; ++step) {
        EXPECT_TRUE(WaitFor([] { return hands::PressKey(Viewer(), Qt::Key_Right); }));
        EXPECT_FALSE(Viewer()->grab().isNull());
    }
    EXPECT_EQ(Viewer()->size(), size);
    for (const QString& line : {u"posText"_s, u"uploaderText"_s}) {
        const QWidget* text = tour::FindIn(Viewer(), line);
        if (text != nullptr) {
            EXPECT_LT(text->height(), 60) << line.toStdString();
            EXPECT_TRUE(Viewer()->rect().contains(
                QRect(text->mapTo(Viewer(), QPoint(0, 0)), text->size())));
        }
    }
}

TEST_F(CraftedRecords,
       APictureWhoseNameIsAPathOrThatIsNotThereShowsNothingOfTheDiskAndTheRestGoesOn) {
    const QString secret = folder.Write(u"secret"_s, JpegBytes(qRgb(255, 0, 255)));
    Set(u"bim_photo"_s, u"file_uuid"_s, u"../../../secret"_s, site.photos[4]);
    ASSERT_TRUE(QFile::remove(StoredAt(site.photos[3])));
    ClickFlag(Plan(), site.positionKey, 1);
    ASSERT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s);
    EXPECT_TRUE(WaitFor([] { return hands::PressKey(Viewer(), Qt::Key_Right); }));
    EXPECT_TRUE(WaitFor([] { return hands::PressKey(Viewer(), Qt::Key_Right); }));
    EXPECT_EQ(ViewerTitle(), u"照片2.jpg   (3/5)"_s);
    EXPECT_TRUE(WaitFor([] { return ViewerShows(ColorOf(2)); }));
    // By now whatever could be fetched of the others has been; the viewer's band says the rest.
    EXPECT_TRUE(WaitFor([] { return hands::PressKey(Viewer(), Qt::Key_Home); }));
    EXPECT_EQ(ViewerTitle(), u"照片4.jpg   (1/5)"_s);
    EXPECT_TRUE(WaitFor([this] { return Cached().size() == 3; })) << Cached().size();
    EXPECT_FALSE(ViewerShows(qRgb(255, 0, 255)));
    EXPECT_FALSE(ViewerShows(ColorOf(4)));
    CloseViewer();
    End();
    EXPECT_TRUE(QFile::exists(secret));
    ExpectNothingHalf();
}

TEST_F(CraftedRecords, TheEditorOpensOnACraftedPhotoAndCanBeLeft) {
    const qint32 crafted = cornerPhoto;
    SetTexts(u"bim_photo"_s, {u"description"_s, u"pos_text"_s}, crafted);
    Set(u"bim_photo"_s, u"mark_id"_s, 999, crafted);
    Set(u"bim_photo"_s, u"status"_s, 77, crafted);
    OpenConsole();
    const support::ModalVisit visit(u"BimPicEditDlg"_s, [](QWidget& editor) {
        EXPECT_FALSE(editor.grab().isNull());
        EXPECT_LT(editor.height(), 1000);
        ClickOn(editor, u"cancelButton"_s);
    });
    ClickRowIcon(RowOfPhoto(u"转角.jpg"_s), u"编辑"_s);
    EXPECT_EQ(OpenWindows(), (QStringList{tour::kConsole, tour::kMain}));
}

TEST_F(CraftedRecords, TheBinListsCraftedEntriesAndSaysWhyOneCannotComeBack) {
    site::IBin& bin = session.Site().Bin();
    ASSERT_EQ(bin.DeleteBimPhotos({site.firstProject}, site.photos,
                                  {u"张伟"_s, QDateTime::currentSecsSinceEpoch()}),
              5);
    const std::vector<site::BinEntry> entries = bin.List();
    Set(u"bin"_s, u"title"_s, Nasty(), entries[0].id);
    Set(u"bin"_s, u"deleted_by"_s, Nasty(), entries[0].id);
    Set(u"bin"_s, u"kind"_s, 9, entries[1].id);
    Set(u"bin"_s, u"ppid"_s, -4, entries[2].id);
    Set(u"bin"_s, u"deleted_at"_s, 9'000'000'000'000LL, entries[2].id);
    Db().Exec(u"UPDATE bin SET content = replace(content, '\"description\":\"\"', "
              "'\"description\":null') WHERE id = ?"_s,
              {entries[3].id});
    ASSERT_TRUE(Press(Qt::Key_B));
    ASSERT_TRUE(WaitFor([] { return tour::FindWindow(u"binWindow"_s) != nullptr; }));
    auto* window = tour::FindWindow(u"binWindow"_s);
    auto* table = window->findChild<QTableView*>(u"binTable"_s);
    ASSERT_EQ(table->model()->rowCount(), 5);
    EXPECT_FALSE(window->grab().isNull());
    for (int row = 1; row < 5; ++row) {
        EXPECT_EQ(table->rowHeight(row), table->rowHeight(0));
    }
    const auto restore = [&](int row) {
        table->selectRow(row);
        EXPECT_TRUE(WaitFor([&] { return hands::Click(tour::FindIn(window, u"binRestore"_s)); }));
        support::RunPendingEvents();
    };
    const auto rowOf = [&](qint64 id) {
        const std::vector<site::BinEntry> now = bin.List();
        for (size_t row = 0; row < now.size(); ++row) {
            if (now[row].id == id) {
                return int(row);
            }
        }
        return -1;
    };
    for (const size_t refused : {1U, 3U}) {
        const auto told = Messages().size();
        restore(rowOf(entries[refused].id));
        EXPECT_GE(rowOf(entries[refused].id), 0) << refused << " stays";
        EXPECT_TRUE(WaitFor([&] { return Messages().size() > told; })) << refused;
    }
    restore(rowOf(entries[0].id));
    EXPECT_EQ(rowOf(entries[0].id), -1);
}

} // namespace
} // namespace roads
