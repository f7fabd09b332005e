#include "tests/host/report/ReportSamples.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace reporttest {

using namespace Qt::StringLiterals;

namespace {

QImage Drawing(int seed, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y,
                           qRgb((x + seed * 31) & 255, (y * 2 + seed) & 255, (seed * 7) & 255));
        }
    }
    return image;
}

host::ReportPhoto Photo(const QString& title, const QString& file) {
    host::ReportPhoto photo;
    photo.title = title;
    photo.file = file;
    photo.facts = {{u"拍摄时间"_s, u"2024-03-12 14:25"_s}, {u"楼层"_s, u"地下一层"_s}};
    return photo;
}

} // namespace

QString WritePicture(const QString& folder, const QString& name, int seed, QSize size) {
    const QString path = QDir(folder).filePath(name);
    const bool isWritten = Drawing(seed, size).save(path);
    EXPECT_TRUE(isWritten) << qPrintable(path);
    return path;
}

host::ReportContent PhotoReport(const QString& folder, int photos, QSize size) {
    host::ReportContent content;
    content.project = u"滨江一期"_s;
    content.kind = u"照片报告"_s;
    content.place = u"地下一层 · 机房"_s;
    content.made = u"张三 2024-03-12"_s;
    content.facts = {{u"楼层"_s, u"地下一层"_s}, {u"专业"_s, u"给排水"_s}};
    host::ReportSection section;
    section.title = u"照片"_s;
    for (int number = 1; number <= photos; ++number) {
        section.photos.push_back(
            Photo(u"照片%1"_s.arg(number),
                  WritePicture(folder, u"photo%1.jpg"_s.arg(number), number, size)));
    }
    content.sections.push_back(section);
    return content;
}

QString RichRecord() {
    return uR"(<html><body><h1>整改前</h1><h2>现状</h2>
<p>水管<b>渗漏</b>，<i>斜体</i>，<u>下划线</u>，<s>删除</s>，
<span style="color:#ff0000; background-color:#ffff00; font-size:24px;
font-family:'SimHei'">红字</span>
H<sub>2</sub>O m<sup>2</sup> 😀</p>
<p align="center">居中</p><p style="margin-left:40px; text-indent:20px">缩进</p>
<ul><li>甲<ul><li>甲一</li><li>甲二</li></ul></li><li>乙</li></ul>
<ol><li>第一</li><li>第二</li></ol><ol type="a"><li>另一</li></ol>
<table border="1" width="100%"><tr><td colspan="2">合并列</td><td rowspan="2">合并行</td></tr>
<tr><td>左</td><td bgcolor="#eeeeee">右</td></tr></table><hr />
<p><a href="https://example.org/a?b=1&amp;c=2">网址</a> <a href="mailto:a@example.org">信</a>
<a href="attachment:0123456789abcdef0123456789abcdef.pdf/a.pdf">附件a.pdf</a></p>
<p><img src="%1" width="120" height="90" /> <img src="%2" /></p>
<p>最后一段</p></body></html>)"_s.arg(kRecordPicture, kRecordScan);
}

host::ReportContent IssueReport(const QString& folder) {
    host::ReportContent content = PhotoReport(folder, 3);
    content.kind = u"问题报告"_s;
    content.plan = Drawing(50, {300, 200});
    content.planNote = u"平面位置"_s;
    content.code = Drawing(51, {64, 64});
    content.codeNote = u"扫码查看"_s;
    host::ReportSection& before = content.sections.front();
    before.title = u"整改前照片"_s;
    before.commentsTitle = u"评论"_s;
    before.comments = {{u"李四"_s, u"2024-03-12 15:00"_s, u"请尽快处理\n第二行"_s},
                       {u"王五"_s, u"2024-03-13 09:10"_s, u"已安排"_s}};
    before.voices = {{u"照片1"_s, 12}, {u"照片2"_s, 0}};
    host::ReportSection after;
    after.title = u"整改后照片"_s;
    after.photos.push_back(Photo(u"未下载"_s, {}));
    after.photos.back().lack = u"照片尚未下载"_s;
    const QString broken = QDir(folder).filePath(u"broken.jpg"_s);
    QFile file(broken);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no picture") > 0);
    after.photos.push_back(Photo(u"损坏的照片"_s, broken));
    after.photos.push_back(Photo(u"照片A"_s, WritePicture(folder, u"after.jpg"_s, 20)));
    content.sections.push_back(after);
    WritePicture(folder, kRecordPicture, 30, {400, 300});
    WritePicture(folder, kRecordScan, 31, {100, 60});
    content.record = host::ReportRecord{RichRecord(), folder, {{u"责任人"_s, u"赵六"_s}}};
    return content;
}

QString HostileText() {
    return u"<b>&amp;</b>]]>\"'"_s + QChar(1) + QChar(0xD800) + u'x' + QChar(0xDC00) +
           QChar(0xFFFE) + u"😀\r\n中 文\t完</script>"_s;
}

QString HostileTextShown() {
    return u"<b>&amp;</b>]]>\"'x😀\n中 文\t完</script>"_s;
}

host::ReportSheet SheetFor(const host::ReportContent& content, const host::ReportOptions& options) {
    host::ReportTemplate dress;
    dress.header = u"页眉文字"_s;
    dress.footer = u"页脚文字"_s;
    return host::SheetOf(content, options, dress);
}

QString Write(Writer writer, const host::ReportSheet& sheet, const QString& path,
              const host::ReportSteps& steps) {
    try {
        host::PrintPictures pictures;
        host::ReportFile file(path);
        writer(sheet, pictures, file, steps);
        return {};
    } catch (const host::ReportFault& fault) {
        return fault.Text().isEmpty() ? u"cancelled"_s : fault.Text();
    }
}

QStringList FilesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

} // namespace reporttest
