// A Word document, read back.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace reporttest {

/// Thread: one.
class WordFile final {
public:
    explicit WordFile(const QString& path);

    /// A package of parts, each of which can be read.
    [[nodiscard]] bool IsWhole() const { return m_isWhole; }
    [[nodiscard]] QByteArray Part(const QString& name) const { return m_parts.value(name).bytes; }
    [[nodiscard]] bool IsPacked(const QString& name) const { return m_parts.value(name).isPacked; }
    [[nodiscard]] QStringList Names() const { return m_parts.keys(); }
    /// Parts in the folder of pictures.
    [[nodiscard]] QStringList Pictures() const;
    [[nodiscard]] QByteArray Text() const { return Part(QStringLiteral("word/document.xml")); }

private:
    struct Stored {
        QByteArray bytes;
        bool isPacked = false;
    };
    QMap<QString, Stored> m_parts;
    bool m_isWhole = false;
};

/// What of XML isn't as the schema of Word wants it, or can't be read: one line each.
[[nodiscard]] QStringList FaultsOfXml(const QByteArray& xml);
/// Text of each paragraph, broken lines as line feeds; without codes of fields.
[[nodiscard]] QStringList ParagraphsOf(const QByteArray& xml);
/// Values of an attribute of all elements of a name, in their order.
[[nodiscard]] QStringList ValuesOf(const QByteArray& xml, const QString& element,
                                   const QString& attribute);
[[nodiscard]] int CountOf(const QByteArray& xml, const QString& element);

} // namespace reporttest
