// From a search in the console to a spreadsheet of all its pages.
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/roads/PhotoRoad.h"
#include "tests/sheets/BookReader.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/ManualClock.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAction>
#include <QApplication>

namespace roads {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;
using tour::Console;

const QString kSheetEntry = u"输出列表..."_s;

class SheetRoad : public PhotoRoad {
protected:
    [[nodiscard]] QAction& Entry() const {
        for (QAction* action :
             client->Window()->actions() + client->Window()->findChildren<QAction*>()) {
            if (action->text() == kSheetEntry) {
                return *action;
            }
        }
        throw std::runtime_error("no such entry");
    }
    static QWidget* Dialog() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"sheetDialog"_s && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    /// Ctrl+Shift+E in the console.
    static void AskInTheConsole() {
        ASSERT_TRUE(WaitFor([] {
            return hands::PressKey(Console(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        }));
        ASSERT_TRUE(WaitFor([] { return Dialog() != nullptr; }));
    }
    static void Accept() {
        ASSERT_TRUE(WaitFor([] { return hands::PressKey(Dialog(), Qt::Key_Return); }));
    }
    [[nodiscard]] QString Today() const {
        return QDateTime::fromSecsSinceEpoch(toolkit::Clock().NowSeconds()).toString(u"yyyyMMdd"_s);
    }
    /// Waits for the message that says so.
    [[nodiscard]] bool IsTold(const QString& beginning) const {
        return WaitFor([&] {
            const QStringList messages = Messages();
            return !messages.isEmpty() && messages.front().startsWith(beginning);
        });
    }
    /// The question that stands at the end.
    static void ExpectDone(support::AnsweredPrompts& prompts, const QString& told,
                           bool shows = false) {
        prompts.ExpectYesNo(told + u"\n要打开它所在的文件夹吗？"_s, shows);
    }
    static void WaitForAnswers(support::AnsweredPrompts& prompts) {
        ASSERT_TRUE(WaitFor([&prompts] { return prompts.AllAnswered(); }));
    }
    [[nodiscard]] QStringList NamesIn(const sheettest::Book& book, size_t column) const {
        QStringList names;
        for (const auto& row : book.sheets.at(0).rows) {
            names << row.at(column).text;
        }
        return names;
    }
};

TEST_F(SheetRoad, WithoutAConsoleThereIsNothingToWrite) {
    EXPECT_TRUE(WaitFor([this] { return !Entry().isEnabled(); }));
    EXPECT_TRUE(Entry().toolTip().contains(u"请先打开控制台并搜索"_s));
    OpenConsole();
    EXPECT_TRUE(Entry().isEnabled());
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(Console()); }));
    EXPECT_TRUE(WaitFor([this] { return !Entry().isEnabled(); }));
}

TEST_F(SheetRoad, TheWholeListAsAWorkbook) {
    const QString path = folder.Path(u"清单.xlsx"_s);
    OpenConsole();
    const QStringList shown = ConsoleColumnTexts(u"照片名称"_s);
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"BIM模型照片_一期工程_%1.xlsx"_s.arg(Today()), path);
    ExpectDone(prompts, u"已输出 7 行到 %1。"_s.arg(path), true);
    prompts.ExpectRevealFile(path);
    AskInTheConsole();
    Accept();
    ASSERT_TRUE(IsTold(u"已输出 7 行到 %1。"_s.arg(path)));
    WaitForAnswers(prompts);
    EXPECT_EQ(toolkit::WidgetOf(prompts.Parents().at(1)), Console());
    EXPECT_EQ(prompts.LastFilter(), u"Excel 工作簿 (*.xlsx)"_s);
    const sheettest::Book book = sheettest::ReadBook(path);
    EXPECT_EQ(NamesIn(book, 2), QStringList{u"照片名称"_s} + shown);
    EXPECT_TRUE(WaitFor([this] { return Entry().isEnabled(); }));
}

