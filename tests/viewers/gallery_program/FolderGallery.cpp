#include "tests/viewers/gallery_program/FolderGallery.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace support {

namespace {

constexpr int kStripHeight = 95;
constexpr int kStripWidth = 115;
constexpr int kGap = 5;

} // namespace

std::vector<GalleryItem> FolderGallery::ItemsOf(const QStringList& paths) {
    std::vector<GalleryItem> items;
    for (const QString& path : paths) {
        GalleryItem item;
        item.picUuid = QFileInfo(path).completeBaseName();
        item.picPath = path;
        const QFileInfo note(QFileInfo(path).dir(), item.picUuid + u".amr"_s);
        if (note.exists()) {
            item.audioUuid = item.picUuid;
            item.audioPath = note.filePath();
        }
        items.push_back(item);
    }
    return items;
}

QStringList FolderGallery::PicturesIn(const QString& folder) {
    QStringList paths;
    const QDir dir(folder);
    for (const QString& name :
         dir.entryList({u"*.jpg"_s, u"*.jpeg"_s, u"*.png"_s, u"*.gif"_s, u"*.bmp"_s}, QDir::Files,
                       QDir::Name)) {
        paths.append(dir.filePath(name));
    }
    return paths;
}

void FolderGallery::OnCreated() {
    CPicViewDlg::OnCreated();
    Widget()->setWindowTitle(u"照片"_s);
    LayOut();
}

void FolderGallery::OnClose() {
    ++closed;
    Destroy();
}

void FolderGallery::LayOut() {
    const QSize size = Widget()->size();
    if (horizontal) {
        SetPicRects(QRect(0, 0, size.width(), size.height() - kStripHeight - 2 * kGap),
                    QRect(kGap, size.height() - kStripHeight - kGap, size.width() - 2 * kGap,
                          kStripHeight));
    } else {
        SetPicRects(
            QRect(0, 0, size.width() - kStripWidth - 2 * kGap, size.height()),
            QRect(size.width() - kStripWidth - kGap, kGap, kStripWidth, size.height() - 2 * kGap));
    }
}

} // namespace support
