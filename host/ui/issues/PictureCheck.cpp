#include "host/ui/issues/PictureCheck.h"

#include "toolkit/media/PictureFile.h"

#include <QFileInfo>

namespace host {

using namespace Qt::StringLiterals;

QString PictureLack(const QString& path) {
    const QFileInfo file(path);
    const QString name = u"“%1”"_s.arg(file.fileName());
    if (!file.exists()) {
        return name + u"已不存在"_s;
    }
    if (!file.isFile()) {
        return name + u"不是文件"_s;
    }
    if (file.size() == 0) {
        return name + u"是空文件（0 字节）"_s;
    }
    if (file.size() >= kMostPictureBytes) {
        return name + u"超过 2 GB"_s;
    }
    if (!file.isReadable()) {
        return name + u"没有读取权限"_s;
    }
    return toolkit::ReadPictureSize(path).isEmpty() ? name + u"不是能读取的图片"_s : QString();
}

} // namespace host
