#include "host/sheet/ListRows.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using sheets::SheetCell;

QStringList TitlesOf(const sheets::SheetLayout& layout) {
    QStringList titles;
    for (const sheets::SheetColumn& column : layout.columns) {
        titles << column.title;
    }
    return titles;
}

QStringList TextsOf(const sheets::SheetRow& row) {
    struct Text {
        QString operator()(const QString& text) const { return text; }
        QString operator()(qint64 number) const { return QString::number(number); }
        QString operator()(sheets::SheetTime time) const { return sheets::TextOf(time); }
        QString operator()(const sheets::SheetPicture& picture) const {
            return u"[%1:%2]"_s.arg(picture.ppid).arg(picture.uuid);
        }
    };
    QStringList texts;
    for (const sheets::SheetCell& cell : row) {
        texts << std::visit(Text(), cell);
    }
    return texts;
}

const host::RowNames kNames{{{1, u"质量"_s}}, {{7, u"一期工程"_s}}};
constexpr qint64 kRowTime = 1'700'000'000; // 2023-11-15 06:13:20 in Shanghai

TEST(ListRows, ABimPhotoAsCells) {
    KX_DATA::BimPicRow photo;
    photo.picId = 5;
    photo.ppid = 7;
    photo.markId = 1;
    photo.fileName = u"墙.jpg"_s;
    photo.floor = u"-1"_s;
    photo.posText = u" 2/B"_s;
    photo.labelNames = {u"渗漏"_s, u"外墙"_s};
    photo.description = u"=危险"_s;
    photo.rectifyText = u"未整改"_s;
    photo.status = 1;
    photo.uploaderName = u"张伟"_s;
    photo.uploadStamp = kRowTime;
    photo.updaterName = u"李娜"_s;
    photo.updateStamp = kRowTime + 60;
    photo.text8 = u"uuid"_s;
    EXPECT_EQ(TitlesOf(host::LayoutOf(site::ListKind::BimPhotos, false)),
              (QStringList{u"序号"_s, u"照片标识"_s, u"照片名称"_s, u"所属工程"_s, u"上传人"_s,
                           u"更新人"_s, u"上传时间"_s, u"更新时间"_s, u"位置"_s, u"标签"_s,
                           u"整改情况"_s, u"描述"_s, u"状态"_s}));
    EXPECT_EQ(TextsOf(host::RowOf(photo, 3, kNames, false)),
              (QStringList{u"3"_s, u"质量"_s, u"墙.jpg"_s, u"一期工程"_s, u"张伟"_s, u"李娜"_s,
                           u"2023-11-15 06:13"_s, u"2023-11-15 06:14"_s, u"-1层 2/B"_s,
                           u"渗漏 外墙"_s, u"未整改"_s, u"=危险"_s, u"隐藏"_s}));
    EXPECT_EQ(TextsOf(host::RowOf(photo, 3, kNames, true))[1], u"[7:uuid]"_s);
}

TEST(ListRows, APhotoWithoutAnything) {
    const QStringList texts = TextsOf(host::RowOf(KX_DATA::BimPicRow(), 1, kNames, true));
    EXPECT_EQ(texts.size(),
              qsizetype(host::LayoutOf(site::ListKind::BimPhotos, true).columns.size()));
    EXPECT_EQ(texts.join(u'|'), u"1|[0:]||||||||||||显示"_s);
}

TEST(ListRows, ADrawingPhotoAsCells) {
    KX_DATA::PdfPicRecord photo;
    photo.ppid = 7;
    photo.markId = 2;
    photo.fileName = u"图.jpg"_s;
    photo.drawingName = u"一层平面图"_s;
    photo.checkpointNo = 4;
    photo.labels = {{u"1"_s, u"渗漏"_s}};
    photo.uploaderName = u"张伟"_s;
    photo.uploadTime = u"2023-11-15 06:13"_s;
    photo.updaterName = u"李娜"_s;
    photo.updateTime = u"昨天"_s;
    EXPECT_EQ(TitlesOf(host::LayoutOf(site::ListKind::PdfPhotos, true)),
              (QStringList{u"序号"_s, u"图片"_s, u"标识"_s, u"照片名称"_s, u"所属工程"_s, u"图纸"_s,
                           u"上传人"_s, u"更新人"_s, u"上传时间"_s, u"更新时间"_s, u"位置"_s,
                           u"标签"_s, u"整改情况"_s, u"描述"_s, u"状态"_s}));
    const sheets::SheetRow row = host::RowOf(photo, 1, kNames, true);
    EXPECT_EQ(TextsOf(row),
              (QStringList{u"1"_s, u"[7:]"_s, QString(), u"图.jpg"_s, u"一期工程"_s,
                           u"一层平面图"_s, u"张伟"_s, u"李娜"_s, u"2023-11-15 06:13"_s, u"昨天"_s,
                           u"检查点4"_s, u"渗漏"_s, QString(), QString(), u"显示"_s}));
    EXPECT_TRUE(std::holds_alternative<sheets::SheetTime>(row[8]));
    EXPECT_TRUE(std::holds_alternative<QString>(row[9])) << "a time that isn't one stays a text";
}

TEST(ListRows, AnIssueThatWasNeverChangedHasOnePersonAndOneTime) {
    KX_DATA::IssueRow issue;
    issue.ppid = 7;
    issue.theme = u"问题"_s;
    issue.floor = u"1"_s;
    issue.compName = u"KL-1"_s;
    issue.creatorName = u"张伟"_s;
    issue.createTime = kRowTime;
    issue.updateTime = kRowTime;
    EXPECT_EQ(TitlesOf(host::LayoutOf(site::ListKind::Issues, false)),
              (QStringList{u"序号"_s, u"问题标识"_s, u"问题主题"_s, u"所属工程"_s, u"创建人"_s,
                           u"更新人"_s, u"上传时间"_s, u"更新时间"_s, u"问题构件"_s, u"整改情况"_s,
                           u"描述"_s, u"状态"_s}));
    EXPECT_EQ(TextsOf(host::RowOf(issue, 1, kNames, nullptr)),
              (QStringList{u"1"_s, QString(), u"问题"_s, u"一期工程"_s, u"张伟"_s, QString(),
                           u"2023-11-15 06:13"_s, QString(), u"1层 KL-1"_s, QString(), QString(),
                           u"显示"_s}));
}

TEST(ListRows, ATimeIsReadFromItsTextAlone) {
    EXPECT_EQ(sheets::TextOf(*sheets::SheetTimeOf(u"2024-02-29 23:59"_s)), u"2024-02-29 23:59"_s);
    EXPECT_EQ(sheets::TextOf(*sheets::SheetTimeOf(u"1969-12-31 00:01"_s)), u"1969-12-31 00:01"_s);
    for (const QString& text :
         {u""_s, u"2023-02-29 10:00"_s, u"2024-02-29 24:00"_s, u"2024-2-29 10:00"_s,
          u"2024-02-29T10:00"_s, u"aaaa-02-29 10:00"_s, u"2024-02-29 10:00:00"_s}) {
        EXPECT_FALSE(sheets::SheetTimeOf(text)) << text.toStdString();
    }
}

} // namespace
