// A real data folder with a little of everything.
#pragma once

#include <QByteArray>
#include <QRgb>
#include <QString>

#include <vector>

namespace roads {

/// What the folder holds.
struct SmallSite {
    qint32 firstProject = 0;
    qint32 secondProject = 0;
    std::vector<qint32> photos; ///< of the first project, at positionKey
    QString positionKey;        ///< floor "-1", axes 2 and B
};

/// Two projects "一期工程" and "二期工程" with a workset "总包"; users "张伟" with all rights and
/// "李娜" with none; five photos, one drawing with a photo, two issues. The folder is closed again.
[[nodiscard]] SmallSite MakeSmallSite(const QString& folder);

/// Bytes of a JPEG of this colour, different for each colour.
[[nodiscard]] QByteArray JpegBytes(QRgb color);

} // namespace roads
