#include "bench/PhotoSet.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QTextStream>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPhotos = 30;
constexpr int kQuality = 90;
/// Smaller ones would be all blur.
constexpr int kLeastOriginalWidth = 1900;

QStringList Originals(const QString& folder) {
    QStringList paths;
    const QDir dir(folder);
    for (const QString& name : dir.entryList({u"*.jpg"_s}, QDir::Files, QDir::Name)) {
        const QSize size = QImageReader(dir.filePath(name)).size();
        if (size.width() >= kLeastOriginalWidth && size.width() > size.height()) {
            paths.append(dir.filePath(name));
        }
    }
    return paths;
}

QImage Enlarged(const QString& path, const QSize& size, bool mirrored) {
    const QImage original = QImage(path).convertToFormat(QImage::Format_RGB32);
    const QSize part = size.scaled(original.size(), Qt::KeepAspectRatio);
    const QPoint corner((original.width() - part.width()) / 2,
                        (original.height() - part.height()) / 2);
    return original.copy(QRect(corner, part))
        .mirrored(mirrored, false)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

const std::vector<PhotoClass>& PhotoClasses() {
    static const std::vector<PhotoClass> classes = {
        {u"12 MP"_s, 4000, 3000}, {u"24 MP"_s, 6000, 4000}, {u"50 MP"_s, 8160, 6144}};
    return classes;
}

QStringList MakePhotos(const PhotoClass& photos, const QString& originals, const QString& folder) {
    const QStringList sources = Originals(originals);
    QStringList paths;
    if (sources.isEmpty() || !QDir().mkpath(folder)) {
        return {};
    }
    for (int i = 0; i < kPhotos; ++i) {
        const QString path = QDir(folder).filePath(u"%1.jpg"_s.arg(i, 4, 10, QChar(u'0')));
        paths.append(path);
        if (QFile::exists(path)) {
            continue;
        }
        if (i == 0) {
            QTextStream(stderr) << u"enlarging photographs to "_s << photos.name << Qt::endl;
        }
        const QImage image = Enlarged(sources[i % sources.size()],
                                      QSize(photos.width, photos.height), i >= sources.size());
        if (!image.save(path, "JPG", kQuality)) {
            return {};
        }
    }
    return paths;
}

QStringList ManyNames(const QStringList& files, int count, const QString& folder) {
    QStringList paths;
    if (files.isEmpty() || !QDir().mkpath(folder)) {
        return {};
    }
    for (int i = 0; i < count; ++i) {
        paths.append(QDir(folder).filePath(u"%1.jpg"_s.arg(i, 5, 10, QChar(u'0'))));
        if (QFile::exists(paths.back())) {
            continue;
        }
        QFile::remove(paths.back()); // leads nowhere, since the photos were moved
        const QString file = QFileInfo(files[i % files.size()]).absoluteFilePath();
        if (!QFile::link(file, paths.back())) {
            return {};
        }
    }
    return paths;
}

void AddPhotoOptions(QCommandLineParser& options) {
    options.addOption({u"photos"_s, u"Folder of the enlarged photographs; filled once."_s,
                       u"folder"_s, u"build/bench-photos"_s});
    options.addOption(
        {u"originals"_s, u"Folder of photographs."_s, u"folder"_s, u"/usr/share/backgrounds"_s});
}

QStringList PhonePhotos(const QCommandLineParser& options) {
    const PhotoClass& phone = PhotoClasses().front();
    QStringList photos =
        MakePhotos(phone, options.value(u"originals"_s),
                   QDir(options.value(u"photos"_s)).filePath(phone.name.split(u' ').front()));
    if (photos.isEmpty()) {
        QTextStream(stderr) << u"no photographs"_s << Qt::endl;
    }
    return photos;
}

} // namespace bench
