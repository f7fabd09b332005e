// Real photographs, enlarged to what phones and cameras deliver today.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class QCommandLineParser;

namespace bench {

/// Photographs of one size class.
struct PhotoClass {
    QString name; ///< as it stands in the results: "12 MP"
    int width = 0;
    int height = 0;
};

[[nodiscard]] const std::vector<PhotoClass>& PhotoClasses();

/// 30 baseline JPEG files of a class in `folder`, made from the photographs in `originals` (a
/// folder of JPEG files, searched without its subfolders) where they aren't there yet: cropped to
/// the proportions of the class, enlarged, every second one mirrored. Paths by name; empty if there
/// are no photographs or the folder can't be written.
[[nodiscard]] QStringList MakePhotos(const PhotoClass& photos, const QString& originals,
                                     const QString& folder);

/// `count` names in `folder` for the given files, in turn: links, so that they cost no room.
[[nodiscard]] QStringList ManyNames(const QStringList& files, int count, const QString& folder);

/// The options --photos and --originals, and the photographs of phones that they lead to; what is
/// missing is said.
void AddPhotoOptions(QCommandLineParser& options);
[[nodiscard]] QStringList PhonePhotos(const QCommandLineParser& options);

} // namespace bench