TEST_F(SheetRoad, AllPagesOfWhatWasSearchedInTheOrderThatIsShown) {
    {
        site::SiteWriter writer(support::FolderOf(session));
        writer.BeginBatch();
        for (int number = 0; number < 70; ++number) {
            site::NewBimPhoto photo;
            photo.ppid = site.firstProject;
            photo.fileName = u"梁%1.jpg"_s.arg(number, 2, 10, QChar(u'0'));
            photo.uploader = u"张伟"_s;
            photo.uploadTime = 1'800'000'000 + number;
            writer.FilePhoto(photo, {QString(), JpegBytes(qRgb(number, 1, 1))});
        }
        writer.CommitBatch();
    }
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 77; }));
    ASSERT_TRUE(
        WaitFor([] { return hands::TypeOver(tour::ConsoleControl(u"keywordCombo"_s), u"梁"_s); }));
    ClickOn(*Console(), u"searchButton"_s);
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 70; }));
    ASSERT_TRUE(WaitFor([] { return tour::ClickConsoleHeader(u"照片名称"_s); }));
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleText(0, u"照片名称"_s) == u"梁00.jpg"_s; }));
    ClickOn(*Console(), u"pagingNext"_s);
    ASSERT_TRUE(WaitFor([] { return tour::ConsolePage() == 2; }));

    const QString path = folder.Path(u"清单.csv"_s);
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"BIM模型照片_一期工程_%1.csv"_s.arg(Today()), path);
    ExpectDone(prompts, u"已输出 70 行到 %1。"_s.arg(path));
    AskInTheConsole();
    ClickOn(*Dialog(), u"sheetCsv"_s);
    Accept();
    ASSERT_TRUE(IsTold(u"已输出 70 行到"_s));
    WaitForAnswers(prompts);
    const QStringList lines = QString::fromUtf8(folder.Read(u"清单.csv"_s)).split(u"\r\n"_s);
    ASSERT_EQ(lines.size(), 72);
    EXPECT_TRUE(lines[1].startsWith(u"1,,梁00.jpg,一期工程,张伟,,2027-01-15 16:00,"_s))
        << lines[1].toStdString();
    EXPECT_TRUE(lines[70].startsWith(u"70,,梁69.jpg"_s));
}

TEST_F(SheetRoad, FromTheMainWindowWithSmallPicturesOfTheKindInSight) {
    OpenConsole();
    ClickOn(*Console(), u"pdfRadio"_s);
    ASSERT_TRUE(WaitFor([] { return tour::ConsoleTotal() == 1; }));
    const QString path = folder.Path(u"图.xlsx"_s);
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"图纸照片_一期工程_%1.xlsx"_s.arg(Today()), path);
    ExpectDone(prompts, u"已输出 1 行到 %1。"_s.arg(path));
    // The console lies above the menus.
    ASSERT_TRUE(WaitFor([this] {
        return hands::PressKey(client->Window(), Qt::Key_E,
                               Qt::ControlModifier | Qt::ShiftModifier);
    }));
    ASSERT_TRUE(WaitFor([] { return Dialog() != nullptr; }));
    ClickOn(*Dialog(), u"sheetPictures"_s);
    Accept();
    ASSERT_TRUE(IsTold(u"已输出 1 行到"_s));
    WaitForAnswers(prompts);
    const sheettest::Book book = sheettest::ReadBook(path);
    EXPECT_EQ(book.sheets[0].name, u"图纸照片"_s);
    EXPECT_EQ(NamesIn(book, 3), (QStringList{u"照片名称"_s, u"图纸照片.jpg"_s}));
    const QImage picture = QImage::fromData(book.parts[u"xl/media/image1.jpeg"_s]);
    EXPECT_EQ(picture.height(), 96);
    EXPECT_NEAR(qBlue(picture.pixel(60, 48)), 3, 8);
}

