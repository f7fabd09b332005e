// A rich text as lines.
#include "toolkit/compare/NoteLines.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace toolkit {
namespace {

using namespace Qt::StringLiterals;

std::vector<NoteLine> ReadHtml(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return LinesOf(document);
}

QStringList TextsOf(const std::vector<NoteLine>& lines) {
    QStringList texts;
    for (const NoteLine& line : lines) {
        texts << line.text;
    }
    return texts;
}

QByteArray FormOf(const QString& html) {
    return ReadHtml(html).at(0).form;
}

TEST(NoteLines, EachParagraphIsALine) {
    EXPECT_EQ(
        TextsOf(ReadHtml(u"<p>甲</p><p style='-qt-paragraph-type:empty'><br/></p><h2>乙</h2>"_s)),
        QStringList({u"甲"_s, u""_s, u"乙"_s}));
    EXPECT_EQ(ReadHtml(u"<p>甲</p><h2>乙</h2>"_s)[1].heading, 2);
}

TEST(NoteLines, OfAnEmptyDocumentNothingIsLeftButABlankLine) {
    const QTextDocument document;
    const std::vector<NoteLine> lines = LinesOf(document);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(IsBlank(lines[0]));
}

TEST(NoteLines, ARowOfATableIsOneLine) {
    const auto lines = ReadHtml(u"<p>前</p><table><tr><td>一</td><td>二</td></tr>"
                                "<tr><td>三</td><td></td></tr></table><p>后</p>"_s);
    EXPECT_EQ(TextsOf(lines), QStringList({u"前"_s, u"一 | 二"_s, u"三 | "_s, u"后"_s}));
}

TEST(NoteLines, TheParagraphsThatATableNeedsAroundItAreNone) {
    EXPECT_EQ(TextsOf(ReadHtml(u"<table><tr><td>一</td></tr></table>"_s)), QStringList{u"一"_s});
    EXPECT_EQ(TextsOf(ReadHtml(
                  u"<p>前</p><p "
                  u"style='-qt-paragraph-type:empty'><br/></p><table><tr><td>一</td></tr></table>"
                  "<p style='-qt-paragraph-type:empty'><br/></p><p>后</p>"_s)),
              QStringList({u"前"_s, u""_s, u"一"_s, u""_s, u"后"_s}))
        << "others stay";
}

TEST(NoteLines, WhatIsInACellStandsInItsRow) {
    const auto lines =
        ReadHtml(u"<table><tr><td><p>甲</p><p>乙</p></td><td><table><tr><td>丙</td><td>丁</td></tr>"
                 "<tr><td>戊</td><td>己</td></tr></table></td></tr></table>"_s);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].text.simplified(), u"甲 乙 | 丙 丁 戊 己"_s);
}

TEST(NoteLines, AMergedCellStandsWhereItBegins) {
    EXPECT_EQ(TextsOf(ReadHtml(u"<table><tr><td rowspan='2'>高</td><td>一</td></tr>"
                               "<tr><td>二</td></tr><tr><td colspan='2'>宽</td></tr></table>"_s)),
              QStringList({u"高 | 一"_s, u" | 二"_s, u"宽"_s}));
}

TEST(NoteLines, ItemsHaveTheirMarkBesideTheirText) {
    const auto lines = ReadHtml(u"<ul><li>甲</li></ul><ol><li>乙</li><li>丙<ul><li>丁</li></ul>"
                                "</li></ol>"_s);
    ASSERT_EQ(TextsOf(lines), QStringList({u"甲"_s, u"乙"_s, u"丙"_s, u"丁"_s}));
    EXPECT_EQ(lines[0].mark, u"•");
    EXPECT_EQ(lines[1].mark, u"1.");
    EXPECT_EQ(lines[2].mark, u"2.");
    EXPECT_EQ(lines[3].mark, u"•");
    EXPECT_GT(lines[3].indent, lines[2].indent);
}

