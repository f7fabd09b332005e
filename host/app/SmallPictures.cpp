#include "host/app/SmallPictures.h"

#include "host/session/SessionDesk.h"
#include "toolkit/media/PictureFile.h"

#include <QBuffer>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kMostOfCell(136, 96);
constexpr int kSmallQuality = 80;
/// 96 to the inch, as spreadsheets count: a pixel here is one there.
constexpr int kDotsPerMetre = 3780;

QByteArray SmallJpeg(const QString& path) {
    const QSize whole = toolkit::ReadPictureSize(path);
    if (whole.isEmpty()) {
        return {};
    }
    const QSize size = whole.scaled(kMostOfCell, Qt::KeepAspectRatio).expandedTo({1, 1});
    QImage small = toolkit::DecodePicture({path, {}, size});
    small.setDotsPerMeterX(kDotsPerMetre);
    small.setDotsPerMeterY(kDotsPerMetre);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return small.save(&buffer, "JPG", kSmallQuality) ? bytes : QByteArray();
}

} // namespace

sheets::PictureSource SmallPictures(std::shared_ptr<SessionDesk> desk,
                                    site::IClientFolders::Cache cache, std::stop_token end) {
    return
        [desk = std::move(desk), cache, end = std::move(end)](const sheets::SheetPicture& picture) {
            QByteArray bytes;
            const auto folder = desk->Folder([&](site::IClientFolders& folders) {
                return folders.CacheOf(picture.ppid, cache);
            });
            if (!folder || folder->isEmpty()) {
                return bytes;
            }
            // Where the module looks for it too.
            const QString path = *folder + u'/' + picture.uuid + u".jpg"_s;
            desk->Run([&](site::IBlobs& blobs, const site::TransferTerms& terms) {
                std::stop_source stop;
                const auto ask = [&stop] { stop.request_stop(); };
                const std::stop_callback siteCloses(terms.limits.stop, ask);
                const std::stop_callback hadEnough(end, ask);
                const site::TransferTerms both{
                    terms.rules, {terms.limits.deadline, stop.get_token()}, {}};
                if (!stop.stop_requested() && blobs.Fetch(picture.uuid, path, both).ok) {
                    bytes = SmallJpeg(path);
                }
            });
            return bytes;
        };
}

} // namespace host
