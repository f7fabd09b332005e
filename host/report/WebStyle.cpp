#include "host/report/WebStyle.h"

#include "host/report/ReportBlocks.h"
#include "host/report/WebText.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kSheetStyle = R"(
html { background: #fff; }
body { margin: 0 auto; padding: 24px; color: #262626; font: 14px/1.6 "Microsoft YaHei", 微软雅黑,
  "PingFang SC", "Noto Sans CJK SC", "WenQuanYi Micro Hei", sans-serif; overflow-wrap: anywhere; }
h1, h2, h3, h4, h5, h6 { line-height: 1.35; break-after: avoid; page-break-after: avoid; }
h1, h2, h3, nav > p { color: #15428B; }
h1 { font-size: 28px; margin: 8px 0 12px; }
h2, nav > p { font-size: 20px; font-weight: bold; margin: 32px 0 12px; }
h2 { padding-bottom: 4px; border-bottom: 1px solid #B1C3D9; }
h3 { font-size: 16px; margin: 20px 0 8px; }
.title { text-align: center; padding-bottom: 12px; border-bottom: 1px solid #B1C3D9; }
.title p { margin: 2px 0; color: #595959; }
header, footer { color: #595959; font-size: 12px; }
header { text-align: right; margin-bottom: 16px; }
footer { margin-top: 32px; padding-top: 8px; border-top: 1px solid #B1C3D9; }
nav ul { list-style: none; margin: 0; padding: 0; }
nav .l2 { padding-left: 24px; }
a { color: #15428B; }
nav a { text-decoration: none; }
nav a:hover { text-decoration: underline; }
dl { display: grid; grid-template-columns: max-content 1fr; gap: 2px 16px; margin: 4px 0 12px; }
dt { color: #6B6B6B; }
dd { margin: 0; }
img { max-width: 100%; height: auto; }
.image { text-align: center; break-inside: avoid; page-break-inside: avoid; }
.note { text-align: center; color: #6B6B6B; margin: 4px 0 16px; }
.photos { display: grid; gap: 14px; margin: 0 0 14px; break-inside: avoid;
  page-break-inside: avoid; }
figure { margin: 0; break-inside: avoid; page-break-inside: avoid; }
figure img { display: block; border: 1px solid #B1C3D9; box-sizing: border-box; }
figcaption { font-size: 13px; margin-top: 4px; }
figcaption dl { gap: 0 10px; margin: 2px 0 0; }
.beside figure { display: grid; grid-template-columns: 62% 1fr; gap: 14px; }
.beside figcaption { margin-top: 0; }
.page figure { text-align: center; }
.page figure img { margin: 0 auto; }
.page dl { display: inline-grid; text-align: left; }
.lack { margin: 0; padding: 24px 12px; border: 1px solid #B1C3D9; color: #6B6B6B;
  text-align: center; }
table { border-collapse: collapse; margin: 4px 0 12px; }
td, th { padding: 4px 8px; text-align: left; vertical-align: top; }
.lined > * > tr > td, .lined > * > tr > th { border: 1px solid #B1C3D9; }
.list { width: 100%; table-layout: fixed; }
th { background: #EAF0F8; }
thead { display: table-header-group; }
.record { font-size: 12px; }
.record p, .record h4, .record h5, .record h6 { margin: 0; white-space: pre-wrap; }
.record h4 { font-size: 20px; }
.record h5 { font-size: 17px; }
.record h6 { font-size: 14px; }
.record ul, .record ol { margin: 0; padding-left: 40px; }
hr { border: 0; border-top: 1px solid #B1C3D9; }
@media print {
  body { max-width: none; padding: 0; font-size: 10.5pt; }
  .first, .page + .page { break-before: page; page-break-before: always; }
  a { color: inherit; }
}
)";

QString PageStyle(const ReportSheet& sheet) {
    const PageShape shape = ShapeOf(sheet.options);
    const QString paper = sheet.options.paper == ReportPaper::A3 ? u"A3"_s : u"A4"_s;
    const QString direction = sheet.options.isLandscape ? u"landscape"_s : u"portrait"_s;
    return u"@page { size: %1 %2; margin: %3px %4px %5px;\n"
           "  @bottom-right { content: \"第 \" counter(page) \" 页，共 \" counter(pages) \" 页\";\n"
           "    color: #595959; font-size: 9pt; } }\nbody { max-width: %6px; }\n"_s.arg(
               paper, direction, WebNumber(shape.text.top()), WebNumber(shape.text.left()),
               WebNumber(shape.page.height() - shape.text.bottom()), WebNumber(shape.text.width()));
}

} // namespace

QString WebHead(const ReportSheet& sheet) {
    return u"<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
           "style-src 'unsafe-inline'; img-src data:\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"_s +
           WebEscaped(sheet.title) + u"</title>\n<style>"_s + QString::fromUtf8(kSheetStyle) +
           PageStyle(sheet) + u"</style>\n</head>\n<body>\n"_s;
}

} // namespace host
