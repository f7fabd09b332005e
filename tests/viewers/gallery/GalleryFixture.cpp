#include "tests/viewers/gallery/GalleryFixture.h"

#include "base/PictureLog.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/Decoders.h"
#include "viewers/DownloadWorker.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

QByteArray Picture(int index, const QColor& colour) {
    Q_UNUSED(index);
    return support::PngBytes(support::OneColour({300, 200}, colour));
}

} // namespace

GalleryFixture::GalleryFixture() {
    host.paths.root = folder.Path();
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(folder.Path(u"module.log"_s));
    gallery = std::make_unique<support::FolderGallery>();
}

GalleryFixture::~GalleryFixture() {
    gallery.reset();
    gallery::JoinDownloadWorkers();
    gallery::JoinDecoders();
    support::RunPendingEvents();
    ZelvorNRQ_KXVeskPicture::SetLogFilePath(QString());
}

void GalleryFixture::Open(bool visible, bool horizontal) {
    gallery->horizontal = horizontal;
    gallery->Create(toolkit::kNoWindow);
    Pane()->resize(500, 400);
    if (visible) {
        Pane()->show();
    }
    support::RunPendingEvents();
    Log().Clear();
}

QColor GalleryFixture::ColourOf(int index) {
    return QColor(QColor::fromHsv(index * 47 % 360, 200, 120 + index * 13 % 100).rgb());
}

std::vector<GalleryItem> GalleryFixture::OnDisk(int count) {
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        paths.append(
            folder.Write(u"pics/d%1.jpg"_s.arg(i, 3, 10, QChar(u'0')), Picture(i, ColourOf(i))));
    }
    return support::FolderGallery::ItemsOf(paths);
}

std::vector<GalleryItem> GalleryFixture::InStore(int count, bool notes) {
    std::vector<GalleryItem> items;
    for (int i = 0; i < count; ++i) {
        GalleryItem item;
        item.picUuid = u"p%1"_s.arg(i);
        item.picPath = folder.Path(u"cache/p%1.jpg"_s.arg(i));
        host.files.stored[item.picUuid] = Picture(i, ColourOf(i));
        if (notes) {
            item.audioUuid = u"a%1"_s.arg(i);
            item.audioPath = folder.Path(u"cache/a%1.amr"_s.arg(i));
            host.files.stored[item.audioUuid] = "#!AMR\n";
        }
        items.push_back(item);
    }
    return items;
}

void GalleryFixture::SetItems(const std::vector<GalleryItem>& items, int current) {
    gallery->SetCurrentIndex(current);
    gallery->SetPicItems(items);
}

void GalleryFixture::ShowItems(const std::vector<GalleryItem>& items, int current) {
    SetItems(items, current);
    ASSERT_TRUE(support::WaitFor([this] { return gallery->ShowsPicture(); }));
}

QPoint GalleryFixture::ThumbMiddle(int index) const {
    return State().items.at(size_t(index)).thumbRect.center();
}

bool GalleryFixture::SaysNoPicture() {
    const QImage shown = Shown();
    QRect middle(0, 0, 60, 25);
    middle.moveCenter(PictureMiddle());
    int navy = 0;
    for (int y = middle.top(); y <= middle.bottom(); ++y) {
        for (int x = middle.left(); x <= middle.right(); ++x) {
            navy += support::IsNear(shown.pixelColor(x, y), QColor(0x15, 0x42, 0x8B), 60);
        }
    }
    const QColor corner = shown.pixelColor(State().bigArea.center() - QPoint(60, 60));
    return navy > 60 && corner == support::kPaneColour;
}

bool GalleryFixture::WaitForDownloads() {
    return support::WaitFor([this] {
        return State().activeDownloads <= 0 &&
               !gallery::NextDownload(State().items, State().visible, State().currentIndex);
    });
}

std::vector<std::string> GalleryFixture::Started() {
    std::vector<std::string> uuids;
    for (const std::string& line : Log().LinesOf({"StartDownload"})) {
        const size_t begin = line.find('=') + 1;
        uuids.push_back(line.substr(begin, line.find(',') - begin));
    }
    return uuids;
}

QString GalleryFixture::ModuleLog() const {
    QStringDecoder decode("GBK");
    return decode(folder.Read(u"module.log"_s));
}
