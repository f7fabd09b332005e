// A rich text as it is walked through.
#include "host/report/RecordText.h"

#include "host/report/RecordTextSigns.h"
#include "tests/host/report/ReportSamples.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace reporttest {

namespace {

/// Writes down what it takes.
class Listener final : public host::IRecordTaker {
public:
    QStringList told;
    std::vector<host::RecordParagraph> paragraphs;
    std::vector<host::RecordLook> looks;
    std::vector<host::RecordPicture> pictures;
    std::vector<host::RecordTable> tables;

    void BeginParagraph(const host::RecordParagraph& paragraph) override {
        paragraphs.push_back(paragraph);
    }
    void Text(const QString& text, const host::RecordLook& look) override {
        told << text;
        looks.push_back(look);
    }
    void Picture(const host::RecordPicture& picture) override {
        told << u"picture"_s;
        pictures.push_back(picture);
    }
    void EndParagraph() override {}
    void BeginTable(const host::RecordTable& table) override {
        told << u"table"_s;
        tables.push_back(table);
    }
    void BeginRow() override { told << u"row"_s; }
    void BeginCell(const host::RecordCell& cell) override {
        told << u"cell %1x%2%3"_s.arg(cell.columns)
                    .arg(cell.rows)
                    .arg(cell.isCovered ? u" covered"_s : QString());
    }
    void EndCell() override { told << u"end"_s; }
    void EndRow() override {}
    void EndTable() override { told << u"table ends"_s; }
};

Listener Walked(const QString& html, const QString& folder = {}) {
    const host::RecordText text(html, folder, {600, 900});
    Listener listener;
    text.Walk(listener);
    return listener;
}

TEST(RecordText, TellsCellsThatReachOverOthers) {
    const Listener heard =
        Walked(u"<table border=1 width=\"50%\"><tr><td colspan=2>a</td><td rowspan=2>b</td></tr>"
               "<tr><td>c</td><td>d</td></tr></table>"_s);
    EXPECT_EQ(heard.told, QStringList({u"table"_s, u"row"_s, u"cell 2x1"_s, u"a"_s, u"end"_s,
                                       u"cell 1x2"_s, u"b"_s, u"end"_s, u"row"_s, u"cell 1x1"_s,
                                       u"c"_s, u"end"_s, u"cell 1x1"_s, u"d"_s, u"end"_s,
                                       u"cell 1x2 covered"_s, u"end"_s, u"table ends"_s}));
    ASSERT_EQ(heard.tables.size(), 1U);
    EXPECT_TRUE(heard.tables[0].hasLines);
    EXPECT_FALSE(heard.tables[0].isAsWideAsItsTexts);
    EXPECT_THAT(heard.tables[0].columns, testing::Each(testing::DoubleNear(100, 0.01)));
}

TEST(RecordText, TellsTablesInTables) {
    const Listener heard =
        Walked(u"<table><tr><td>a<table><tr><td>b</td></tr></table></td></tr></table><p>c</p>"_s);
    EXPECT_EQ(heard.told.filter(QRegularExpression(u"^(table.*|[abc])$"_s)),
              QStringList({u"table"_s, u"a"_s, u"table"_s, u"b"_s, u"table ends"_s, u"table ends"_s,
                           u"c"_s}));
}

TEST(RecordText, TellsLooks) {
    const Listener heard =
        Walked(u"<p>x<b>b</b><span style=\"font-size:16px;color:#010203\">s</span>"
               "<a href=\"https://example.org\">l</a><a href=\"ftp://example.org\">n</a></p>"_s);
    ASSERT_EQ(heard.told, QStringList({u"x"_s, u"b"_s, u"s"_s, u"l"_s, u"n"_s}));
    EXPECT_FALSE(heard.looks[0].isBold);
    EXPECT_EQ(heard.looks[0].points, 0);
    EXPECT_FALSE(heard.looks[0].color.isValid());
    EXPECT_TRUE(heard.looks[1].isBold);
    EXPECT_EQ(heard.looks[2].points, 12);
    EXPECT_EQ(heard.looks[2].color, QColor(1, 2, 3));
    EXPECT_EQ(heard.looks[3].link, u"https://example.org"_s);
    EXPECT_FALSE(heard.looks[3].isUnderlined);
    EXPECT_EQ(heard.looks[4].link, QString());
}

TEST(RecordText, TellsSizesBySteps) {
    const Listener heard = Walked(u"<p><font size=\"1\">a</font><font size=\"3\">b</font>"
                                  "<font size=\"7\">c</font></p>"_s);
    ASSERT_EQ(heard.told, QStringList({u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_DOUBLE_EQ(heard.looks[0].points, 0.7 * 9);
    EXPECT_EQ(heard.looks[1].points, 0);
    EXPECT_DOUBLE_EQ(heard.looks[2].points, 2.4 * 9);
}

TEST(RecordText, TellsAddressesInTheirOwnSigns) {
    const auto link = [](const QString& address) {
        return Walked(u"<a href=\"%1\">x</a>"_s.arg(address)).looks.at(0).link;
    };
    EXPECT_EQ(link(u"https://example.org/中?q=a%20b&amp;c#d"_s),
              u"https://example.org/%E4%B8%AD?q=a%20b&c#d"_s);
    EXPECT_FALSE(
        link(u"https://example.org/a b&quot;&lt;"_s).contains(QRegularExpression(u"[\\s\"<>]"_s)));
    EXPECT_EQ(link(u"https://example.org/"_s + QString(2000, u'a')), QString());
    EXPECT_EQ(link(u"attachment:0123456789abcdef0123456789abcdef.pdf/a.pdf"_s), QString());
}

TEST(RecordText, TellsListsApartAndTheirLevels) {
    const Listener heard =
        Walked(u"<ul><li>a<ol><li>b</li></ol></li><li>c</li></ul><ol><li>d</li></ol><p>e</p>"_s);
    ASSERT_EQ(heard.paragraphs.size(), 5U);
    EXPECT_GT(heard.paragraphs[0].list, 0);
    EXPECT_EQ(heard.paragraphs[0].list, heard.paragraphs[2].list);
    EXPECT_NE(heard.paragraphs[1].list, heard.paragraphs[0].list);
    EXPECT_NE(heard.paragraphs[3].list, heard.paragraphs[1].list);
    EXPECT_EQ(heard.paragraphs[4].list, 0);
    EXPECT_EQ(heard.paragraphs[0].listLevel, 0);
    EXPECT_EQ(heard.paragraphs[1].listLevel, 1);
    EXPECT_EQ(heard.paragraphs[1].listStyle, QTextListFormat::ListDecimal);
}

TEST(RecordText, FitsPicturesIntoTheirRoom) {
    const QTemporaryDir folder;
    WritePicture(folder.path(), kRecordPicture, 1, {1200, 600});
    const QString picture = u"<img src=\"%1\" "_s.arg(kRecordPicture);
    const Listener heard =
        Walked(picture + u"/>"_s + picture + u"width=100 />"_s + picture + u"height=100 />"_s +
                   picture + u"width=50 height=60 /><table width=300><tr><td>"_s + picture +
                   u"/></td></tr></table>"_s,
               folder.path());
    ASSERT_EQ(heard.pictures.size(), 5U);
    EXPECT_EQ(heard.pictures[0].size, QSizeF(600, 300));
    EXPECT_EQ(heard.pictures[1].size, QSizeF(100, 50));
    EXPECT_EQ(heard.pictures[2].size, QSizeF(200, 100));
    EXPECT_EQ(heard.pictures[3].size, QSizeF(50, 60));
    EXPECT_EQ(heard.pictures[4].size, QSizeF(300, 150));
    EXPECT_EQ(host::RecordText(picture + u"/>"_s, folder.path(), {600, 900}).Pictures().size(), 1U);
}

TEST(RecordText, TellsTheSamePictureTwiceInARowTwice) {
    const QTemporaryDir folder;
    WritePicture(folder.path(), kRecordPicture, 1);
    const QString picture = u"<img src=\"%1\" />"_s.arg(kRecordPicture);
    EXPECT_EQ(Walked(picture + picture, folder.path()).pictures.size(), 2U);
}

TEST(RecordText, TooDeepOneIsEmpty) {
    const host::RecordText text(u"<div>"_s.repeated(1000) + u'x', {}, {600, 900});
    EXPECT_FALSE(text.IsRead());
    EXPECT_TRUE(text.Pictures().empty());
}

TEST(RecordTextSigns, LeaveOutWhatNoFileHolds) {
    EXPECT_EQ(host::WritableText(HostileText()), HostileTextShown());
    EXPECT_EQ(host::WritableLines(u"a\rb\r\nc\nd"), QStringList({u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
    EXPECT_EQ(host::WritableLines({}), QStringList(QString()));
}

} // namespace

} // namespace reporttest
