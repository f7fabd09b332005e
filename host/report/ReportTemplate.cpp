#include "host/report/ReportTemplate.h"

#include "toolkit/media/PictureFile.h"

#include <QBuffer>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString Line(const QJsonValue& value) {
    return value.toString().left(kMostTemplateText);
}

} // namespace

QImage LogoOf(const QString& path) {
    const QSize own = QFileInfo(path).isFile() ? toolkit::ReadPictureSize(path) : QSize();
    if (own.isEmpty()) {
        return {};
    }
    QSize size = own;
    if (std::max(own.width(), own.height()) > kMostLogoSide) {
        size =
            own.scaled(kMostLogoSide, kMostLogoSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    }
    return toolkit::DecodePicture({path, {}, size, Qt::white});
}

QString ToSetting(const ReportTemplate& dress) {
    QJsonObject object{
        {"title"_L1, dress.title}, {"header"_L1, dress.header}, {"footer"_L1, dress.footer}};
    if (!dress.logo.isNull()) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        dress.logo.save(&buffer, "PNG");
        object["logo"_L1] = QString::fromLatin1(bytes.toBase64());
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

ReportTemplate ReportTemplateOf(const QString& setting) {
    const QJsonObject object = QJsonDocument::fromJson(setting.toUtf8()).object();
    ReportTemplate dress;
    dress.title = Line(object["title"_L1]);
    dress.header = Line(object["header"_L1]);
    dress.footer = Line(object["footer"_L1]);
    const QByteArray logo = QByteArray::fromBase64(object["logo"_L1].toString().toLatin1());
    QImage image = QImage::fromData(logo, "PNG");
    if (std::max(image.width(), image.height()) <= kMostLogoSide) {
        dress.logo = image.convertToFormat(QImage::Format_RGB32);
    }
    return dress;
}

} // namespace host
