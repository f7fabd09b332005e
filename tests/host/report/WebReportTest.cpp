// The web page of a report.
#include "host/report/WebReport.h"

#include "host/report/WebText.h"
#include "tests/host/report/ReportSamples.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reporttest {

namespace {

class WebReport : public testing::Test {
protected:
    [[nodiscard]] QString PageOf(const host::ReportSheet& sheet) const {
        const QString path = m_folder.filePath(u"报告.html"_s);
        EXPECT_EQ(Write(host::WriteWeb, sheet, path), QString());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }
    [[nodiscard]] QString Folder() const { return m_folder.path(); }

    const QTemporaryDir m_folder;
};

QStringList Found(const QString& page, const QString& pattern) {
    QStringList found;
    auto match = QRegularExpression(pattern).globalMatch(page);
    while (match.hasNext()) {
        found << match.next().captured(1);
    }
    return found;
}

/// Elements that begin and don't end, or the other way round.
QStringList Unbalanced(const QString& page) {
    static const QStringList empty{u"meta"_s, u"br"_s, u"img"_s, u"col"_s, u"hr"_s};
    QStringList open;
    auto match = QRegularExpression(u"<(/?)([a-z][a-z0-9]*)[^>]*>"_s).globalMatch(page);
    while (match.hasNext()) {
        const auto element = match.next();
        const QString name = element.captured(2);
        if (empty.contains(name)) {
            continue;
        }
        if (element.captured(1).isEmpty()) {
            open << name;
        } else if (open.isEmpty() || open.takeLast() != name) {
            return {u"unexpected end of "_s + name};
        }
    }
    return open;
}

TEST_F(WebReport, TellsHeadingsFactsAndCaptionsInTheirOrder) {
    const QString page = PageOf(SheetFor(IssueReport(Folder())));
    EXPECT_THAT(Unbalanced(page), testing::IsEmpty());
    qsizetype at = 0;
    for (const QString& text : {u"lang=\"zh-CN\""_s,
                                u"<title>问题报告"_s,
                                u"页眉文字"_s,
                                u"<h1>问题报告</h1>"_s,
                                u"目录"_s,
                                u"概况</h2>"_s,
                                u"<dt>楼层</dt><dd>地下一层</dd>"_s,
                                u"平面位置"_s,
                                u"整改前照片</h2>"_s,
                                u"<strong>照片1</strong>"_s,
                                u"评论</h3>"_s,
                                u"请尽快处理<br>第二行"_s,
                                u"整改后照片</h2>"_s,
                                u"照片尚未下载"_s,
                                u"图片无法读取"_s,
                                u"照片A"_s,
                                u"语音备注"_s,
                                u"12秒"_s,
                                u"整改记录</h2>"_s,
                                u"赵六"_s,
                                u"整改前"_s,
                                u"最后一段"_s,
                                u"页脚文字"_s}) {
        const qsizetype found = page.indexOf(text, at);
        EXPECT_GE(found, at) << qPrintable(text);
        at = std::max(found, at);
    }
    EXPECT_EQ(Found(page, u"href=\"#([^\"]*)\""_s), Found(page, u"<h[23] id=\"([^\"]*)\""_s));
}

TEST_F(WebReport, HoldsEachPictureItself) {
    const host::ReportSheet sheet = SheetFor(PhotoReport(Folder(), 3, {1600, 1200}));
    const QString page = PageOf(sheet);
    const QStringList pictures = Found(page, u"src=\"data:image/jpeg;base64,([^\"]*)\""_s);
    ASSERT_EQ(pictures.size(), 3);
    const double width = host::GridOf(sheet.options).picture.width();
    for (const QString& picture : pictures) {
        const QImage image = QImage::fromData(QByteArray::fromBase64(picture.toLatin1()));
        EXPECT_NEAR(image.width(), width * host::kPrintDpi / host::kReportDpi, 2);
    }
    for (const QString& shown : Found(page, u"<img[^>]* width=\"([0-9]+)\""_s)) {
        EXPECT_NEAR(shown.toDouble(), width, 2);
    }
    EXPECT_EQ(Found(page, u"src=\"(?!data:)([^\"]*)\""_s), QStringList());
}

TEST_F(WebReport, WritesFilesAsDataPieceByPiece) {
    for (const qsizetype size : {0, 1, 2, 3, 196'608, 196'609, 500'000}) {
        QByteArray bytes(size, 'x');
        for (qsizetype at = 0; at < size; ++at) {
            bytes[at] = char(at * 7 + at / 251);
        }
        QFile file(m_folder.filePath(u"data"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == size);
        file.close();
        QBuffer out;
        out.open(QIODevice::WriteOnly);
        host::WebText text(out);
        EXPECT_TRUE(text.AddFile(u"image/jpeg"_s, file.fileName()));
        EXPECT_EQ(out.data(), "data:image/jpeg;base64," + bytes.toBase64());
    }
}

TEST_F(WebReport, AllowsNothingToBeFetchedOrRun) {
    const QString page = PageOf(SheetFor(IssueReport(Folder())));
    EXPECT_TRUE(page.contains(u"http-equiv=\"Content-Security-Policy\" content=\"default-src "
                              "'none'; style-src 'unsafe-inline'; img-src data:\""_s));
    EXPECT_FALSE(page.contains(u"<script"_s, Qt::CaseInsensitive));
    EXPECT_EQ(Found(page, u"href=\"([^#\"][^\"]*)\""_s),
              QStringList({u"https://example.org/a?b=1&amp;c=2"_s, u"mailto:a@example.org"_s}));
    EXPECT_EQ(Found(page, u"(<a rel=\"noopener\")"_s).size(), 2);
}

TEST_F(WebReport, LetsNothingOfAHostileRecordThrough) {
    host::ReportContent content;
    const QString html =
        u"<p onclick=\"evil()\" style=\"background:url(http://example.org/x.png); color:red\">a"
        "<script>evil()</script><iframe src=\"http://example.org\"></iframe>"
        "<a href=\"javascript:evil()\">b</a><a href=\"data:text/html,evil\">c</a>"
        "<a href=\"https://example.org/&quot; onmouseover=&quot;evil()\">d</a>"
        "<img src=\"x\" onerror=\"evil()\"><svg onload=\"evil()\"></svg>"
        "<span style=\"font-family:'x;}</style><script>evil()</script>'\">e</span>"
        "<span style=\"font-family:x&quot; onclick=&quot;evil()\">f</span>"
        "&lt;script&gt;evil()&lt;/script&gt;<style>p{background:url(http://x)}</style></p>"_s;
    content.record = host::ReportRecord{html, Folder(), {}};
    const QString page = PageOf(SheetFor(content));
    EXPECT_THAT(Unbalanced(page), testing::IsEmpty());
    const QString body = page.mid(page.indexOf(u"<main>"_s));
    EXPECT_EQ(Found(body, u"(<script|<iframe|<svg|<style|<object)"_s), QStringList());
    QString names = body;
    names.remove(QRegularExpression(u"=\"[^\"]*\""_s));
    EXPECT_EQ(Found(names, u"<[^>]*\\s(on[a-z]+)[^>]*>"_s), QStringList());
    EXPECT_EQ(Found(body, u"(javascript:|url\\()"_s), QStringList());
    EXPECT_EQ(Found(body, u"(&lt;script&gt;evil\\(\\))"_s).size(), 1);
    for (const QString& link : Found(body, u"href=\"([^\"]*)\""_s)) {
        EXPECT_TRUE(link.startsWith(u"https://example.org/"_s)) << qPrintable(link);
    }
}

TEST_F(WebReport, KeepsOddTextsAsTheyAre) {
    host::ReportContent content = IssueReport(Folder());
    content.kind = HostileText();
    content.sections.front().title = HostileText();
    content.sections.front().photos.front().title = HostileText();
    content.sections.front().photos.front().facts = {{HostileText(), HostileText()}};
    content.sections.front().comments = {{HostileText(), u"x"_s, QString(50'000, u'长')}};
    const QString page = PageOf(SheetFor(content));
    EXPECT_THAT(Unbalanced(page), testing::IsEmpty());
    const QString shown = host::WebEscaped(HostileTextShown()).replace(u'\n', u"<br>"_s);
    EXPECT_TRUE(page.contains(u"<h1>"_s + shown + u"</h1>"_s));
    EXPECT_TRUE(page.contains(u"<strong>"_s + shown + u"</strong>"_s));
    EXPECT_TRUE(page.contains(u"<td>"_s + shown + u"</td>"_s));
    EXPECT_TRUE(page.contains(QString(50'000, u'长')));
    EXPECT_FALSE(page.contains(QChar(1)));
    EXPECT_FALSE(page.contains(u"</script>"_s));
}

TEST_F(WebReport, WritesTheRichText) {
    const QString page = PageOf(SheetFor(IssueReport(Folder())));
    for (const QString& part :
         {u"<p>滨江一期</p>\n"_s, u"<span style=\"font-weight:bold;\">渗漏</span>"_s,
          u"color:#FF0000;background:#FFFF00;font-size:18pt;font-family:'SimHei';"_s,
          u"text-decoration:underline ;\">下划线"_s, u"text-decoration:line-through;\">删除"_s,
          u"<td colspan=\"2\">"_s, u"<td rowspan=\"2\">"_s, u"text-align:center;"_s,
          u"<ol style=\"list-style-type:lower-alpha\"><li>"_s, u"<hr>"_s}) {
        EXPECT_TRUE(page.contains(part)) << qPrintable(part);
    }
    // Lists stand in the items that they belong to.
    QString lists = page.mid(page.indexOf(u"<ul style"_s));
    lists.remove(QRegularExpression(u"<p[^>]*>|</p>|\n| style=\"list-style-type:disc\""_s));
    EXPECT_TRUE(lists.startsWith(u"<ul><li>甲<ul><li>甲一</li><li>甲二</li></ul></li>"
                                 "<li>乙</li></ul><ol"_s))
        << qPrintable(lists.left(400));
}

TEST_F(WebReport, HasItsPaperAndDirection) {
    host::ReportOptions options;
    EXPECT_TRUE(PageOf(SheetFor({}, options)).contains(u"@page { size: A4 portrait;"_s));
    options.paper = host::ReportPaper::A3;
    options.isLandscape = true;
    EXPECT_TRUE(PageOf(SheetFor({}, options)).contains(u"@page { size: A3 landscape;"_s));
    EXPECT_THAT(Unbalanced(PageOf(host::ReportSheet{})), testing::IsEmpty());
}

} // namespace

} // namespace reporttest
