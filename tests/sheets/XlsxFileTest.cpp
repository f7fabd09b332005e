#include "sheets/XlsxFile.h"

#include "tests/sheets/BookReader.h"
#include "tests/sheets/SheetMaker.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

#include <malloc.h>

namespace {

using namespace Qt::StringLiterals;
using sheettest::Book;
using sheettest::BookCell;
using sheettest::BookSheet;
using sheettest::FaultOf;
using sheettest::NamesIn;
using sheettest::ReadBook;
using sheettest::RowWith;
using sheettest::ThreeColumns;
using sheettest::WriteAll;

/// Temporary files of the test's own, to look at what is left of them.
class OwnTempPath final {
public:
    OwnTempPath() : m_before(qgetenv("TMPDIR")) {
        qputenv("TMPDIR", QFile::encodeName(folder.Path()));
    }
    ~OwnTempPath() { m_before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_before); }
    OwnTempPath(const OwnTempPath&) = delete;
    OwnTempPath& operator=(const OwnTempPath&) = delete;

    support::TempFolder folder;

private:
    QByteArray m_before;
};

qsizetype OpenFiles() {
    return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
}

QByteArray SmallPicture(QRgb color) {
    QImage picture(128, 96, QImage::Format_RGB32);
    picture.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "JPG");
    return bytes;
}

sheets::SheetLayout WithPictures() {
    return {u"清单"_s, {{u"编号"_s, 8}, {u"图片"_s, 20, sheets::CellKind::Picture}}};
}

Book Written(const std::vector<sheets::SheetRow>& rows, sheets::XlsxOptions options = {},
             const sheets::SheetLayout& layout = ThreeColumns()) {
    const support::TempFolder folder;
    sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), std::move(options));
    EXPECT_EQ(WriteAll(file, rows, layout).rows, qint64(rows.size()));
    return ReadBook(folder.Path(u"a.xlsx"_s));
}

