// A site of a test with photos at two intersections and at two checkpoints, to keep records of.
#pragma once

#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/IBlobs.h"
#include "site/IChanges.h"
#include "site/IPdfPhotos.h"
#include "site/IRichTexts.h"
#include "site/RectifyStates.h"
#include "site/TimeText.h"
#include "site/blobs/FileStore.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <QFile>

namespace sitetest {

using namespace Qt::StringLiterals;

inline constexpr qint64 kSavedAt = 1'700'000'000;

struct RichSite : hosttest::TempSite {
    RichSite() {
        ppid = writer.AddProject(u"滨江花园"_s);
        other = writer.AddProject(u"科技大厦"_s);
        writer.AddMark(1, u"质量"_s, 0x0000FF);
        writer.AddMark(2, u"安全"_s, 0x00FF00);
        writer.AddPosition({ppid, u"2"_s, u"3"_s, u"B"_s, u"two"_s, true});
        writer.AddPosition({ppid, u"屋面"_s, u"1"_s, u"A"_s, u"roof"_s, true});
        writer.AddPosition({other, u"1"_s, u"1"_s, u"A"_s, u"theirs"_s, true});
        drawing = writer.AddDrawing(ppid, u"首层"_s);
        point = Point(4);
        otherPoint = Point(5);
    }
    qint32 Point(qint32 number) {
        site::NewCheckpoint made;
        made.drawingId = drawing;
        made.number = number;
        made.markId = 1;
        return writer.AddCheckpoint(ppid, made);
    }
    qint32 Photo(const QString& key, qint32 state = 0, qint32 markId = 1) {
        site::NewBimPhoto photo;
        photo.ppid = ppid;
        photo.fileName = u"照片.jpg"_s;
        photo.positionKey = key;
        photo.markId = markId;
        photo.state = state;
        photo.uploader = u"li"_s;
        photo.uploadTime = kSavedAt + ++photos;
        return writer.FilePhoto(photo, {{}, "jpeg"});
    }
    qint32 PdfPhoto(qint32 checkpointId, qint32 state = 0) {
        site::NewPdfPhoto photo;
        photo.checkpointId = checkpointId;
        photo.fileName = u"照片.jpg"_s;
        photo.state = state;
        photo.uploader = u"li"_s;
        photo.uploadTime = kSavedAt + ++photos;
        return writer.FilePdfPhoto(ppid, photo, {{}, "jpeg"});
    }
    [[nodiscard]] site::IRichTexts& Texts() { return engine.RichTexts(); }
    [[nodiscard]] site::RichPlace Two() const { return site::AtIntersection(ppid, u"two"_s, 1); }
    [[nodiscard]] site::RichPlace OnPoint() const { return site::AtCheckpoint(point); }

    /// A file that was uploaded, as the caller names it.
    [[nodiscard]] site::RichFile Upload(const QString& name, qint32 kind = 1,
                                        const QByteArray& bytes = "page") {
        QFile file(dir.filePath(u"upload"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        const KX_DATA::UploadResult up = engine.Blobs().Upload(file.fileName(), {});
        return {name, up.md5, up.uuid, up.size, kind};
    }
    [[nodiscard]] static site::NewRichVersion
    Based(const QString& base, std::vector<site::RichFile> added = {}, qint32 state = 0) {
        return {base, u"doc"_s, state, {}, std::move(added)};
    }
    /// Saved by li.
    site::RichVersion Save(const site::RichPlace& place, const site::NewRichVersion& version) {
        const auto saved = Texts().Save({ppid}, place, version, {u"li"_s, kSavedAt});
        EXPECT_TRUE(saved);
        return saved.value_or(site::RichVersion{});
    }
    [[nodiscard]] site::RichVersion Newest(const site::RichPlace& place) {
        const auto newest = Texts().Newest({ppid}, place);
        EXPECT_TRUE(newest);
        return newest.value_or(site::RichVersion{});
    }
    [[nodiscard]] static QStringList Names(const site::RichVersion& version) {
        QStringList names;
        for (const site::RichFile& file : version.files) {
            names << file.name;
        }
        return names;
    }
    [[nodiscard]] qint32 StateOf(qint32 picId) {
        return folder.Db()
            .Value(u"SELECT state FROM bim_photo WHERE id = ? UNION ALL SELECT state FROM"
                   " pdf_photo WHERE id = ?"_s,
                   {picId, picId})
            .toInt();
    }
    [[nodiscard]] qint64 Count(const QString& from) {
        return folder.Db().Value(u"SELECT count(*) FROM "_s + from).toLongLong();
    }

    qint32 photos = 0;
    site::SiteWriter writer{folder};
    site::SqliteSite engine{folder};
    qint32 ppid = 0;
    qint32 other = 0;
    qint32 drawing = 0;
    qint32 point = 0;
    qint32 otherPoint = 0;
};

} // namespace sitetest
