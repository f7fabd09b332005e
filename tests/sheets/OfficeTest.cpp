// What a spreadsheet program makes of the files.
#include "sheets/CsvFile.h"
#include "sheets/XlsxFile.h"

#include "tests/sheets/SheetMaker.h"
#include "tests/support/TempFolder.h"

#include <QProcess>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using sheettest::RowWith;
using sheettest::WriteAll;

/// LibreOffice reads a file and writes it again as CSV in UTF-8, all fields as they are shown.
QByteArray ThroughOffice(const support::TempFolder& folder, const QString& name,
                         const QString& reading) {
    const QString profile = QUrl::fromLocalFile(folder.Path(u"profile"_s)).toString();
    QStringList words{u"-env:UserInstallation="_s + profile, u"--headless"_s};
    if (!reading.isEmpty()) {
        words << u"--infilter="_s + reading;
    }
    words << u"--convert-to"_s
          << u"csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false"_s << u"--outdir"_s
          << folder.Path(u"out"_s) << folder.Path(name);
    QProcess office;
    office.start(u"soffice"_s, words);
    constexpr int kPatienceMs = 120'000;
    EXPECT_TRUE(office.waitForFinished(kPatienceMs)) << "LibreOffice doesn't come to an end";
    EXPECT_EQ(office.exitCode(), 0);
    return folder.Read(u"out/a.csv"_s);
}

const std::vector<sheets::SheetRow> kOfficeRows = {
    RowWith(1, u"=1+1"_s),
    RowWith(2, u"墙, \"裂\"\n两处 😀𠮷"_s),
    {qint64(3), u"_x0041_ 0012"_s, QString()},
    RowWith(-4, u"@SUM(A1:A3) 㐂ㄅ"_s),
    RowWith(5, u"-2+3"_s),
};

TEST(Office, ReadsTheWorkbookAsItWasMeant) {
    const support::TempFolder folder;
    {
        sheets::XlsxFile file(folder.Path(u"a.xlsx"_s), {});
        WriteAll(file, kOfficeRows);
    }
    EXPECT_EQ(ThroughOffice(folder, u"a.xlsx"_s, {}).toStdString(),
              "编号,文字,时间\n"
              "1,=1+1,2026-11-23 18:30:00\n"
              "2,\"墙, \"\"裂\"\"\n两处 😀𠮷\",2026-11-23 18:30:00\n"
              "3,_x0041_ 0012,\n"
              "-4,@SUM(A1:A3) 㐂ㄅ,2026-11-23 18:30:00\n"
              "5,-2+3,2026-11-23 18:30:00\n");
}

// Told to take formulas where it finds them, as a person may have set it.
TEST(Office, FindsNoFormulaInTheCsv) {
    const support::TempFolder folder;
    {
        sheets::CsvFile file(folder.Path(u"a.csv"_s));
        WriteAll(file, kOfficeRows);
    }
    const QByteArray read = ThroughOffice(
        folder, u"a.csv"_s,
        u"Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,0,false,true"_s);
    EXPECT_TRUE(read.contains("=1+1")) << read.toStdString();
    EXPECT_TRUE(read.contains("墙, \"\"裂\"\"\n两处 😀𠮷"));
    EXPECT_TRUE(read.contains("-2+3"));
    EXPECT_FALSE(read.contains("Err:"));
}

} // namespace
