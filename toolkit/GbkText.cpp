#include "toolkit/GbkText.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace toolkit {

bool IsGbkAvailable() {
    return QStringEncoder("GBK").isValid();
}

std::string ToGbk(const QString& text) {
    QStringEncoder encoder("GBK");
    const QByteArray bytes = encoder.encode(text);
    return bytes.toStdString();
}

QString FromGbk(const std::string& bytes) {
    QStringDecoder decoder("GBK");
    return decoder.decode(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
}

} // namespace toolkit
