// The Word document of a report: its parts, its text, its pictures.
#include "host/report/WordReport.h"

#include "tests/host/report/ReportSamples.h"
#include "tests/host/report/WordFile.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reporttest {

namespace {

class WordReport : public testing::Test {
protected:
    [[nodiscard]] WordFile WrittenFile(const host::ReportSheet& sheet) const {
        const QString path = m_folder.filePath(u"报告.docx"_s);
        EXPECT_EQ(Write(host::WriteWord, sheet, path), QString());
        return WordFile(path);
    }
    [[nodiscard]] QString Folder() const { return m_folder.path(); }

    const QTemporaryDir m_folder;
};

void ExpectSound(const WordFile& file) {
    EXPECT_TRUE(file.IsWhole());
    for (const QString& name : file.Names()) {
        if (name.endsWith(u".xml"_s) || name.endsWith(u".rels"_s)) {
            EXPECT_THAT(FaultsOfXml(file.Part(name)), testing::IsEmpty()) << qPrintable(name);
        }
    }
    // What the text names is there.
    const QByteArray relations = file.Part(u"word/_rels/document.xml.rels"_s);
    const QStringList ids = ValuesOf(relations, u"Relationship"_s, u"Id"_s);
    for (const QString& id : ValuesOf(file.Text(), u"a:blip"_s, u"r:embed"_s)) {
        EXPECT_TRUE(ids.contains(id)) << qPrintable(id);
    }
    const QStringList targets = ValuesOf(relations, u"Relationship"_s, u"Target"_s);
    const QStringList modes = ValuesOf(relations, u"Relationship"_s, u"TargetMode"_s);
    for (qsizetype place = 0; place < targets.size(); ++place) {
        EXPECT_NE(modes[place].isEmpty(), targets[place].contains(u':'));
        EXPECT_TRUE(!modes[place].isEmpty() || file.Names().contains(u"word/"_s + targets[place]))
            << qPrintable(targets[place]);
    }
}

TEST_F(WordReport, TellsHeadingsFactsAndCaptionsInTheirOrder) {
    const WordFile file = WrittenFile(SheetFor(IssueReport(Folder())));
    ExpectSound(file);
    const QStringList told = ParagraphsOf(file.Text());
    qsizetype at = 0;
    for (const QString& text : {u"问题报告"_s,
                                u"滨江一期"_s,
                                u"目录"_s,
                                u"整改记录"_s,
                                u"概况"_s,
                                u"平面位置"_s,
                                u"扫码查看"_s,
                                u"整改前照片"_s,
                                u"照片1"_s,
                                u"拍摄时间：2024-03-12 14:25"_s,
                                u"照片3"_s,
                                u"评论"_s,
                                u"请尽快处理\n第二行"_s,
                                u"整改后照片"_s,
                                u"照片尚未下载"_s,
                                u"未下载"_s,
                                u"图片无法读取"_s,
                                u"损坏的照片"_s,
                                u"照片A"_s,
                                u"语音备注"_s,
                                u"12秒"_s,
                                u"未知"_s,
                                u"整改记录"_s,
                                u"赵六"_s,
                                u"整改前"_s,
                                u"居中"_s,
                                u"甲一"_s,
                                u"合并列"_s,
                                u"最后一段"_s}) {
        const qsizetype found = told.indexOf(text, at);
        EXPECT_GE(found, at) << qPrintable(text);
        at = std::max(found, at);
    }
    EXPECT_TRUE(ParagraphsOf(file.Part(u"word/header1.xml"_s)).contains(u"页眉文字"_s));
    EXPECT_EQ(ParagraphsOf(file.Part(u"word/footer1.xml"_s)),
              QStringList(u"页脚文字\t第 1 页，共 1 页"_s));
}

TEST_F(WordReport, HasItsHeaderAndFooterOnEachPage) {
    const WordFile file = WrittenFile(SheetFor(PhotoReport(Folder(), 1)));
    const QByteArray relations = file.Part(u"word/_rels/document.xml.rels"_s);
    const QStringList ids = ValuesOf(relations, u"Relationship"_s, u"Id"_s);
    const QStringList types = ValuesOf(relations, u"Relationship"_s, u"Type"_s);
    const QStringList targets = ValuesOf(relations, u"Relationship"_s, u"Target"_s);
    for (const auto& [name, text] :
         {std::pair(u"header"_s, u"页眉文字"_s), std::pair(u"footer"_s, u"页脚文字"_s)}) {
        const QStringList used = ValuesOf(file.Text(), u"w:%1Reference"_s.arg(name), u"r:id"_s);
        ASSERT_EQ(used.size(), 1) << qUtf8Printable(name);
        const qsizetype place = ids.indexOf(used.first());
        ASSERT_GE(place, 0);
        EXPECT_TRUE(types[place].endsWith(u'/' + name)) << qUtf8Printable(types[place]);
        EXPECT_TRUE(QString::fromUtf8(file.Part(u"word/"_s + targets[place])).contains(text));
    }
}

TEST_F(WordReport, LinksItsContentsToTheHeadings) {
    const WordFile file = WrittenFile(SheetFor(IssueReport(Folder())));
    QStringList anchors = ValuesOf(file.Text(), u"w:hyperlink"_s, u"w:anchor"_s);
    anchors.removeAll(QString());
    EXPECT_EQ(anchors, ValuesOf(file.Text(), u"w:bookmarkStart"_s, u"w:name"_s));
    EXPECT_EQ(anchors.size(), 6);
    EXPECT_EQ(ValuesOf(file.Text(), u"w:fldChar"_s, u"w:fldCharType"_s),
              QStringList({u"begin"_s, u"separate"_s, u"end"_s}));
    // Headings of the rich text don't come into the contents.
    const QStringList styles = ValuesOf(file.Text(), u"w:pStyle"_s, u"w:val"_s);
    EXPECT_EQ(styles.count(u"Heading1"_s), 5);
    EXPECT_EQ(styles.count(u"Heading2"_s), 1);
    EXPECT_EQ(styles.count(u"Heading3"_s), 1);
    EXPECT_EQ(styles.count(u"Heading4"_s), 1);
}

TEST_F(WordReport, HasEachPictureOnceUnpackedAndFitted) {
    host::ReportContent content = PhotoReport(Folder(), 3, {1600, 1200});
    // The same file twice is one part.
    content.sections.front().photos.push_back(content.sections.front().photos.front());
    const host::ReportSheet sheet = SheetFor(content);
    const WordFile file = WrittenFile(sheet);
    ExpectSound(file);
    ASSERT_EQ(file.Pictures().size(), 3);
    EXPECT_EQ(CountOf(file.Text(), u"w:drawing"_s), 4);
    // Rows that stay with the next would all be on one page, or on none.
    EXPECT_EQ(CountOf(file.Text(), u"w:keepNext"_s), 0);
    const host::PhotoGrid grid = host::GridOf(sheet.options);
    for (const QString& name : file.Pictures()) {
        EXPECT_FALSE(file.IsPacked(name));
        const QImage picture = QImage::fromData(file.Part(name));
        EXPECT_NEAR(picture.width(), grid.picture.width() * host::kPrintDpi / host::kReportDpi, 2);
    }
    for (const QString& width : ValuesOf(file.Text(), u"wp:extent"_s, u"cx"_s)) {
        EXPECT_LE(width.toLongLong(), grid.picture.width() * 9525 + 9525);
        EXPECT_GE(width.toLongLong(), grid.picture.width() * 9525 * 0.98);
    }
    EXPECT_TRUE(file.IsPacked(u"word/document.xml"_s));
    EXPECT_EQ(ValuesOf(file.Text(), u"wp:docPr"_s, u"descr"_s).first(), u"照片1"_s);
}

TEST_F(WordReport, EnlargesNoSmallPhoto) {
    const WordFile file = WrittenFile(SheetFor(PhotoReport(Folder(), 1, {160, 120})));
    // 160 pixels at 200 dots per inch.
    EXPECT_EQ(ValuesOf(file.Text(), u"wp:extent"_s, u"cx"_s), QStringList(u"731520"_s));
}

TEST_F(WordReport, HasItsPaperAndDirection) {
    host::ReportOptions options;
    const host::ReportContent content = PhotoReport(Folder(), 1);
    const auto size = [&] {
        const QByteArray text = WrittenFile(SheetFor(content, options)).Text();
        return QStringList{ValuesOf(text, u"w:pgSz"_s, u"w:w"_s).value(0),
                           ValuesOf(text, u"w:pgSz"_s, u"w:h"_s).value(0),
                           ValuesOf(text, u"w:pgSz"_s, u"w:orient"_s).value(0)};
    };
    EXPECT_EQ(size(), QStringList({u"11900"_s, u"16840"_s, u"portrait"_s}));
    options.isLandscape = true;
    EXPECT_EQ(size(), QStringList({u"16840"_s, u"11900"_s, u"landscape"_s}));
    options.paper = host::ReportPaper::A3;
    EXPECT_EQ(size(), QStringList({u"23820"_s, u"16840"_s, u"landscape"_s}));
}

TEST_F(WordReport, BeginsAPageForEachPhotoThatFillsOne) {
    host::ReportOptions options;
    options.pictures = host::ReportPictures::OnePerPage;
    const QByteArray text = WrittenFile(SheetFor(PhotoReport(Folder(), 4), options)).Text();
    // The heading of the photos, and each photo but the first.
    EXPECT_EQ(CountOf(text, u"w:pageBreakBefore"_s), 4);
    options.pictures = host::ReportPictures::Small;
    EXPECT_EQ(CountOf(WrittenFile(SheetFor(PhotoReport(Folder(), 4), options)).Text(),
                      u"w:pageBreakBefore"_s),
              0);
}

TEST_F(WordReport, WritesTheRichText) {
    const WordFile file = WrittenFile(SheetFor(IssueReport(Folder())));
    const QByteArray text = file.Text();
    EXPECT_EQ(ValuesOf(text, u"w:gridSpan"_s, u"w:val"_s), QStringList(u"2"_s));
    EXPECT_EQ(ValuesOf(text, u"w:vMerge"_s, u"w:val"_s),
              QStringList({u"restart"_s, u"continue"_s}));
    EXPECT_TRUE(ValuesOf(text, u"w:color"_s, u"w:val"_s).contains(u"FF0000"_s));
    EXPECT_TRUE(ValuesOf(text, u"w:shd"_s, u"w:fill"_s).contains(u"FFFF00"_s));
    EXPECT_TRUE(ValuesOf(text, u"w:sz"_s, u"w:val"_s).contains(u"36"_s));
    EXPECT_EQ(ValuesOf(text, u"w:vertAlign"_s, u"w:val"_s),
              QStringList({u"subscript"_s, u"superscript"_s}));
    EXPECT_EQ(CountOf(text, u"w:strike"_s), 1);
    EXPECT_EQ(ValuesOf(text, u"w:ilvl"_s, u"w:val"_s),
              QStringList({u"0"_s, u"1"_s, u"1"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
    EXPECT_EQ(ValuesOf(text, u"w:numId"_s, u"w:val"_s),
              QStringList({u"1"_s, u"2"_s, u"2"_s, u"1"_s, u"3"_s, u"3"_s, u"4"_s}));
    EXPECT_EQ(CountOf(file.Part(u"word/numbering.xml"_s), u"w:num"_s), 4);
    // Each list begins with its first number.
    EXPECT_GE(CountOf(file.Part(u"word/numbering.xml"_s), u"w:startOverride"_s), 4);
    const QByteArray relations = file.Part(u"word/_rels/document.xml.rels"_s);
    QStringList outside;
    const QStringList targets = ValuesOf(relations, u"Relationship"_s, u"Target"_s);
    const QStringList modes = ValuesOf(relations, u"Relationship"_s, u"TargetMode"_s);
    for (qsizetype place = 0; place < targets.size(); ++place) {
        if (modes[place] == u"External"_s) {
            outside << targets[place];
        }
    }
    EXPECT_EQ(outside,
              QStringList({u"https://example.org/a?b=1&c=2"_s, u"mailto:a@example.org"_s}));
    // As large as the text says, the other as in its file: 1/96 inch in EMU.
    const QStringList widths = ValuesOf(text, u"wp:extent"_s, u"cx"_s);
    EXPECT_TRUE(widths.contains(QString::number(120 * 9525)));
    EXPECT_TRUE(widths.contains(QString::number(100 * 9525)));
}

TEST_F(WordReport, KeepsOddTextsAsTheyAre) {
    host::ReportContent content = IssueReport(Folder());
    content.kind = HostileText();
    content.project = HostileText();
    content.sections.front().title = HostileText();
    content.sections.front().photos.front().title = HostileText();
    content.sections.front().photos.front().facts = {{HostileText(), HostileText()}};
    content.sections.front().comments = {{HostileText(), HostileText(), QString(50'000, u'长')}};
    host::ReportSheet sheet = SheetFor(content);
    sheet.header = HostileText();
    sheet.footer = HostileText();
    sheet.author = HostileText();
    const WordFile file = WrittenFile(sheet);
    ExpectSound(file);
    const QStringList told = ParagraphsOf(file.Text());
    EXPECT_EQ(told.first(), HostileTextShown());
    EXPECT_EQ(told.count(HostileTextShown()), 7);
    EXPECT_TRUE(told.contains(HostileTextShown() + u"："_s + HostileTextShown()));
    EXPECT_TRUE(told.contains(QString(50'000, u'长')));
}

TEST_F(WordReport, StandsWithoutAnyContent) {
    ExpectSound(WrittenFile(SheetFor({})));
    ExpectSound(WrittenFile(host::ReportSheet{}));
    host::ReportContent content;
    content.record = host::ReportRecord{u"<p></p>"_s, {}, {}};
    ExpectSound(WrittenFile(SheetFor(content)));
    content.record = host::ReportRecord{{}, {}, {{u"责任人"_s, u"赵六"_s}}};
    const WordFile file = WrittenFile(SheetFor(content));
    ExpectSound(file);
    EXPECT_TRUE(ParagraphsOf(file.Text()).contains(u"赵六"_s));
}

TEST_F(WordReport, SaysSoWhereARecordIsTooDeep) {
    host::ReportContent content;
    content.record = host::ReportRecord{u"<div>"_s.repeated(1000) + u'x', {}, {}};
    const WordFile file = WrittenFile(SheetFor(content));
    ExpectSound(file);
    EXPECT_TRUE(ParagraphsOf(file.Text()).contains(u"整改记录过大，无法放入报告。"_s));
}

TEST_F(WordReport, TakesNoPictureFromOutsideOfTheRecordsFolder) {
    host::ReportContent content;
    WritePicture(Folder(), kRecordPicture, 1);
    const QString inner = m_folder.filePath(u"inner/"_s);
    QDir().mkpath(inner);
    const QString html = u"<p><img src=\"%1/%2\"/><img src=\"../%2\"/><img src=\"file://%1/%2\"/>"
                         "<img src=\"http://example.org/a.jpg\"/><img src=\"%2\"/></p>"_s.arg(
                             Folder(), kRecordPicture);
    content.record = host::ReportRecord{html, inner, {}};
    EXPECT_THAT(WrittenFile(SheetFor(content)).Pictures(), testing::IsEmpty());
    content.record->folder.clear();
    EXPECT_THAT(WrittenFile(SheetFor(content)).Pictures(), testing::IsEmpty());
    content.record->folder = Folder();
    EXPECT_EQ(WrittenFile(SheetFor(content)).Pictures().size(), 1);
}

TEST_F(WordReport, JoinsTheCellsOfATableWithMoreColumnsThanWordHas) {
    const auto table = [](int columns) {
        QString html = u"<table border=1><tr>"_s;
        for (int column = 0; column < columns; ++column) {
            html += u"<td>c%1</td>"_s.arg(column);
        }
        return html + u"</tr><tr><td>a<table><tr><td>inner</td></tr></table></td></tr></table>"_s;
    };
    host::ReportContent content;
    content.record = host::ReportRecord{table(63), {}, {}};
    const WordFile most = WrittenFile(SheetFor(content));
    ExpectSound(most);
    EXPECT_EQ(CountOf(most.Text(), u"w:gridCol"_s), 63 + 1);
    content.record->html = table(64);
    const WordFile more = WrittenFile(SheetFor(content));
    ExpectSound(more);
    EXPECT_EQ(CountOf(more.Text(), u"w:gridCol"_s), 1 + 1);
    EXPECT_EQ(CountOf(more.Text(), u"w:tc"_s), 2 + 1);
    for (const QString& text : {u"c0"_s, u"c63"_s, u"inner"_s}) {
        EXPECT_TRUE(ParagraphsOf(more.Text()).contains(text));
    }
}

TEST_F(WordReport, TakesHundredsOfPhotos) {
    const WordFile file = WrittenFile(SheetFor(PhotoReport(Folder(), 300, {64, 48})));
    ExpectSound(file);
    EXPECT_EQ(file.Pictures().size(), 300);
    EXPECT_EQ(CountOf(file.Text(), u"w:drawing"_s), 300);
}

} // namespace

} // namespace reporttest
