// Contents of reports whose every part is known.
#pragma once

#include "host/report/ReportContent.h"
#include "tests/support/TempFolder.h"

#include <QColor>
#include <QDir>
#include <QImage>

namespace reporttest {

using namespace Qt::StringLiterals;

/// A JPEG of one colour in the folder; gives its path.
inline QString WritePhoto(const support::TempFolder& folder, const QString& name, QColor color,
                          QSize size = {400, 300}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    const QString path = folder.Path(name);
    image.save(path, "JPEG");
    return path;
}

/// Photos in one section, all of the same file.
inline host::ReportContent PhotosAt(const QString& file, int count) {
    host::ReportContent content;
    content.ppid = 7;
    content.project = u"城东示例工程"_s;
    content.kind = u"照片报告"_s;
    content.place = u"3层 2-B轴 质量"_s;
    content.made = u"张三  2026-03-05 14:00"_s;
    content.facts = {{u"楼层"_s, u"3层"_s}, {u"标识"_s, u"质量"_s}};
    host::ReportSection section;
    section.title = u"照片"_s;
    for (int number = 1; number <= count; ++number) {
        host::ReportPhoto photo;
        photo.title = u"照片%1.jpg"_s.arg(number);
        photo.file = file;
        photo.facts = {{u"上传"_s, u"李四  2026-03-01 09:00"_s}};
        section.photos.push_back(photo);
    }
    content.sections.push_back(section);
    return content;
}

inline void AddRecord(host::ReportContent& content, const QString& html,
                      const QString& folder = {}) {
    content.record = host::ReportRecord{html, folder, {{u"整改情况"_s, u"未整改"_s}}};
}

} // namespace reporttest