TEST(XlsxFile, TextsNumbersAndTimesAreWhatTheyAre) {
    const Book book = Written({RowWith(1, u"墙面 <开裂> & \"渗漏\"\n两处 😀"_s)});
    ASSERT_EQ(book.sheets.size(), 1);
    EXPECT_EQ(book.sheets[0].name, u"清单"_s);
    ASSERT_EQ(book.sheets[0].rows.size(), 2);
    const std::vector<BookCell>& row = book.sheets[0].rows[1];
    ASSERT_EQ(row.size(), 3);
    EXPECT_EQ(row[0].type, QString());
    EXPECT_EQ(row[0].text, u"1"_s);
    EXPECT_EQ(row[1].type, u"inlineStr"_s);
    EXPECT_EQ(row[1].text, u"墙面 <开裂> & \"渗漏\"\n两处 😀"_s);
    EXPECT_TRUE(book.wraps[row[1].style]);
    EXPECT_EQ(row[2].type, QString());
    // 2026-11-23 is day 46349 of spreadsheets.
    EXPECT_NEAR(row[2].text.toDouble(), 46'349 + 18.5 / 24, 1e-9);
    EXPECT_EQ(book.numberForms[row[2].style], u"yyyy-mm-dd hh:mm"_s);
}

TEST(XlsxFile, TheHeaderIsBoldStaysAndFilters) {
    const Book book = Written({RowWith(1, u"一"_s), RowWith(2, u"二"_s)});
    const BookSheet& sheet = book.sheets[0];
    EXPECT_EQ(sheet.rows[0][1].text, u"文字"_s);
    EXPECT_TRUE(book.bold[sheet.rows[0][1].style]);
    EXPECT_FALSE(book.bold[sheet.rows[1][1].style]);
    EXPECT_EQ(sheet.pane, u"A2"_s);
    EXPECT_EQ(sheet.filter, u"A1:C3"_s);
}

TEST(XlsxFile, ARowIsAsHighAsItsLongestText) {
    const Book book = Written({RowWith(1, u"短"_s), RowWith(2, QString(40, u'长'))});
    const QByteArray sheet = book.parts[u"xl/worksheets/sheet1.xml"_s];
    EXPECT_TRUE(sheet.contains("<row r=\"2\"><c"));
    EXPECT_TRUE(sheet.contains("<row r=\"3\" ht=\"45\" customHeight=\"1\"><c"))
        << sheet.toStdString();
}

TEST(XlsxFile, NoTextIsAFormulaOrALink) {
    const QStringList texts{u"=1+1"_s,        u"+1"_s,
                            u"-1"_s,          u"@SUM(A1)"_s,
                            u"{=A1}"_s,       u"\t=1"_s,
                            u"'=1"_s,         u"=HYPERLINK(\"http://x\")"_s,
                            u"http://a.b/"_s, u"0012345678901234567890"_s,
                            u"TRUE"_s,        u"#REF!"_s};
    std::vector<sheets::SheetRow> rows;
    for (const QString& text : texts) {
        rows.push_back(RowWith(1, text));
    }
    const Book book = Written(rows);
    for (qsizetype i = 0; i < texts.size(); ++i) {
        const BookCell& cell = book.sheets[0].rows[size_t(i) + 1][1];
        EXPECT_EQ(cell.text, texts[i]);
        EXPECT_EQ(cell.type, u"inlineStr"_s);
        EXPECT_FALSE(cell.hasFormula);
    }
    EXPECT_FALSE(book.sheets[0].elements.contains(u"hyperlinks"_s));
}

TEST(XlsxFile, WhatXmlCannotHoldIsLeftOutAndTheFileIsReadable) {
    QString all;
    for (char16_t unit = 0; unit < 0x20; ++unit) {
        all += QChar(unit);
    }
    const Book book = Written({RowWith(1, u"前"_s + all + QChar(0xFFFF) + QChar(0xDC00) + u"后"_s),
                               RowWith(2, u"㐂䶵ㄅㄆ囍ﾊﾝ €"_s), RowWith(3, u"_x0041_"_s)});
    EXPECT_EQ(book.sheets[0].rows[1][1].text, u"前\t\n\n后"_s);
    EXPECT_EQ(book.sheets[0].rows[2][1].text, u"㐂䶵ㄅㄆ囍ﾊﾝ €"_s);
    EXPECT_EQ(book.sheets[0].rows[3][1].text, u"_x005F_x0041_"_s);
}

TEST(XlsxFile, AnEmptyListIsItsHeader) {
    const Book book = Written({});
    ASSERT_EQ(book.sheets[0].rows.size(), 1);
    EXPECT_EQ(book.sheets[0].rows[0][0].text, u"编号"_s);
}

TEST(XlsxFile, ALongTextIsCutWithASignAndCounted) {
    const support::TempFolder folder;
    sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), {});
    const sheets::SheetNotes notes =
        WriteAll(file, {RowWith(1, QString(40'000, u'长')), RowWith(2, QString(32'767, u'长'))});
    EXPECT_EQ(notes.cutTexts, 1);
    const Book book = ReadBook(folder.Path(u"a.xlsx"_s));
    EXPECT_EQ(book.sheets[0].rows[1][1].text, QString(32'766, u'长') + u'…');
    EXPECT_EQ(book.sheets[0].rows[2][1].text, QString(32'767, u'长'));
}

TEST(XlsxFile, AListLongerThanAWorksheetGoesOnInTheNext) {
    sheets::XlsxOptions options;
    options.rowsPerSheet = 2;
    const Book book = Written({RowWith(1, u"一"_s), RowWith(2, u"二"_s), RowWith(3, u"三"_s),
                               RowWith(4, u"四"_s), RowWith(5, u"五"_s)},
                              options);
    ASSERT_EQ(book.sheets.size(), 3);
    EXPECT_EQ(book.sheets[1].name, u"清单 (2)"_s);
    for (const BookSheet& sheet : book.sheets) {
        EXPECT_EQ(sheet.rows[0][1].text, u"文字"_s);
        EXPECT_EQ(sheet.pane, u"A2"_s);
    }
    EXPECT_EQ(book.sheets[1].rows[1][1].text, u"三"_s);
    EXPECT_EQ(book.sheets[2].filter, u"A1:C2"_s);
}

TEST(XlsxFile, SmallPicturesAndWordsWhereThereAreNone) {
    sheets::XlsxOptions options;
    options.mostPictures = 2;
    options.pictureOf = [](const sheets::SheetPicture& picture) {
        return picture.uuid == u"gone"_s     ? QByteArray()
               : picture.uuid == u"broken"_s ? QByteArray("no picture")
                                             : SmallPicture(qRgb(picture.ppid, 1, 1));
    };
    const auto row = [](const QString& uuid, qint32 ppid) {
        return sheets::SheetRow{u"x"_s, sheets::SheetPicture{ppid, uuid}};
    };
    const support::TempFolder folder;
    sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), options);
    const sheets::SheetNotes notes =
        WriteAll(file,
                 {row(u"a"_s, 10), row({}, 1), row(u"gone"_s, 1), row(u"broken"_s, 1),
                  row(u"b"_s, 200), row(u"c"_s, 3)},
                 WithPictures());
    EXPECT_EQ(notes.missingPictures, 2);
    EXPECT_EQ(notes.leftOutPictures, 1);
    const Book book = ReadBook(folder.Path(u"a.xlsx"_s));
    const auto& rows = book.sheets[0].rows;
    EXPECT_EQ(rows[2][1].text, u"无图片"_s);
    EXPECT_EQ(rows[3][1].text, u"图片缺失"_s);
    EXPECT_EQ(rows[4][1].text, u"图片缺失"_s);
    EXPECT_EQ(rows[6][1].text, u"图片过多，未附上"_s);
    ASSERT_TRUE(book.parts.contains(u"xl/media/image2.jpeg"_s));
    EXPECT_EQ(book.parts[u"xl/media/image1.jpeg"_s], SmallPicture(qRgb(10, 1, 1)));
    EXPECT_EQ(book.parts[u"xl/media/image2.jpeg"_s], SmallPicture(qRgb(200, 1, 1)));
    const QByteArray drawing = book.parts[u"xl/drawings/drawing1.xml"_s];
    EXPECT_EQ(drawing.count("<xdr:from>"), 2);
    EXPECT_TRUE(drawing.contains("<xdr:row>1</xdr:row>"));
    EXPECT_TRUE(drawing.contains("<xdr:row>5</xdr:row>"));
    EXPECT_FALSE(drawing.contains("<xdr:row>2</xdr:row>")) << "a picture stays within its row";
}

// What the sanitizers count themselves, this doesn't.
TEST(XlsxFile, ItsMemoryDoesNotGrowWithItsRows) {
    const support::TempFolder folder;
    sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), {});
    file.Begin(ThreeColumns());
    const auto add = [&file](int from, int count) {
        for (int number = from; number < from + count; ++number) {
            file.Add(RowWith(number, QString(100, u'长') + QString::number(number)));
        }
        return qint64(mallinfo2().uordblks);
    };
    const qint64 before = add(0, 1'000);
    EXPECT_LT(add(1'000, 20'000) - before, 1'000'000);
}

