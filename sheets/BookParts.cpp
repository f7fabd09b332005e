#include "sheets/BookParts.h"

#include "sheets/ZipArchive.h"

#include <QDir>
#include <QHash>
#include <QXmlStreamReader>

#include <functional>

namespace sheets {

using namespace Qt::StringLiterals;

namespace {

struct BookRelation {
    QString type; ///< its last word
    QString target;
};
using BookRelations = QHash<QString, BookRelation>;

/// Hands on all tokens of a part. False: it isn't well-formed, or has definitions of its own, by
/// which little becomes much.
bool WalkXml(QIODevice& part, const std::function<void(QXmlStreamReader&)>& take) {
    QXmlStreamReader xml(&part);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::DTD) {
            return false;
        }
        take(xml);
    }
    return !xml.hasError();
}

/// Paths of an archive begin without a separator.
QString PathBeside(const QString& path, const QString& target) {
    const QString folder = path.section(u'/', 0, -2);
    const QString full = target.startsWith(u'/') ? target : folder + u'/' + target;
    const QString clean = QDir::cleanPath(full);
    return clean.startsWith(u'/') ? clean.mid(1) : clean;
}

BookRelations RelationsOf(ZipArchive& archive, const QString& path) {
    const QString folder = path.contains(u'/') ? path.section(u'/', 0, -2) + u'/' : QString();
    const auto part = archive.Part(folder + u"_rels/"_s + path.section(u'/', -1) + u".rels"_s);
    BookRelations relations;
    if (part != nullptr) {
        WalkXml(*part, [&](QXmlStreamReader& xml) {
            if (xml.isStartElement() && xml.name() == "Relationship"_L1) {
                const QXmlStreamAttributes attributes = xml.attributes();
                relations[attributes.value("Id"_L1).toString()] = {
                    attributes.value("Type"_L1).toString().section(u'/', -1),
                    PathBeside(path, attributes.value("Target"_L1).toString())};
            }
        });
    }
    return relations;
}

QString TargetOf(const BookRelations& relations, QStringView type) {
    for (const BookRelation& relation : relations) {
        if (relation.type == type) {
            return relation.target;
        }
    }
    return {};
}

/// The one attribute whose prefix a workbook may choose.
QString RelationIdOf(const QXmlStreamAttributes& attributes) {
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (attribute.name() == "id"_L1 && !attribute.namespaceUri().isEmpty()) {
            return attribute.value().toString();
        }
    }
    return {};
}

bool ReadSheetList(QIODevice& part, const BookRelations& relations, int most, BookParts& parts) {
    return WalkXml(part, [&](QXmlStreamReader& xml) {
        if (!xml.isStartElement() || xml.name() != "sheet"_L1 || int(parts.sheets.size()) > most) {
            return;
        }
        const QXmlStreamAttributes attributes = xml.attributes();
        const BookRelation relation = relations.value(RelationIdOf(attributes));
        const bool isHidden =
            attributes.hasAttribute("state"_L1) && attributes.value("state"_L1) != "visible"_L1;
        if (relation.type == "worksheet"_L1 && !isHidden) {
            parts.sheets.push_back({attributes.value("name"_L1).toString(), relation.target});
        }
    });
}

/// Of a string in pieces the pieces, without how it is spoken.
bool ReadStrings(QIODevice& part, std::vector<QString>& strings) {
    bool isText = false;
    bool isSpoken = false;
    QString text;
    return WalkXml(part, [&](QXmlStreamReader& xml) {
        if (xml.isCharacters() && isText) {
            text += xml.text();
        } else if (xml.isStartElement() || xml.isEndElement()) {
            if (xml.name() == "t"_L1) {
                isText = xml.isStartElement() && !isSpoken;
            } else if (xml.name() == "rPh"_L1) {
                isSpoken = xml.isStartElement();
            } else if (xml.name() == "si"_L1 && xml.isEndElement()) {
                strings.push_back(PlainString(text));
                text.clear();
            }
        }
    });
}

bool ReadForms(QIODevice& part, std::vector<NumberForm>& forms) {
    QHash<int, NumberForm> own;
    bool isInside = false;
    return WalkXml(part, [&](QXmlStreamReader& xml) {
        if (xml.name() == "cellXfs"_L1) {
            isInside = xml.isStartElement();
        } else if (xml.isStartElement() && xml.name() == "numFmt"_L1) {
            own[xml.attributes().value("numFmtId"_L1).toInt()] =
                NumberFormOf(xml.attributes().value("formatCode"_L1).toString());
        } else if (xml.isStartElement() && isInside && xml.name() == "xf"_L1) {
            const int number = xml.attributes().value("numFmtId"_L1).toInt();
            forms.push_back(own.contains(number) ? own[number] : NumberFormOf(number));
        }
    });
}

} // namespace

QString PlainString(const QString& text) {
    constexpr qsizetype kEscapeSize = 7;
    QString plain = text;
    for (qsizetype at = plain.indexOf(u"_x"_s); at >= 0; at = plain.indexOf(u"_x"_s, at + 1)) {
        bool isHex = false;
        const ushort unit = plain.mid(at + 2, 4).toUShort(&isHex, 16);
        if (isHex && at + kEscapeSize <= plain.size() && plain[at + 6] == u'_') {
            plain.replace(at, kEscapeSize, QChar(unit));
        }
    }
    return plain;
}

bool ReadBookParts(ZipArchive& archive, int mostSheets, BookParts& parts) {
    const QString book = TargetOf(RelationsOf(archive, {}), u"officeDocument");
    const BookRelations relations = RelationsOf(archive, book);
    const auto bookPart = archive.Part(book);
    if (bookPart == nullptr || !ReadSheetList(*bookPart, relations, mostSheets, parts)) {
        parts.isForeign = bookPart == nullptr;
        return false;
    }
    const QString strings = TargetOf(relations, u"sharedStrings");
    const QString styles = TargetOf(relations, u"styles");
    const auto stringsPart = archive.Part(strings);
    const auto stylesPart = archive.Part(styles);
    parts.isForeign = parts.sheets.empty();
    return !parts.isForeign &&
           (strings.isEmpty() || (stringsPart && ReadStrings(*stringsPart, parts.strings))) &&
           (styles.isEmpty() || (stylesPart && ReadForms(*stylesPart, parts.forms)));
}

} // namespace sheets
