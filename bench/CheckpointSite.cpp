#include "bench/CheckpointSite.h"

#include "bench/CachedPictures.h"
#include "host/session/HostSession.h"
#include "services/DrawingRecords.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "services/IPDFDrawingMng.h"
#include "services/IVeskPicMng.h"
#include "site/IComments.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/bulk/BulkText.h"
#include "tests/support/EngineFolder.h"

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPictures = 200;
constexpr int kComments = 5000;
constexpr qint32 kCheckpointMark = 1;
constexpr qint64 kFirstTime = 1'700'000'000;
const QString kInspector = u"bench"_s;
const QString kDrawing = u"总平面图"_s;

/// One to three sentences.
QString CommentText(bulk::BulkRandom& random) {
    QString text = bulk::BulkPerson(random) + u"："_s;
    for (int i = random.Below(3); i >= 0; --i) {
        text += bulk::BulkDescription(random) + u"。"_s;
    }
    return text;
}

void FileComments(site::ISite& site, const CheckpointSite& place) {
    bulk::BulkRandom random(7);
    for (int i = 0; i < kComments; ++i) {
        const bool isAdded = site.Comments()
                                 .Add({place.ppid}, place.checkpointId, CommentText(random),
                                      {kInspector, kFirstTime + 60 * i})
                                 .has_value();
        if (!isAdded) {
            qFatal("no checkpoint to comment on");
        }
    }
}

void FilePictures(site::SiteWriter& writer, const CheckpointSite& place) {
    const QByteArray stored = StoredPicture();
    for (int i = 0; i < kPictures; ++i) {
        site::NewPdfPhoto photo;
        photo.checkpointId = place.checkpointId;
        photo.fileName = u"IMG_%1.jpg"_s.arg(i);
        photo.description = u"梁底露筋"_s;
        photo.uploader = kInspector;
        photo.uploadTime = kFirstTime + i;
        writer.FilePdfPhoto(place.ppid, photo, {{}, stored});
    }
}

} // namespace

CheckpointSite FileCheckpoint(host::HostSession& session, const QStringList& photos) {
    CheckpointSite place;
    site::SiteWriter writer(support::FolderOf(session));
    writer.BeginBatch();
    place.ppid = writer.AddProject(u"测速"_s);
    writer.AddUser(kInspector, {KX_DATA::kRightEdit, KX_DATA::kRightDelete});
    writer.AddMark(kCheckpointMark, u"质量"_s, 0x00C0FF);
    site::NewCheckpoint checkpoint;
    checkpoint.drawingId = writer.AddDrawing(place.ppid, kDrawing);
    checkpoint.number = 1;
    checkpoint.description = u"外墙渗漏"_s;
    checkpoint.markId = kCheckpointMark;
    checkpoint.labelIds = {writer.AddLabel(u"渗漏"_s)};
    place.checkpointId = writer.AddCheckpoint(place.ppid, checkpoint);
    place.drawingName = kDrawing;
    FilePictures(writer, place);
    FileComments(session.Site(), place);
    writer.CommitBatch();
    KX_DATA::DrawingRecord record;
    QString folder;
    if (!session.SignIn(kInspector) || !session.OpenProject(place.ppid) ||
        GetPDFDrawingMng()->GetDrawing(place.checkpointId, record) != KX_DATA::kServiceOk) {
        return {};
    }
    GetKXPathMng()->GetThumbFolder(folder, place.ppid, {});
    QStringList uuids;
    for (const KX_DATA::DrawingPicRef& pic : record.pics) {
        uuids << pic.uuid;
    }
    if (!PutIntoCache(uuids, folder, photos)) {
        return {};
    }
    place.firstPicture = folder + record.pics.front().uuid + u".jpg"_s;
    return place;
}

} // namespace bench
