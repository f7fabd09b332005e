// What of any HTML comes into a document.
#include "toolkit/richtext/NoteHtml.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace toolkit {
namespace {

using namespace Qt::StringLiterals;

/// As a person reads it in a failure.
std::string Read(const QString& text) {
    return text.toStdString();
}

const QString kPicture = u"0123456789abcdef0123456789abcdef.jpg"_s;

QString Clean(const QString& html) {
    const CleanedNote note = CleanNoteHtml(html);
    EXPECT_EQ(note.fault, NoteFault::None);
    return note.html;
}

QString TextIn(const QString& html) {
    QTextDocument document;
    document.setHtml(Clean(html));
    return document.toPlainText();
}

} // namespace

TEST(NoteHtml, TextAndItsLooksStay) {
    const QString html =
        u"<h2>楼板</h2><p align=\"center\"><b>裂缝</b> <i>0.3</i> <u>毫米</u> &amp; "
        "<s>旧</s></p><ul><li>一</li><li>二</li></ul><hr />"_s;
    EXPECT_EQ(Read(Clean(html)), Read(html));
}

TEST(NoteHtml, TablesKeepTheirShape) {
    const QString html =
        u"<table border=\"1\" width=\"100%\"><tr><td colspan=\"2\" "
        "bgcolor=\"#ffff00\">甲</td></tr><tr><td>乙</td><td>丙</td></tr></table>"_s;
    EXPECT_EQ(Read(Clean(html)), Read(html));
}

TEST(NoteHtml, WhatRunsOrLoadsGoesWithAllThatIsInIt) {
    for (const QString& html :
         {u"前<script>alert(1)</script>后"_s, u"前<style>p {color: red}</style>后"_s,
          u"前<iframe src=\"http://x\">内<p>部</p></iframe>后"_s,
          u"前<object><p>内</p></object>后"_s, u"前<form><input value=\"1\">内</form>后"_s,
          u"前<svg><a>内</a></svg>后"_s,
          u"前<script>alert('</scr' + 'ipt>')</script>后"_s.left(4) + u"x</script>后"_s,
          u"前<link rel=\"stylesheet\" href=\"http://x\"></link>后"_s,
          u"前<noscript><img src=\"http://x\"></noscript>后"_s}) {
        EXPECT_EQ(Read(TextIn(html)), "前后") << html.toStdString();
    }
}

TEST(NoteHtml, NoAttributeRunsOrLoads) {
    EXPECT_EQ(Clean(u"<p onclick=\"x()\" class=\"c\" id=\"i\">字</p>"_s), u"<p>字</p>");
    EXPECT_EQ(Clean(u"<p style=\"background-image: url(http://x); color: #ff0000\">字</p>"_s),
              u"<p style=\"color:#ff0000;\">字</p>");
    EXPECT_EQ(Clean(u"<p style=\"color: expression(x); position: fixed\">字</p>"_s), u"<p>字</p>");
    EXPECT_EQ(Clean(u"<td background=\"http://x/a.png\">字</td>"_s), u"<td>字</td>");
    EXPECT_EQ(Clean(u"<p style=\"color: \\75rl(x)\">字</p>"_s), u"<p>字</p>");
}

TEST(NoteHtml, LinksLeadToPagesMailAndAttachmentsOnly) {
    EXPECT_EQ(Clean(u"<a href=\"https://x/y?a=1&amp;b=2\">字</a>"_s),
              u"<a href=\"https://x/y?a=1&amp;b=2\">字</a>");
    const QString mail = u"<a href=\"mailto:a@b.cn\">字</a>"_s;
    EXPECT_EQ(Clean(mail), mail);
    const QString attached =
        u"<a href=\"attachment:0123456789abcdef0123456789abcdef.pdf/%E6%8A%A5\">字</a>"_s;
    EXPECT_EQ(Clean(attached), attached);
    for (const char* address : {"javascript:x()", " JavaScript:x()", "file:///etc/passwd", "data:x",
                                "attachment:../../x", "vbscript:x", "x.exe"}) {
        EXPECT_EQ(Clean(u"<a href=\"%1\">字</a>"_s.arg(QLatin1String(address))), u"<a>字</a>")
            << address;
    }
}

TEST(NoteHtml, APictureIsAStoreNameOrWhatTheCallerMakesOfIt) {
    const QString own = u"<img src=\"%1\" width=\"20\" height=\"10\" />"_s.arg(kPicture);
    EXPECT_EQ(Clean(own), own);
    EXPECT_EQ(Clean(u"<img src=\"http://x/a.png\" alt=\"图\">"_s), u"图");
    EXPECT_EQ(Clean(u"<img src=\"http://x/a.png\">"_s), QString());
    QStringList asked;
    const CleanedNote note =
        CleanNoteHtml(u"<img src=\"data:image/png;base64,AAAA\"><img src=\"http://x\">"_s,
                      [&](const QString& address) {
                          asked << address;
                          return address.startsWith(u"data:"_s) ? kPicture : QString();
                      });
    EXPECT_EQ(note.html, u"<img src=\"%1\" />"_s.arg(kPicture));
    EXPECT_EQ(asked, QStringList({u"data:image/png;base64,AAAA"_s, u"http://x"_s}));
    EXPECT_EQ(
        CleanNoteHtml(u"<img src=\"a\">"_s, [](const QString&) { return u"../a.png"_s; }).html,
        QString())
        << "no name of the store";
}

