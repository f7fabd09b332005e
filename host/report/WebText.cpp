#include "host/report/WebText.h"

#include "host/report/RecordTextSigns.h"

#include <QFile>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Three bytes become four signs, so that pieces of so many meet without padding.
constexpr qint64 kWebPiece = qint64(3) * 64 * 1024;

} // namespace

QString WebEscaped(QStringView text) {
    return WritableText(text).toHtmlEscaped().replace(u'\'', u"&#39;"_s);
}

QString WebLines(QStringView text) {
    return WebEscaped(text).replace(u'\n', u"<br>"_s);
}

QString WebColor(const QColor& color) {
    return color.name(QColor::HexRgb).toUpper();
}

QString WebFace(const QString& face) {
    const bool isPlain = std::all_of(face.begin(), face.end(), [](QChar sign) {
        return sign.isLetterOrNumber() || sign == u' ' || sign == u'-' || sign == u'_';
    });
    // In single quotes, since it stands in an attribute; escaped, since half a letter is one too.
    return isPlain && !face.isEmpty() ? u'\'' + WritableText(face) + u'\'' : QString();
}

QString WebNumber(double number) {
    return QString::number(qRound(number * 10) / 10.0);
}

void WebText::Write(const QByteArray& bytes) {
    m_hasFault = m_hasFault || m_device.write(bytes) != bytes.size();
}

void WebText::Add(const QString& markup) {
    Write(markup.toUtf8());
}

bool WebText::AddFile(const QString& type, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    Add(u"data:"_s + type + u";base64,"_s);
    while (!file.atEnd() && !m_hasFault) {
        const QByteArray piece = file.read(kWebPiece);
        if (piece.isEmpty()) {
            return false;
        }
        Write(piece.toBase64());
    }
    return true;
}

void WebText::AddBytes(const QString& type, const QByteArray& bytes) {
    Add(u"data:"_s + type + u";base64,"_s);
    Write(bytes.toBase64());
}

} // namespace host
