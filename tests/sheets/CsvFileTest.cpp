#include "sheets/CsvFile.h"

#include "tests/sheets/SheetMaker.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using sheettest::FaultOf;
using sheettest::NamesIn;
using sheettest::RowWith;
using sheettest::ThreeColumns;
using sheettest::WriteAll;

TEST(CsvFile, HeaderAndRowsWithAByteOrderMark) {
    const support::TempFolder folder;
    sheets::CsvFile file(folder.Path(u"a.csv"_s));
    const sheets::SheetNotes notes =
        WriteAll(file, {RowWith(1, u"墙, \"裂\""_s), {qint64(-2), u"=A1"_s, QString()}});
    EXPECT_EQ(notes.rows, 2);
    EXPECT_EQ(folder.Read(u"a.csv"_s), "\xEF\xBB\xBF编号,文字,时间\r\n"
                                       "1,\"墙, \"\"裂\"\"\",2026-11-23 18:30\r\n"
                                       "-2,'=A1,\r\n");
}

TEST(CsvFile, AnEmptyListIsItsHeader) {
    const support::TempFolder folder;
    sheets::CsvFile file(folder.Path(u"a.csv"_s));
    EXPECT_EQ(WriteAll(file, {}).rows, 0);
    EXPECT_EQ(folder.Read(u"a.csv"_s), "\xEF\xBB\xBF编号,文字,时间\r\n");
}

TEST(CsvFile, AFullDiskLeavesWhatWasThere) {
    const support::TempFolder folder;
    const QString path = folder.Write(u"a.csv"_s, "before");
    QString fault;
    {
        sheets::CsvFile file(path);
        const support::FileSizeLimit disk(100'000);
        fault = FaultOf(
            [&file] { WriteAll(file, std::vector(10'000, RowWith(1, QString(100, u'长')))); });
    }
    EXPECT_TRUE(fault.contains(u"磁盘可能已满"_s)) << fault.toStdString();
    EXPECT_TRUE(fault.contains(path));
    EXPECT_EQ(folder.Read(u"a.csv"_s), "before");
    EXPECT_EQ(NamesIn(folder.Path()), QStringList{u"a.csv"_s});
}

TEST(CsvFile, AFullDiskIsSeenAtTheVeryEndToo) {
    const support::TempFolder folder;
    const QString path = folder.Write(u"a.csv"_s, "before");
    {
        sheets::CsvFile file(path);
        file.Begin(ThreeColumns());
        file.Add(RowWith(1, u"短"_s));
        const support::FileSizeLimit disk(10);
        const std::atomic<bool> goesOn = false;
        EXPECT_FALSE(FaultOf([&] { (void)file.End(goesOn); }).isEmpty());
    }
    EXPECT_EQ(folder.Read(u"a.csv"_s), "before");
    EXPECT_EQ(NamesIn(folder.Path()), QStringList{u"a.csv"_s});
}

TEST(CsvFile, AFolderThatIsGoneIsToldBeforeAnyWork) {
    const support::TempFolder folder;
    sheets::CsvFile file(folder.Path(u"gone/a.csv"_s));
    const QString fault = FaultOf([&file] { file.Begin(ThreeColumns()); });
    EXPECT_TRUE(fault.contains(u"不存在"_s)) << fault.toStdString();
    EXPECT_TRUE(fault.contains(folder.Path(u"gone"_s)));
}

TEST(CsvFile, AFolderThatCannotBeWrittenIsToldBeforeAnyWork) {
    sheets::CsvFile file(QString::fromLatin1(support::kUnwritableFolder) + u"/a.csv"_s);
    const QString fault = FaultOf([&file] { file.Begin(ThreeColumns()); });
    EXPECT_TRUE(fault.contains(u"没有权限或磁盘只读"_s)) << fault.toStdString();
}

TEST(CsvFile, AFolderOfThatNameIsTold) {
    const support::TempFolder folder;
    folder.Write(u"a.csv/inside"_s, "x");
    sheets::CsvFile file(folder.Path(u"a.csv"_s));
    EXPECT_TRUE(FaultOf([&file] { file.Begin(ThreeColumns()); }).contains(u"是一个文件夹"_s));
}

TEST(CsvFile, ANameThatIsTooLongIsTold) {
    const support::TempFolder folder;
    sheets::CsvFile fits(folder.Path(QString(240, u'a') + u".csv"_s));
    EXPECT_EQ(FaultOf([&fits] { WriteAll(fits, {RowWith(1, u"一"_s)}); }), QString());
    sheets::CsvFile file(folder.Path(QString(252, u'a') + u".csv"_s));
    EXPECT_TRUE(FaultOf([&file] { file.Begin(ThreeColumns()); }).contains(u"文件名太长"_s));
}

TEST(CsvFile, AFileAsItsFolderIsTold) {
    const support::TempFolder folder;
    folder.Write(u"plain"_s, "x");
    sheets::CsvFile file(folder.Path(u"plain/a.csv"_s));
    EXPECT_TRUE(FaultOf([&file] { file.Begin(ThreeColumns()); }).contains(u"不存在"_s));
}

TEST(CsvFile, TheFolderMayGoMeanwhile) {
    const support::TempFolder folder;
    folder.Write(u"sub/other"_s, "x");
    sheets::CsvFile file(folder.Path(u"sub/a.csv"_s));
    file.Begin(ThreeColumns());
    file.Add(RowWith(1, u"行"_s));
    ASSERT_TRUE(QDir(folder.Path(u"sub"_s)).removeRecursively());
    const std::atomic<bool> goesOn = false;
    EXPECT_TRUE(FaultOf([&] { (void)file.End(goesOn); }).contains(u"不能替换文件"_s));
    EXPECT_EQ(NamesIn(folder.Path()), QStringList());
}

TEST(CsvFile, CancelledAtTheEndItLeavesWhatWasThere) {
    const support::TempFolder folder;
    folder.Write(u"a.csv"_s, "before");
    {
        sheets::CsvFile file(folder.Path(u"a.csv"_s));
        file.Begin(ThreeColumns());
        const std::atomic<bool> cancelled = true;
        EXPECT_THROW((void)file.End(cancelled), sheets::SheetCancelled);
    }
    EXPECT_EQ(folder.Read(u"a.csv"_s), "before");
    EXPECT_EQ(NamesIn(folder.Path()), QStringList{u"a.csv"_s});
}

} // namespace
