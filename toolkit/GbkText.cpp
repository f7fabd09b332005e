#include "toolkit/GbkText.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>

namespace toolkit {

namespace {

// Letters and digits of the first half are the same bytes; positions and ids have nothing else, and
// there are very many of them.
constexpr unsigned char kFirstOther = 0x80;

bool IsPlain(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar character) { return character.unicode() < kFirstOther; });
}

bool IsPlain(const std::string& bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < kFirstOther; });
}

} // namespace

bool IsGbkAvailable() {
    return QStringEncoder("GBK").isValid();
}

std::string ToGbk(const QString& text) {
    if (IsPlain(text)) {
        return text.toStdString();
    }
    QStringEncoder encoder("GBK");
    const QByteArray bytes = encoder.encode(text);
    return bytes.toStdString();
}

QString FromGbk(const std::string& bytes) {
    if (IsPlain(bytes)) {
        return QString::fromLatin1(bytes.data(), qsizetype(bytes.size()));
    }
    QStringDecoder decoder("GBK");
    return decoder.decode(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
}

} // namespace toolkit
