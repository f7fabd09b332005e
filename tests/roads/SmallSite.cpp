#include "tests/roads/SmallSite.h"

#include "site/SetupState.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/SiteWriter.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

namespace roads {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kFirstTime = 1'700'000'000;

void AddPlaces(site::SiteWriter& writer, SmallSite& site) {
    for (const qint32 ppid : {site.firstProject, site.secondProject}) {
        for (const QString& floor : {u"-1"_s, u"1"_s}) {
            for (const QString& x : {u"1"_s, u"2"_s}) {
                for (const QString& y : {u"A"_s, u"B"_s}) {
                    writer.AddPosition({ppid, floor, x, y, {}, true});
                }
            }
        }
    }
    site.positionKey = writer.FindPosition(site.firstProject, u"-1"_s, u"2"_s, u"B"_s);
}

void AddPhotos(site::SiteWriter& writer, SmallSite& site) {
    for (int number = 0; number < 5; ++number) {
        site::NewBimPhoto photo;
        photo.ppid = site.firstProject;
        photo.fileName = u"照片%1.jpg"_s.arg(number);
        photo.positionKey = site.positionKey;
        photo.markId = 1;
        photo.uploader = u"张伟"_s;
        photo.uploadTime = kFirstTime + number;
        site.photos.push_back(
            writer.FilePhoto(photo, {QString(), JpegBytes(qRgb(40 * number, 90, 90))}));
    }
}

void AddOthers(site::SiteWriter& writer, const SmallSite& site) {
    site::NewCheckpoint point;
    point.drawingId = writer.AddDrawing(site.firstProject, u"一层平面图"_s);
    point.number = 1;
    site::NewPdfPhoto photo;
    photo.checkpointId = writer.AddCheckpoint(site.firstProject, point);
    photo.fileName = u"图纸照片.jpg"_s;
    photo.uploader = u"张伟"_s;
    photo.uploadTime = kFirstTime;
    writer.FilePdfPhoto(site.firstProject, photo, {QString(), JpegBytes(qRgb(1, 2, 3))});
    for (const QString& floor : {u"-1"_s, u"1"_s}) {
        site::NewIssue issue;
        issue.ppid = site.firstProject;
        issue.theme = u"问题"_s + floor;
        issue.floor = floor;
        issue.creator = u"张伟"_s;
        issue.createTime = kFirstTime;
        writer.FileIssue(issue);
    }
}

} // namespace

QByteArray JpegBytes(QRgb color) {
    QImage picture(32, 24, QImage::Format_RGB32);
    picture.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "JPG");
    return bytes;
}

SmallSite MakeSmallSite(const QString& folder) {
    SmallSite site;
    site::DataFolder data(folder);
    EXPECT_FALSE(data.Open());
    site::SiteWriter writer(data);
    writer.BeginBatch();
    site.firstProject = writer.AddProject(u"一期工程"_s);
    site.secondProject = writer.AddProject(u"二期工程"_s);
    writer.AddWorkset(u"总包"_s, {site.firstProject, site.secondProject});
    writer.AddUser(u"张伟"_s, {5, 21, 22, 38, site::kRightSetup});
    writer.AddUser(u"李娜"_s, {});
    writer.AddMark(1, u"质量"_s, 0x0000FF);
    AddPlaces(writer, site);
    AddPhotos(writer, site);
    AddOthers(writer, site);
    writer.CommitBatch();
    return site;
}

} // namespace roads
