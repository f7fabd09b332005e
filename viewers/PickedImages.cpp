#include "viewers/PickedImages.h"

#include "toolkit/media/PictureFile.h"
#include "toolkit/windows/Prompts.h"
#include "viewers/ExifBlock.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ZelvorNRQ_KXVeskPicture {

namespace {

constexpr int kReducedQuality = 30;

const QString kFilter = u"全部图片(*) (*.jpeg *.jpg *.png *.tif *.tiff *.gif *.jpe *.bmp);;"
                        u"jpg,jpeg文件(*.jpg;*.jpeg) (*.jpeg *.jpg);;"
                        u"png文件(*.png) (*.png);;"
                        u"tif,tiff文件(*.tif;*.tiff) (*.tif *.tiff);;"
                        u"gif,jpe文件(*.gif;*.jpe) (*.gif *.jpe);;"
                        u"bmp文件(*.bmp) (*.bmp)"_s;

/// The text behind the last separator of either kind.
QString NameOf(const QString& path) {
    return path.mid(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}

} // namespace

void PickImageFiles(std::vector<PickedFile>& picked, bool& occupied) {
    for (QString path : toolkit::Prompts().AskOpenFiles({toolkit::kNoWindow, kFilter})) {
        // The doubled path is what is kept and opened; required as is.
        path.replace(u"\\"_s, u"\\\\"_s);
        QFile file(path);
        // Opening a pipe would wait for whoever writes into it.
        if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
            occupied = true;
            continue;
        }
        const qsizetype dot = path.lastIndexOf(u'.');
        picked.push_back(
            {NameOf(path), path, dot < 0 ? QString() : path.mid(dot), double(file.size())});
    }
}

bool SaveReducedJpeg(const QString& source, const QString& target) {
    const QImage image = toolkit::DecodeWholePicture(source);
    QBuffer reduced;
    QImageWriter writer(&reduced, "jpeg");
    writer.setQuality(kReducedQuality);
    QSaveFile file(target);
    if (!reduced.open(QIODevice::WriteOnly) || !writer.write(image) ||
        !file.open(QIODevice::WriteOnly)) {
        return false;
    }
    const QByteArray whole = WithExif(reduced.data(), ExifForUpright(source));
    // What closing writes is not looked at: on a full disk half a file would stand there.
    return file.write(whole) == whole.size() && file.flush() && file.commit();
}

} // namespace ZelvorNRQ_KXVeskPicture