TEST(NoteHtml, UnknownElementsLeaveTheirContent) {
    EXPECT_EQ(Clean(u"<article><custom-x>字</custom-x><o:p>词</o:p></article>"_s), u"字词");
}

TEST(NoteHtml, DamagedMarkupStaysBalanced) {
    for (const QString& html : {u"<b>一<i>二</b>三</i>"_s, u"<table><tr><td>一</table>二"_s,
                                u"</p></b>一<"_s, u"<p <b>一"_s, u"<img src="_s, u"<!-- 一"_s,
                                u"一&#xFFFFFFFF;&bad;&#0;"_s, u"<![CDATA[一]]>"_s}) {
        const QString once = Clean(html);
        EXPECT_EQ(Read(Clean(once)), Read(once)) << html.toStdString();
    }
    EXPECT_EQ(Read(TextIn(u"<b>一<i>二</b>三</i>"_s)), "一二三");
}

TEST(NoteHtml, TextThatLooksLikeMarkupStaysText) {
    EXPECT_EQ(TextIn(u"&lt;script&gt;alert(1)&lt;/script&gt;"_s), u"<script>alert(1)</script>");
    EXPECT_EQ(Clean(u"<p title=\"&quot;&gt;&lt;script&gt;\">字</p>"_s),
              u"<p title=\"&quot;&gt;&lt;script&gt;\">字</p>");
}

TEST(NoteHtml, WhatADocumentOfOurOwnSaysComesThroughWhole) {
    QTextDocument document;
    document.setHtml(u"<h1>标题</h1><p style=\"text-indent:20px\">两  空格<br/>换行</p>"
                     "<table border=\"1\"><tr><td>甲</td><td>乙</td></tr></table>"
                     "<ol><li>一<ul><li>二</li></ul></li></ol>"_s);
    QTextDocument again;
    again.setHtml(Clean(document.toHtml()));
    EXPECT_EQ(again.toPlainText(), document.toPlainText());
    EXPECT_EQ(Read(again.toHtml()), Read(document.toHtml()));
    EXPECT_EQ(Clean(Clean(document.toHtml())), Clean(document.toHtml()));
}

TEST(NoteHtml, BlanksAndLineBreaksStandForThemselvesWhereTheDocumentSaysSo) {
    QTextDocument document;
    document.setPlainText(u"一   二\t三"_s);
    EXPECT_EQ(TextIn(document.toHtml()), u"一   二\t三");
}