TEST_F(SheetRoad, ADamagedPictureIsNamedInItsCell) {
    OpenConsole();
    // The site's own copy of one, and the cache has none yet.
    ASSERT_EQ(Cached(), QStringList());
    session.Desk()->SetRules({0, site::TransferFault::InTheMiddle});
    support::AnsweredPrompts prompts;
    const QString path = folder.Path(u"图.xlsx"_s);
    prompts.ExpectSaveFile(u"BIM模型照片_一期工程_%1.xlsx"_s.arg(Today()), path);
    ExpectDone(prompts,
               u"已输出 7 行到 %1。7 张图片缺失或已损坏，单元格中注明“图片缺失”。"_s.arg(path));
    AskInTheConsole();
    ClickOn(*Dialog(), u"sheetPictures"_s);
    Accept();
    ASSERT_TRUE(IsTold(u"已输出 7 行到 %1。7 张图片缺失或已损坏"_s.arg(path)))
        << Messages().join(u'\n').toStdString();
    WaitForAnswers(prompts);
    EXPECT_EQ(sheettest::ReadBook(path).sheets[0].rows[1][1].text, u"图片缺失"_s);
    session.Desk()->SetRules({});
}

TEST_F(SheetRoad, AFolderThatIsGoneIsToldAndTheListCanBeWrittenElsewhere) {
    OpenConsole();
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"BIM模型照片_一期工程_%1.xlsx"_s.arg(Today()),
                           folder.Path(u"gone/a.xlsx"_s));
    prompts.ExpectMessage(
        u"无法输出列表：文件夹 %1 不存在，可能已被删除或断开。请换一个文件夹后再输出。"_s.arg(
            folder.Path(u"gone"_s)));
    AskInTheConsole();
    Accept();
    ASSERT_TRUE(IsTold(u"无法输出列表：文件夹 %1 不存在"_s.arg(folder.Path(u"gone"_s))));
    WaitForAnswers(prompts);
    prompts.ExpectSaveFile(folder.Path(u"gone"_s) + u"/BIM模型照片_一期工程_%1.xlsx"_s.arg(Today()),
                           folder.Path(u"a.xlsx"_s));
    ExpectDone(prompts, u"已输出 7 行到 %1。"_s.arg(folder.Path(u"a.xlsx"_s)));
    AskInTheConsole();
    Accept();
    ASSERT_TRUE(IsTold(u"已输出 7 行到"_s));
    WaitForAnswers(prompts);
}

TEST_F(SheetRoad, AFileThatIsOpenInAnotherProgramIsReplacedAndThatIsTold) {
    const QString path = folder.Write(u"清单.csv"_s, "before");
    folder.Write(u".~lock.清单.csv#"_s, "");
    OpenConsole();
    support::AnsweredPrompts prompts;
    prompts.ExpectSaveFile(u"BIM模型照片_一期工程_%1.csv"_s.arg(Today()), path);
    AskInTheConsole();
    ClickOn(*Dialog(), u"sheetCsv"_s);
    Accept();
    ASSERT_TRUE(
        IsTold(u"已输出 7 行到 %1。该文件可能正在其他程序中打开，请在那里重新打开它。"_s.arg(path)))
        << Messages().join(u'\n').toStdString();
    EXPECT_TRUE(folder.Read(u"清单.csv"_s).startsWith("\xEF\xBB\xBF"));
}

TEST_F(SheetRoad, CancelledAtTheQuestionsNothingHappens) {
    OpenConsole();
    support::AnsweredPrompts prompts;
    AskInTheConsole();
    ASSERT_TRUE(WaitFor([] { return hands::PressKey(Dialog(), Qt::Key_Escape); }));
    ASSERT_TRUE(WaitFor([] { return Dialog() == nullptr; }));
    prompts.ExpectSaveFile(u"BIM模型照片_一期工程_%1.xlsx"_s.arg(Today()), {});
    AskInTheConsole();
    Accept();
    ASSERT_TRUE(WaitFor([&prompts] { return prompts.AllAnswered(); }));
    EXPECT_EQ(Messages(), QStringList());
    EXPECT_TRUE(Entry().isEnabled());
}

TEST_F(SheetRoad, TheConsoleAndTheClientMayGoWhileTheQuestionStands) {
    OpenConsole();
    AskInTheConsole();
    End();
    EXPECT_EQ(Dialog(), nullptr);
}

} // namespace
} // namespace roads
