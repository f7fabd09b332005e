// A Word document as another program reads it.
#include "host/report/WordReport.h"

#include "tests/host/report/ReportSamples.h"
#include "tests/support/OtherProgram.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;
using support::OutputOf;

namespace reporttest {

namespace {

TEST(WordConversion, AnotherProgramShowsAllOfIt) {
    const QTemporaryDir folder;
    const QString document = folder.filePath(u"report.docx"_s);
    host::ReportOptions options;
    options.pictures = host::ReportPictures::Small;
    ASSERT_EQ(Write(host::WriteWord, SheetFor(IssueReport(folder.path()), options), document),
              QString());
    OutputOf(u"soffice"_s,
             {u"-env:UserInstallation=file://"_s + folder.filePath(u"profile"_s), u"--headless"_s,
              u"--convert-to"_s, u"pdf"_s, u"--outdir"_s, folder.path(), document});
    const QString pdf = folder.filePath(u"report.pdf"_s);
    ASSERT_TRUE(QFile::exists(pdf));
    QString text = QString::fromUtf8(
        OutputOf(u"pdftotext"_s, {u"-raw"_s, u"-enc"_s, u"UTF-8"_s, pdf, u"-"_s}));
    // Where Chinese and other letters meet there is a gap.
    text.remove(QRegularExpression(u"\\s"_s));
    qsizetype at = 0;
    for (const QString& part : {u"页眉文字"_s,   u"问题报告"_s,     u"滨江一期"_s,
                                u"目录"_s,       u"概况"_s,         u"整改前照片"_s,
                                u"评论"_s,       u"整改后照片"_s,   u"语音备注"_s,
                                u"整改记录"_s,   u"概况"_s,         u"楼层"_s,
                                u"地下一层"_s,   u"平面位置"_s,     u"扫码查看"_s,
                                u"整改前照片"_s, u"照片1"_s,        u"拍摄时间：2024-03-1214:25"_s,
                                u"照片2"_s,      u"照片3"_s,        u"评论"_s,
                                u"请尽快处理"_s, u"整改后照片"_s,   u"照片尚未下载"_s,
                                u"未下载"_s,     u"图片无法读取"_s, u"损坏的照片"_s,
                                u"照片A"_s,      u"语音备注"_s,     u"12秒"_s,
                                u"整改记录"_s,   u"赵六"_s,         u"整改前"_s,
                                u"现状"_s,       u"红字"_s,         u"甲一"_s,
                                u"1."_s,         u"第一"_s,         u"合并列"_s,
                                u"附件a.pdf"_s,  u"最后一段"_s}) {
        const qsizetype found = text.indexOf(part, at);
        EXPECT_GE(found, at) << qPrintable(part);
        at = std::max(found, at);
    }
    EXPECT_TRUE(text.contains(u"第1页，共"_s));
    // Four photos, plan, code, two of the rich text; the heads of two lines are for people.
    const QByteArray images = OutputOf(u"pdfimages"_s, {u"-list"_s, pdf});
    EXPECT_EQ(images.count("\n") - 2, 8) << images.constData();
}

} // namespace

} // namespace reporttest
