#include "host/ui/photo/PhotoInfo.h"

#include "toolkit/KXTools.h"

#include <QStringList>

#include <array>
#include <cmath>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString DegreesText(double degrees, QChar above, QChar below) {
    constexpr int kDigits = 6; // a tenth of a metre
    return QString::number(std::abs(degrees), 'f', kDigits) + u'°' + (degrees < 0 ? below : above);
}

} // namespace

QString PlaceText(double latitude, double longitude) {
    return DegreesText(latitude, u'N', u'S') + u", "_s + DegreesText(longitude, u'E', u'W');
}

QString DirectionText(double degrees) {
    static const std::array winds{u"北"_s, u"东北"_s, u"东"_s, u"东南"_s,
                                  u"南"_s, u"西南"_s, u"西"_s, u"西北"_s};
    const auto nearest = static_cast<size_t>(std::lround(degrees / 45.0)) % winds.size();
    return QString::number(degrees, 'f', 1) + u"° "_s + winds[nearest];
}

PhotoInfo InfoOf(const PhotoTale& tale, const QSize& size) {
    const auto orNone = [](const QString& text) { return text.isEmpty() ? u"未记录"_s : text; };
    PhotoInfo info;
    info.title = tale.name;
    info.originalName = tale.originalName;
    info.rows = {
        {u"拍摄时间"_s, orNone(tale.taken ? KXTools::SecondText(*tale.taken) : QString())},
        {u"上传时间"_s, KXTools::SecondText(tale.filed)},
        {u"上传人"_s, tale.uploader},
        {u"相机"_s, orNone(tale.camera)},
        {u"拍摄位置"_s,
         orNone(tale.latitude && tale.longitude ? PlaceText(*tale.latitude, *tale.longitude)
                                                : QString())},
        {u"拍摄方向"_s, orNone(tale.direction ? DirectionText(*tale.direction) : QString())},
        {u"像素"_s, size.isEmpty() ? u"…"_s : u"%1 × %2"_s.arg(size.width()).arg(size.height())},
        {u"原始文件"_s, tale.originalName.isEmpty() ? u"即此照片"_s : tale.originalName},
    };
    return info;
}

QString TipOf(const PhotoTale& tale) {
    QStringList parts;
    if (tale.taken) {
        parts << u"拍摄 %1"_s.arg(KXTools::SecondText(*tale.taken));
    }
    if (!tale.camera.isEmpty()) {
        parts << tale.camera;
    }
    if (tale.latitude && tale.longitude) {
        parts << PlaceText(*tale.latitude, *tale.longitude);
    }
    if (tale.direction) {
        parts << u"朝向 %1"_s.arg(DirectionText(*tale.direction));
    }
    return parts.join(u"  "_s);
}

} // namespace host