TEST(NoteLines, PicturesKeepTheirNamesInOrder) {
    const auto lines = ReadHtml(u"<p>一<img src='a.jpg'/>二<img src='b.jpg'/><img src='b.jpg'/></p>"
                                "<p><img src='c.png'/></p>"_s);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, u"一\uFFFC二\uFFFC\uFFFC"_s);
    EXPECT_EQ(lines[0].pictures, QStringList({u"a.jpg"_s, u"b.jpg"_s, u"b.jpg"_s}));
    EXPECT_EQ(lines[1].pictures, QStringList{u"c.png"_s});
    EXPECT_FALSE(IsBlank(lines[1]));
}

TEST(NoteLines, ACharacterThatOnlyLooksLikeAPictureIsNone) {
    const auto lines = ReadHtml(u"<p>一\uFFFC二</p>"_s);
    EXPECT_EQ(lines[0].text.count(QChar::ObjectReplacementCharacter), 0);
    EXPECT_TRUE(lines[0].pictures.isEmpty());
}

TEST(NoteLines, EveryFormatMakesAnotherForm) {
    const QStringList forms = {u"<p>甲乙</p>"_s,
                               u"<p><b>甲乙</b></p>"_s,
                               u"<p><b>甲</b>乙</p>"_s,
                               u"<p><i>甲乙</i></p>"_s,
                               u"<p><u>甲乙</u></p>"_s,
                               u"<p><s>甲乙</s></p>"_s,
                               u"<p><sup>甲乙</sup></p>"_s,
                               u"<p><span style='color:#ff0000'>甲乙</span></p>"_s,
                               u"<p><span style='background-color:#ff0000'>甲乙</span></p>"_s,
                               u"<p><span style='font-size:20pt'>甲乙</span></p>"_s,
                               u"<p><span style='font-family:Serif'>甲乙</span></p>"_s,
                               u"<p><a href='https://x/'>甲乙</a></p>"_s,
                               u"<p align='center'>甲乙</p>"_s,
                               u"<h1>甲乙</h1>"_s,
                               u"<h2>甲乙</h2>"_s,
                               u"<ul><li>甲乙</li></ul>"_s,
                               u"<ol><li>甲乙</li></ol>"_s};
    for (int i = 0; i < forms.size(); ++i) {
        EXPECT_EQ(ReadHtml(forms[i]).at(0).text, u"甲乙");
        EXPECT_EQ(FormOf(forms[i]), FormOf(forms[i])) << i;
        for (int j = 0; j < i; ++j) {
            EXPECT_NE(FormOf(forms[i]), FormOf(forms[j])) << i << " and " << j;
        }
    }
}

TEST(NoteLines, HowALookIsPutTogetherMakesNoOtherForm) {
    EXPECT_EQ(FormOf(u"<p><b>甲</b><b>乙</b></p>"_s), FormOf(u"<p><b>甲乙</b></p>"_s));
    EXPECT_EQ(FormOf(u"<p>甲<b></b>乙</p>"_s), FormOf(u"<p>甲乙</p>"_s));
    EXPECT_NE(FormOf(u"<p><img src='a.jpg' width='10'/></p>"_s),
              FormOf(u"<p><img src='a.jpg' width='20'/></p>"_s));
}

TEST(NoteLines, ItsOwnFormReadAgainGivesTheSameLines) {
    QTextDocument first;
    first.setHtml(u"<h1>题</h1><p>一 <b>二</b></p><ul><li>三</li></ul><table border='1'><tr>"
                  "<td>四</td><td><i>五</i></td></tr></table><p>六<img src='a.jpg'/></p>"_s);
    QTextDocument second;
    second.setHtml(first.toHtml());
    const auto before = LinesOf(first);
    const auto after = LinesOf(second);
    ASSERT_EQ(TextsOf(before), TextsOf(after));
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(before[i].form.toStdString(), after[i].form.toStdString()) << i;
    }
}

} // namespace
} // namespace toolkit
