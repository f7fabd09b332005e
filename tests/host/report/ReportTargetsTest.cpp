// What each form of a report has in common: large contents, templates, places that refuse a file.
#include "host/report/PdfReport.h"
#include "host/report/WebReport.h"
#include "host/report/WordReport.h"

#include "tests/host/report/ReportSamples.h"
#include "tests/host/report/WordFile.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/OtherProgram.h"
#include "tests/viewers/support/FlatJpeg.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using support::OutputOf;

namespace reporttest {

namespace {

struct TargetForm {
    const char* name;
    Writer write;
};

class ReportTargets : public testing::TestWithParam<TargetForm> {
protected:
    [[nodiscard]] QString Path() const { return m_target.filePath(u"报告.bin"_s); }
    [[nodiscard]] QString Pictures() const { return m_pictures.path(); }
    [[nodiscard]] bool Is(const char* name) const { return QByteArray(GetParam().name) == name; }
    [[nodiscard]] QString WriteReport(const host::ReportSheet& sheet) const {
        return Write(GetParam().write, sheet, Path());
    }
    [[nodiscard]] QByteArray Bytes() const {
        QFile file(Path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    /// All texts of the written file, without blanks.
    [[nodiscard]] QString Text() const {
        QString text = QString::fromUtf8(Bytes());
        if (Is("Word")) {
            text = ParagraphsOf(WordFile(Path()).Text()).join(u' ');
        } else if (Is("Pdf")) {
            text = QString::fromUtf8(OutputOf(u"pdftotext"_s, {Path(), u"-"_s}));
        }
        static const QRegularExpression blanks(u"\\s"_s);
        return text.remove(blanks);
    }
    [[nodiscard]] qsizetype PictureCount() const {
        if (Is("Word")) {
            return WordFile(Path()).Pictures().size();
        }
        return Is("Pdf") ? OutputOf(u"pdfimages"_s, {u"-list"_s, Path()}).count('\n') - 2
                         : Bytes().count("src=\"data:image/");
    }

    const QTemporaryDir m_target;
    const QTemporaryDir m_pictures;
};

TEST_P(ReportTargets, ARecordOfTwoHundredPagesIsThereToItsEnd) {
    host::ReportContent content;
    QString html;
    for (int number = 0; number < 6000; ++number) {
        html += u"<p>记录%1段</p>"_s.arg(number);
    }
    content.record = host::ReportRecord{html, {}, {}};
    ASSERT_EQ(WriteReport(SheetFor(content)), QString());
    const QString text = Text();
    for (const int number : {0, 2999, 5999}) {
        EXPECT_EQ(text.count(u"记录%1段"_s.arg(number)), 1) << number;
    }
}

TEST_P(ReportTargets, AHugePhotoIsMadeSmallAndOneBeyondAllBoundsIsToldOf) {
    host::ReportContent content = PhotoReport(Pictures(), 2, {64, 48});
    QFile huge(content.sections[0].photos[0].file);
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
    huge.write(support::FlatJpeg({12'000, 9'000}, {128, 128, 128}));
    huge.close();
    QFile bitmap(content.sections[0].photos[1].file);
    ASSERT_TRUE(bitmap.open(QIODevice::WriteOnly));
    // A header of 30,000 by 30,000 at 24 bits, and no pixels.
    bitmap.write(QByteArray::fromHex("424d36000000000000003600000028000000"
                                     "307500003075000001001800000000000000"
                                     "0000000000000000000000000000000000000000"));
    bitmap.close();
    ASSERT_EQ(WriteReport(SheetFor(content)), QString());
    EXPECT_EQ(PictureCount(), 1);
    EXPECT_EQ(Text().count(u"图片无法读取"_s), 1);
    EXPECT_LT(QFile(Path()).size(), 2'000'000);
}

TEST_P(ReportTargets, TheTemplateGivesItsTitleLogoAndLines) {
    host::ReportTemplate dress;
    dress.title = u"监理月报"_s;
    dress.header = u"页眉文字"_s;
    dress.footer = u"页脚文字"_s;
    const host::ReportContent content = PhotoReport(Pictures(), 1);
    ASSERT_EQ(WriteReport(host::SheetOf(content, {}, dress)), QString());
    const qsizetype before = PictureCount();
    dress.logo = QImage(60, 40, QImage::Format_RGB32);
    dress.logo.fill(Qt::blue);
    ASSERT_EQ(WriteReport(host::SheetOf(content, {}, dress)), QString());
    EXPECT_EQ(PictureCount(), before + 1);
    QString text = Text();
    EXPECT_TRUE(text.contains(u"监理月报"_s));
    if (Is("Word")) {
        const WordFile file(Path());
        text = ParagraphsOf(file.Part(u"word/header1.xml"_s)).join(u' ') +
               ParagraphsOf(file.Part(u"word/footer1.xml"_s)).join(u' ');
    }
    EXPECT_TRUE(text.contains(dress.header));
    EXPECT_TRUE(text.contains(dress.footer));
}

TEST_P(ReportTargets, AFolderThatCannotBeWrittenIsToldInChinese) {
    const QString path = QString::fromLatin1(support::kUnwritableFolder) + u"/报告.bin"_s;
    const QString fault = Write(GetParam().write, SheetFor({}), path);
    EXPECT_TRUE(fault.startsWith(u"无法保存"_s)) << qPrintable(fault);
    EXPECT_TRUE(fault.contains(u"没有权限或磁盘只读"_s)) << qPrintable(fault);
}

TEST_P(ReportTargets, AWriteThatFailsIsToldInChinese) {
    QString fault;
    {
        const support::FileSizeLimit full(100);
        fault = WriteReport(SheetFor({}));
    }
    EXPECT_TRUE(fault.contains(u"写入失败，磁盘可能已满"_s)) << qPrintable(fault);
}

TEST_P(ReportTargets, WhoHasTheOldFileOpenReadsItToItsEnd) {
    QFile old(Path());
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("before") == 6);
    old.close();
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.read(3), QByteArray("bef"));
    ASSERT_EQ(WriteReport(SheetFor({})), QString());
    EXPECT_EQ(old.readAll(), QByteArray("ore"));
    EXPECT_FALSE(Bytes().startsWith("before"));
}

TEST_P(ReportTargets, PhotosAreAsLargeAsTheirChoice) {
    for (const auto pictures : {host::ReportPictures::Small, host::ReportPictures::Medium,
                                host::ReportPictures::OnePerPage}) {
        host::ReportOptions options;
        options.pictures = pictures;
        const host::ReportSheet sheet = SheetFor(PhotoReport(Pictures(), 1, {2400, 1800}), options);
        ASSERT_EQ(WriteReport(sheet), QString());
        const QSizeF room = host::GridOf(options).picture;
        const double fit = std::min(room.width() / 4, room.height() / 3) * 4;
        // The bytes of the file are those of the picture made for print.
        host::PrintPictures prints;
        const QString photo =
            std::get<host::PhotosBlock>(
                *std::ranges::find_if(sheet.blocks,
                                      [](const host::ReportBlock& block) {
                                          return std::holds_alternative<host::PhotosBlock>(block);
                                      }))
                .photos[0]
                .file;
        const host::PrintPicture print = prints.Wait(photo, room, {});
        EXPECT_NEAR(print.size.width(), fit * host::kPrintDpi / host::kReportDpi, 2);
        QFile made(print.path);
        ASSERT_TRUE(made.open(QIODevice::ReadOnly));
        const QByteArray bytes = made.readAll();
        EXPECT_TRUE(Bytes().contains(Is("Web") ? bytes.toBase64() : bytes)) << int(pictures);
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, ReportTargets,
                         testing::Values(TargetForm{"Pdf", host::WritePdf},
                                         TargetForm{"Word", host::WriteWord},
                                         TargetForm{"Web", host::WriteWeb}),
                         [](const auto& form) { return std::string(form.param.name); });

} // namespace

} // namespace reporttest
