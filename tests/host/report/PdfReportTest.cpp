// The PDF form of a report, read back by other programs.
#include "host/report/PdfReport.h"
#include "host/report/PageText.h"
#include "tests/host/report/PageSamples.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/OtherProgram.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <future>
#include <sys/stat.h>
#include <unistd.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using reporttest::AddRecord;
using reporttest::PhotosAt;
using reporttest::WritePhoto;
using support::OutputOf;

class PdfReports : public testing::Test {
protected:
    /// Why there is no file; empty: there is one.
    QString Save(const ReportContent& content, const ReportOptions& options = {},
                 const ReportSteps& steps = {}) {
        try {
            ReportFile file(path);
            WritePdf(SheetOf(content, options, dress), pictures, file, steps);
            return {};
        } catch (const ReportFault& fault) {
            return fault.Text().isEmpty() ? u"cancelled"_s : fault.Text();
        }
    }
    [[nodiscard]] QString Text() const {
        // Columns of one line belong together.
        return QString::fromUtf8(OutputOf(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s}))
            .simplified();
    }
    /// Width, height and coding of each picture.
    [[nodiscard]] QStringList Pictures() const {
        QStringList found;
        const QStringList lines =
            QString::fromUtf8(OutputOf(u"pdfimages"_s, {u"-list"_s, path})).split(u'\n');
        for (const QString& line : lines.mid(2)) {
            const QStringList words = line.simplified().split(u' ');
            if (words.size() > 8) {
                found << u"%1x%2 %3"_s.arg(words[3], words[4], words[8]);
            }
        }
        return found;
    }
    [[nodiscard]] QStringList Names() const {
        return QDir(folder.Path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    support::TempFolder folder;
    QString path = folder.Path(u"报告.pdf"_s);
    ReportTemplate dress;
    PrintPictures pictures;
};

TEST_F(PdfReports, AnotherProgramReadsItsTexts) {
    dress.header = u"示例建设集团"_s;
    dress.footer = u"内部资料"_s;
    ReportContent content = PhotosAt(WritePhoto(folder, u"a.jpg"_s, Qt::red), 3);
    AddRecord(content, u"<h1>浇筑记录</h1><p>混凝土<b>强度</b>合格</p>"_s);
    ASSERT_EQ(Save(content), u"");
    const QString text = Text();
    qsizetype from = 0;
    for (const QString& words :
         {u"示例建设集团"_s, u"照片报告"_s, u"城东示例工程"_s, u"3层 2-B轴 质量"_s, u"目录"_s,
          u"概况"_s, u"照片1.jpg"_s, u"上传：李四"_s, u"内部资料"_s, u"照片2.jpg"_s, u"照片3.jpg"_s,
          u"整改情况"_s, u"浇筑记录"_s, u"混凝土强度合格"_s}) {
        const qsizetype at = text.indexOf(words, from);
        EXPECT_GE(at, from) << qUtf8Printable(words) << "\n" << qUtf8Printable(text);
        from = std::max(from, at);
    }
    EXPECT_TRUE(text.contains(u"第 1 页，共 2 页"_s));
    EXPECT_TRUE(text.contains(u"第 2 页，共 2 页"_s));
}

TEST_F(PdfReports, PhotosAreThereOnceEachAsTheyWereMadeForPrint) {
    const QString one = WritePhoto(folder, u"a.jpg"_s, Qt::red, {3000, 2000});
    ReportContent content = PhotosAt(one, 4);
    content.sections[0].photos[3].file = WritePhoto(folder, u"b.jpg"_s, Qt::green, {300, 400});
    ASSERT_EQ(Save(content), u"");
    const QSizeF room = GridOf({}).picture;
    const PrintPicture printed = pictures.Wait(one, room, {});
    ASSERT_TRUE(printed.IsThere());
    // The same object on each page is listed once a page.
    const QString large = u"%1x%2 jpeg"_s.arg(printed.size.width()).arg(printed.size.height());
    EXPECT_EQ(Pictures(), QStringList({large, large, large, u"300x400 jpeg"_s}));
    QFile file(printed.path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QFile pdf(path);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray whole = pdf.readAll();
    EXPECT_EQ(whole.count(file.readAll()), 1);
}

TEST_F(PdfReports, TheCheckerHasNothingToSay) {
    ReportContent content = PhotosAt(WritePhoto(folder, u"a.jpg"_s, Qt::red), 9);
    content.plan = QImage(300, 200, QImage::Format_RGB32);
    content.plan.fill(Qt::yellow);
    ASSERT_EQ(Save(content), u"");
    const QString told = QString::fromUtf8(OutputOf(u"qpdf"_s, {u"--check"_s, path}));
    EXPECT_TRUE(told.contains(u"No syntax or stream encoding errors found"_s))
        << qUtf8Printable(told);
    const QString info = QString::fromUtf8(OutputOf(u"pdfinfo"_s, {path}));
    EXPECT_TRUE(info.contains(u"PDF version:     1.4"_s)) << qUtf8Printable(info);
    EXPECT_TRUE(info.contains(u"照片报告"_s));
}

TEST_F(PdfReports, ItHoldsItsFontsAndWhatTheirSignsMean) {
    ReportContent content = PhotosAt({}, 1);
    AddRecord(content,
              u"<p><b>粗</b><i>斜</i><span style='font-family:monospace'>abc</span></p>"_s);
    ASSERT_EQ(Save(content), u"");
    const QString fonts = QString::fromUtf8(OutputOf(u"pdffonts"_s, {path}));
    const QStringList lines = fonts.split(u'\n', Qt::SkipEmptyParts).mid(2);
    EXPECT_GE(lines.size(), 1);
    for (const QString& line : lines) {
        // Behind names that may have blanks: embedded, subset, Unicode, object, generation.
        const QStringList words = line.simplified().split(u' ');
        ASSERT_GE(words.size(), 7);
        EXPECT_EQ(words[words.size() - 5], u"yes") << qUtf8Printable(line);
        EXPECT_EQ(words[words.size() - 3], u"yes") << qUtf8Printable(line);
    }
}

TEST_F(PdfReports, ItSaysThatItIsMadeForArchives) {
    ASSERT_EQ(Save(PhotosAt(WritePhoto(folder, u"a.jpg"_s, Qt::red), 1)), u"");
    const QByteArray whole = folder.Read(u"报告.pdf"_s);
    EXPECT_TRUE(whole.contains("<pdfaid:part>1</pdfaid:part>") ||
                whole.contains("pdfaid:part=\"1\""));
    EXPECT_TRUE(whole.contains("/GTS_PDFA1"));
}

TEST_F(PdfReports, HeadingsAreBookmarksInTheirTree) {
    ReportContent content = PhotosAt(WritePhoto(folder, u"a.jpg"_s, Qt::red), 4);
    content.sections.push_back(content.sections[0]);
    content.sections[1].title = u"第二部分"_s;
    content.sections[0].comments = {{u"张三"_s, u"2026-03-01"_s, u"请处理"_s}};
    content.sections[0].commentsTitle = u"评论"_s;
    ASSERT_EQ(Save(content), u"");
    const QJsonObject told =
        QJsonDocument::fromJson(
            OutputOf(u"qpdf"_s, {u"--json=1"_s, u"--json-key=outlines"_s, path}))
            .object();
    QStringList titles;
    const QJsonArray outlines = told[u"outlines"_s].toArray();
    for (const QJsonValue& value : outlines) {
        titles << value[u"title"_s].toString();
        for (const QJsonValue& kid : value[u"kids"_s].toArray()) {
            titles << u"- "_s + kid[u"title"_s].toString();
        }
    }
    EXPECT_EQ(titles, QStringList({u"概况"_s, u"照片"_s, u"- 评论"_s, u"第二部分"_s}));
    EXPECT_EQ(outlines[0][u"destpageposfrom1"_s].toInt(), 1);
    EXPECT_EQ(outlines[2][u"destpageposfrom1"_s].toInt(), 3);
}

TEST_F(PdfReports, PaperAndDirectionAreTheChosenOnes) {
    ReportOptions options;
    options.paper = ReportPaper::A3;
    options.isLandscape = true;
    ASSERT_EQ(Save(PhotosAt(WritePhoto(folder, u"a.jpg"_s, Qt::red), 2), options), u"");
    const QString info = QString::fromUtf8(OutputOf(u"pdfinfo"_s, {path}));
    EXPECT_TRUE(info.contains(QRegularExpression(uR"(Page size:\s+119[01][.\d]* x 84[12])"_s)))
        << qUtf8Printable(info);
}

TEST_F(PdfReports, MissingAndDamagedPhotosAreToldOnThePage) {
    const QString good = WritePhoto(folder, u"a.jpg"_s, Qt::red);
    ReportContent content = PhotosAt(good, 4);
    content.sections[0].photos[0].file = folder.Path(u"none.jpg"_s);
    content.sections[0].photos[1].file = folder.Write(u"text.jpg"_s, "no picture at all");
    content.sections[0].photos[2].file.clear();
    content.sections[0].photos[2].lack = u"图片没有下载成功：网络中断"_s;
    ASSERT_EQ(Save(content), u"");
    EXPECT_EQ(Pictures().size(), 1);
    EXPECT_EQ(Text().count(u"图片无法读取"_s), 2);
    EXPECT_TRUE(Text().contains(u"图片没有下载成功：网络中断"_s));
}

TEST_F(PdfReports, AnEmptyReportIsATitle) {
    ReportContent content;
    content.kind = u"照片报告"_s;
    ASSERT_EQ(Save(content), u"");
    EXPECT_TRUE(Text().contains(u"照片报告"_s));
    EXPECT_TRUE(Text().contains(u"第 1 页，共 1 页"_s));
}

TEST_F(PdfReports, ARecordOfTwoHundredPagesHasThemAll) {
    ReportContent content;
    content.kind = u"照片报告"_s;
    QString html;
    for (int number = 0; number < 6000; ++number) {
        html += u"<p>记录%1段</p>"_s.arg(number);
    }
    AddRecord(content, html);
    ASSERT_EQ(Save(content), u"");
    const QString text = Text();
    for (const int number : {0, 1, 2999, 3000, 5998, 5999}) {
        EXPECT_EQ(text.count(u"记录%1段"_s.arg(number)), 1) << number;
    }
}

TEST_F(PdfReports, CancelledAtAnyStepNothingIsLeft) {
    ReportContent content = PhotosAt(WritePhoto(folder, u"a.jpg"_s, Qt::red), 4);
    int steps = 0;
    ReportSteps counting;
    counting.onStep = [&](int, int) { ++steps; };
    ASSERT_EQ(Save(content, {}, counting), u"");
    ASSERT_GT(steps, 6);
    const QByteArray before = folder.Read(u"报告.pdf"_s);
    for (int at = 1; at < steps; ++at) {
        std::stop_source stop;
        int now = 0;
        ReportSteps ending;
        ending.stop = stop.get_token();
        ending.onStep = [&](int, int) {
            if (++now == at) {
                stop.request_stop();
            }
        };
        EXPECT_EQ(Save(content, {}, ending), u"cancelled") << at;
        EXPECT_EQ(Names(), QStringList({u"a.jpg"_s, u"报告.pdf"_s})) << at;
        EXPECT_EQ(folder.Read(u"报告.pdf"_s), before) << at;
    }
}

TEST_F(PdfReports, AFolderThatIsGoneOrNoneIsTold) {
    path = folder.Path(u"gone/报告.pdf"_s);
    const ReportContent content = PhotosAt({}, 1);
    EXPECT_TRUE(Save(content).contains(u"文件夹已不存在"_s));
    folder.Write(u"file"_s, "x");
    path = folder.Path(u"file/报告.pdf"_s);
    EXPECT_TRUE(Save(content).startsWith(u"无法保存"_s));
    ASSERT_TRUE(QDir(folder.Path()).mkdir(u"sub"_s));
    path = folder.Path(u"sub"_s);
    EXPECT_TRUE(Save(content).contains(u"这是一个文件夹"_s));
}

TEST_F(PdfReports, AFullDiskIsToldAndTheFileFromBeforeStays) {
    ReportContent content = PhotosAt(WritePhoto(folder, u"a.jpg"_s, Qt::red, {3000, 2000}), 3);
    ASSERT_EQ(Save(content), u"");
    const QByteArray before = folder.Read(u"报告.pdf"_s);
    content.sections[0].title = u"另一个标题"_s;
    for (const qint64 bytes :
         {qint64(0), qint64(1000), qint64(before.size()) / 2, qint64(before.size()) - 10}) {
        QString fault;
        {
            const support::FileSizeLimit limit(static_cast<rlim_t>(bytes));
            fault = Save(content);
        }
        EXPECT_TRUE(fault.startsWith(u"无法"_s)) << bytes << qUtf8Printable(fault);
        EXPECT_EQ(folder.Read(u"报告.pdf"_s), before) << bytes;
        EXPECT_EQ(Names(), QStringList({u"a.jpg"_s, u"报告.pdf"_s})) << bytes;
    }
    EXPECT_EQ(Save(content), u"");
}

TEST_F(PdfReports, ALogoOfOneLineIsNoPhoto) {
    dress.logo = QImage(2, 1, QImage::Format_RGB32);
    dress.logo.fill(Qt::blue);
    ReportContent content = PhotosAt(WritePhoto(folder, u"a.jpg"_s, Qt::red), 1);
    const QString other = WritePhoto(folder, u"b.jpg"_s, Qt::green);
    content.sections.push_back(PhotosAt(other, 1).sections.front());
    ASSERT_EQ(Save(content), u"");
    EXPECT_EQ(Pictures().filter(u"400x300 jpeg"_s).size(), 2);
}

TEST_F(PdfReports, OddNamesAreTheirs) {
    // The work file bears the beginning of the name.
    for (const QString& name : {QString(39, u'a') + u"😀😀"_s, u"50%1 %2 %L3"_s, u".pdf"_s}) {
        path = folder.Path(name);
        EXPECT_EQ(Save(PhotosAt({}, 1)), u"") << qUtf8Printable(name);
        EXPECT_TRUE(QFile::remove(path));
    }
    path = folder.Path(QString(300, u'a'));
    EXPECT_TRUE(Save(PhotosAt({}, 1)).contains(u"文件名太长"_s));
    EXPECT_EQ(QDir(folder.Path()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

TEST_F(PdfReports, ALinkKeepsLeadingToItsFile) {
    ASSERT_TRUE(QDir(folder.Path()).mkdir(u"there"_s));
    const QString real = folder.Write(u"there/real.pdf"_s, "old");
    ASSERT_TRUE(QFile::link(real, path));
    ASSERT_EQ(Save(PhotosAt({}, 1)), u"");
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_TRUE(folder.Read(u"there/real.pdf"_s).startsWith("%PDF"));
}

TEST(PrintPictures, ReducesOnceAndNeverEnlarges) {
    const support::TempFolder folder;
    PrintPictures pictures;
    const QString file = WritePhoto(folder, u"a.jpg"_s, Qt::red, {2400, 1200});
    const QSizeF room(kReportDpi, kReportDpi); // an inch
    const PrintPicture made = pictures.Wait(file, room, {});
    EXPECT_EQ(made.size, QSize(static_cast<int>(kPrintDpi), static_cast<int>(kPrintDpi / 2)));
    EXPECT_EQ(pictures.Wait(file, room, {}).path, made.path);
    EXPECT_NE(pictures.Wait(file, room * 2, {}).path, made.path);
    const QString small = WritePhoto(folder, u"b.jpg"_s, Qt::red, {20, 10});
    EXPECT_EQ(pictures.Wait(small, room, {}).size, QSize(20, 10));
    EXPECT_FALSE(pictures.Wait(folder.Path(u"none"_s), room, {}).IsThere());
}

TEST(PrintPictures, APipeIsNoPictureAndIsNotWaitedFor) {
    const support::TempFolder folder;
    const QByteArray pipe = QFile::encodeName(folder.Path(u"a.jpg"_s));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    PrintPictures pictures;
    auto made = std::async(std::launch::async, [&] {
        return pictures.Wait(QFile::decodeName(pipe), {10, 10}, {}).IsThere();
    });
    EXPECT_EQ(made.wait_for(std::chrono::seconds(10)), std::future_status::ready);
    // Whoever waits for it all the same goes on, so that this ends.
    const int writer = open(pipe.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (writer >= 0) {
        close(writer);
    }
    EXPECT_FALSE(made.get());
}

TEST(PrintPictures, WhoIsToldToStopWaitsNoLonger) {
    PrintPictures pictures(0); // nobody makes any
    std::stop_source stop;
    stop.request_stop();
    EXPECT_FALSE(pictures.Wait(u"a.jpg"_s, {10, 10}, stop.get_token()).IsThere());
    EXPECT_EQ(pictures.Find(u"a.jpg"_s, {10, 10}), nullptr);
}

} // namespace
} // namespace host
