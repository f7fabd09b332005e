#include "tests/viewers/notes/NoteFixture.h"

#include "base/PictureLog.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/Decoders.h"
#include "viewers/DownloadWorker.h"

#include <QStringDecoder>
#include <QTest>

using namespace Qt::StringLiterals;

NoteFixture::NoteFixture() {
    host.paths.root = folder.Path();
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(folder.Path(u"module.log"_s));
}

NoteFixture::~NoteFixture() {
    gallery.reset();
    gallery::JoinDownloadWorkers();
    gallery::JoinDecoders();
    support::RunPendingEvents();
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(QString());
}

void NoteFixture::Open(support::NotesOf notes) {
    gallery = std::make_unique<support::NotedGallery>(notes);
    gallery->Create(toolkit::kNoWindow);
    gallery->Widget()->resize(500, 400);
    gallery->Widget()->show();
    support::RunPendingEvents();
    host.Log().Clear();
}

GalleryItem NoteFixture::Item(const QString& uuid, int frames) {
    GalleryItem item;
    item.picUuid = u"pic-"_s + uuid;
    item.picPath =
        folder.Write(u"pics/%1.jpg"_s.arg(item.picUuid),
                     support::PngBytes(support::OneColour({30, 20}, QColor(200, 120, 40))));
    item.audioUuid = uuid;
    if (!uuid.isEmpty()) {
        item.audioPath =
            folder.Write(gallery::NotePath(u"pics/"_s, uuid), support::SilentAmr(frames));
        item.audioState = kOnDisk;
    }
    return item;
}

GalleryItem NoteFixture::WaitingItem(const QString& uuid) {
    GalleryItem item = Item(uuid);
    item.audioState = kWaiting;
    item.picPath = folder.Path(u"none.jpg"_s);
    return item;
}

void NoteFixture::SetItems(const std::vector<GalleryItem>& items) {
    gallery->SetPicItems(items);
}

void NoteFixture::Press() {
    QTest::mouseClick(gallery->note.Button(), Qt::LeftButton);
}

void NoteFixture::ExpectAtRest(const QString& text) const {
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Pos(), 0);
    EXPECT_EQ(Image(), u"play");
    EXPECT_EQ(Text(), text);
}

void NoteFixture::ExpectPlaysOn() const {
    EXPECT_TRUE(IsPlaying());
    EXPECT_EQ(Text(), u"00:01 / 00:10");
    EXPECT_EQ(Pos(), 1);
    EXPECT_EQ(Image(), u"stop");
}

int NoteFixture::Downloads() {
    return int(host.Log().LinesOf({"StartDownload"}).size());
}

QString NoteFixture::ModuleLog() const {
    QStringDecoder decode("GBK");
    return decode(folder.Read(u"module.log"_s));
}