TEST(XlsxFile, AFullDiskForTheRowsLeavesWhatWasThere) {
    const support::TempFolder folder;
    const OwnTempPath temp;
    folder.Write(u"a.xlsx"_s, "before");
    {
        sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), {});
        const support::FileSizeLimit disk(200'000);
        const QString fault = FaultOf(
            [&file] { WriteAll(file, std::vector(5'000, RowWith(1, QString(100, u'长')))); });
        EXPECT_TRUE(fault.contains(u"磁盘可能已满"_s)) << fault.toStdString();
        EXPECT_TRUE(fault.contains(folder.Path(u"a.xlsx"_s)));
    }
    EXPECT_EQ(folder.Read(u"a.xlsx"_s), "before");
    EXPECT_EQ(NamesIn(folder.Path()), QStringList{u"a.xlsx"_s});
    EXPECT_EQ(NamesIn(temp.folder.Path()), QStringList());
}

// Where the library's own writes are cut off, at whatever place, nothing of it is taken for a file.
TEST(XlsxFile, ADiskThatIsFullWhileTheBookIsPackedIsSeen) {
    const support::TempFolder folder;
    const std::vector<sheets::SheetRow> rows(2'000, RowWith(1, QString(60, u'长')));
    std::vector<rlim_t> limits;
    for (rlim_t bytes = 300; bytes < 1'000'000; bytes += bytes / 2) {
        limits.push_back(bytes);
    }
    {
        sheets::XlsxFile file(folder.Path(u"whole.xlsx"_s), {});
        WriteAll(file, rows);
    }
    // The part of the sheet is the largest: just short of its size its last bytes are lost.
    const rlim_t sheet =
        rlim_t(ReadBook(folder.Path(u"whole.xlsx"_s)).parts[u"xl/worksheets/sheet1.xml"_s].size());
    limits.insert(limits.end(), {sheet - 1, sheet - 10, sheet - 400});
    for (const rlim_t bytes : limits) {
        if (bytes >= sheet) {
            continue;
        }
        folder.Write(u"a.xlsx"_s, "before");
        {
            sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), {});
            const support::FileSizeLimit disk(bytes);
            EXPECT_FALSE(FaultOf([&] { WriteAll(file, rows); }).isEmpty()) << bytes;
        }
        EXPECT_EQ(folder.Read(u"a.xlsx"_s), "before") << bytes;
    }
    EXPECT_EQ(NamesIn(folder.Path()), (QStringList{u"a.xlsx"_s, u"whole.xlsx"_s}));
}

TEST(XlsxFile, GivenUpAnywhereItLeavesNothingBehind) {
    const support::TempFolder folder;
    const OwnTempPath temp;
    folder.Write(u"a.xlsx"_s, "before");
    const qsizetype openBefore = OpenFiles();
    const std::atomic<bool> cancelled = true;
    for (int step = 0; step < 4; ++step) {
        sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), {});
        if (step > 0) {
            file.Begin(ThreeColumns());
        }
        if (step > 1) {
            file.Add(RowWith(1, u"一"_s));
        }
        if (step > 2) {
            EXPECT_THROW((void)file.End(cancelled), sheets::SheetCancelled);
        }
    }
    EXPECT_EQ(OpenFiles(), openBefore);
    EXPECT_EQ(folder.Read(u"a.xlsx"_s), "before");
    EXPECT_EQ(NamesIn(folder.Path()), QStringList{u"a.xlsx"_s});
    EXPECT_EQ(NamesIn(temp.folder.Path()), QStringList());
}

TEST(XlsxFile, AnOverwrittenFileIsTheNewOne) {
    const support::TempFolder folder;
    const OwnTempPath temp;
    folder.Write(u"a.xlsx"_s, QByteArray(1'000'000, 'x'));
    {
        sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), {});
        WriteAll(file, {RowWith(1, u"新"_s)});
    }
    EXPECT_EQ(ReadBook(folder.Path(u"a.xlsx"_s)).sheets[0].rows[1][1].text, u"新"_s);
    EXPECT_EQ(NamesIn(temp.folder.Path()), QStringList());
}

TEST(XlsxFile, AFolderThatIsGoneOrCannotBeWrittenIsToldBeforeAnyWork) {
    const support::TempFolder folder;
    sheets::XlsxFile gone(folder.Path(u"gone/a.xlsx"_s), {});
    EXPECT_TRUE(FaultOf([&gone] { gone.Begin(ThreeColumns()); }).contains(u"不存在"_s));
    sheets::XlsxFile locked(QString::fromLatin1(support::kUnwritableFolder) + u"/a.xlsx"_s, {});
    EXPECT_TRUE(FaultOf([&locked] { locked.Begin(ThreeColumns()); }).contains(u"没有权限"_s));
}

} // namespace
