// The text of a web page while it is written.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QStringView>

class QIODevice;

namespace host {

/// Text of people for an element or an attribute in double quotes (HTML, 13.3): none of it is
/// markup. Signs that no text has are left out.
[[nodiscard]] QString WebEscaped(QStringView text);
/// The same, its lines broken by elements.
[[nodiscard]] QString WebLines(QStringView text);
/// "#RRGGBB".
[[nodiscard]] QString WebColor(const QColor& color);
/// A face's name in quotes of CSS; empty for one that holds more than letters, digits and blanks.
[[nodiscard]] QString WebFace(const QString& face);
/// With at most one digit behind the point, in the language of CSS.
[[nodiscard]] QString WebNumber(double number);

/// Writes UTF-8. Thread: one. After a fault of the device nothing more is written.
class WebText final {
public:
    explicit WebText(QIODevice& device) : m_device(device) {}

    /// As it is.
    void Add(const QString& markup);
    /// A file as data (RFC 2397, RFC 4648), a piece at a time. False: it can't be read.
    [[nodiscard]] bool AddFile(const QString& type, const QString& path);
    void AddBytes(const QString& type, const QByteArray& bytes);
    [[nodiscard]] bool HasFault() const { return m_hasFault; }

private:
    void Write(const QByteArray& bytes);

    QIODevice& m_device;
    bool m_hasFault = false;
};

} // namespace host