TEST(NoteHtml, AnyLengthOfTextComesThroughWhereverThePiecesEnd) {
    QString text;
    for (int i = 0; i < 60'000; ++i) {
        text += QChar(char16_t(u'一' + i % 5000));
        text += i % 7 == 0 ? u"a"_s : QString();
    }
    EXPECT_EQ(Clean(u"<p>"_s + text + u"</p>"_s), u"<p>"_s + text + u"</p>"_s);
    EXPECT_TRUE(Clean(u"😀"_s.repeated(40'000)) == u"😀"_s.repeated(40'000));
}

TEST(NoteHtml, WhatIsTooLargeOrTooDeepIsRefused) {
    EXPECT_EQ(CleanNoteHtml(QString(kMostNoteCharacters + 1, u'x')).fault, NoteFault::TooLarge);
    EXPECT_EQ(CleanNoteHtml(u"<b>"_s.repeated(100'000)).fault, NoteFault::TooDeep);
    EXPECT_EQ(CleanNoteHtml(u"<div>"_s.repeated(100'000) + u"字"_s).fault, NoteFault::TooDeep);
    EXPECT_EQ(CleanNoteHtml(u"<p>"_s.repeated(2'000) + u"字"_s).fault, NoteFault::None)
        << "a paragraph ends the one before";
}

TEST(NoteHtml, TablesHaveNoMoreCellsThanTheirLimit) {
    const auto rows = [](int count, const QString& cells) {
        return u"<table>"_s + (u"<tr>"_s + cells + u"</tr>"_s).repeated(count) + u"</table>"_s;
    };
    const QString wide = u"<td colspan=1000>a</td>"_s;
    EXPECT_EQ(CleanNoteHtml(rows(100, wide)).fault, NoteFault::None);
    EXPECT_EQ(CleanNoteHtml(rows(101, wide)).fault, NoteFault::TooLarge);
    EXPECT_EQ(CleanNoteHtml(rows(51, wide).repeated(2)).fault, NoteFault::TooLarge) << "together";
    EXPECT_EQ(CleanNoteHtml(rows(300, u"<td rowspan=1000>a</td>"_s)).fault, NoteFault::None);
    EXPECT_EQ(CleanNoteHtml(rows(450, u"<td rowspan=1000>a</td><td></td>"_s)).fault,
              NoteFault::TooLarge)
        << "each row pushes the next one's cells to the right";
    EXPECT_EQ(CleanNoteHtml(rows(9'000, u"<td>a</td>"_s.repeated(11))).fault, NoteFault::None);
    EXPECT_EQ(Clean(u"<td colspan=\"99999\" rowspan=\"-1\">a</td><td colspan=\"1\">b</td>"_s),
              u"<td colspan=\"1000\">a</td><td>b</td>");
}

TEST(NoteHtml, OfTablesTooFarInEachOtherTheContentStays) {
    const QString begin = u"<table><tr><td>a"_s;
    const QString end = u"</td></tr></table>"_s;
    const QString most = begin.repeated(6) + u"b"_s + end.repeated(6);
    EXPECT_EQ(Read(Clean(most)), Read(most));
    EXPECT_EQ(Read(Clean(begin + most + u"c"_s + end)),
              Read(begin.repeated(6) + u"ab"_s + end.repeated(5) + u"c"_s + end));
    EXPECT_EQ(Clean(begin.repeated(100) + end.repeated(100) + begin + end).count(u"<table>"_s), 7)
        << "the next one stands by itself";
    QTextDocument document;
    document.setHtml(Clean(begin.repeated(120)));
    document.setTextWidth(500);
    EXPECT_GT(document.size().height(), 0) << "without hours of layout";
}

TEST(NoteHtml, LengthsFarBeyondAPageAreBoundedOrLeftOut) {
    EXPECT_EQ(Clean(u"<table border=\"99999999\" width=\"50%\" cellpadding=\"9x9\" "
                    "cellspacing=\"-2\"></table>"_s),
              u"<table border=\"100\" width=\"50%\"></table>");
    EXPECT_EQ(Clean(u"<hr width=\"1e30\" />"_s), u"<hr width=\"10000\" />");
    for (const char* style :
         {"margin-left:99999999px", "text-indent:-99999px", "margin:1e30px", "margin:0 0 0 10001px",
          "font-size:501pt", "line-height:1E9%", "border:99999px solid #ff0000"}) {
        EXPECT_EQ(Clean(u"<p style=\"%1\">字</p>"_s.arg(QLatin1String(style))), u"<p>字</p>")
            << style;
    }
    for (const char* style :
         {"margin-left:40px;", "font-size:2em;", "color:#99999999;", "font-family:'Font 99999999';",
          "border:1px solid #999999;", "background-color:rgba(255,0,0,0.498039);",
          "line-height:150%;", "text-indent:-10000px;"}) {
        const QString html = u"<p style=\"%1\">字</p>"_s.arg(QLatin1String(style));
        EXPECT_EQ(Read(Clean(html)), Read(html));
    }
}

TEST(NoteHtml, SignsByWhichADocumentHoldsItselfTogetherAreNoText) {
    const QString inner = QString(QChar(0xFFFC)) + QChar(0xFDD0) + QChar(0xFDD1) + QChar(0xFDEF);
    EXPECT_EQ(Clean(u"<p>一"_s + inner + u"，二</p>"_s), u"<p>一，二</p>");
    EXPECT_EQ(Clean(u"a&#xFFFC;b&#64976;c"_s), u"abc");
    EXPECT_EQ(Clean(u"<img src=\"x\" alt=\"a\u0001\u001Fb"_s + inner + u"\">"_s), u"ab");
    EXPECT_EQ(Clean(u"\uFFFD\uFDF0\uFF0C"_s), u"\uFFFD\uFDF0\uFF0C") << "their neighbours are";
}

TEST(NoteHtml, StoreNamesAreDigestsWithAnEnding) {
    EXPECT_TRUE(IsStoreName(kPicture));
    EXPECT_TRUE(IsStoreName(kPicture.left(32)));
    for (const QString& name :
         {QString(), u"a.jpg"_s, u"../"_s + kPicture, kPicture + u"/x"_s, kPicture.toUpper(),
          kPicture.left(32) + u"."_s, kPicture.left(32) + u".a/b"_s, kPicture.left(31) + u".jpg"_s,
          kPicture.left(32) + u".0123456789ab"_s, kPicture.left(32) + u"x.jpg"_s}) {
        EXPECT_FALSE(IsStoreName(name)) << name.toStdString();
    }
}

} // namespace toolkit
