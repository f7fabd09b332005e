#include "tests/sheets/BookReader.h"

#include "tests/support/OtherProgram.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace sheettest {

using namespace Qt::StringLiterals;

namespace {

QMap<QString, QByteArray> Unpacked(const QString& path) {
    const QTemporaryDir folder;
    (void)support::OutputOf(u"python3"_s, {u"-m"_s, u"zipfile"_s, u"-e"_s, path, folder.path()});
    QMap<QString, QByteArray> parts;
    QDirIterator files(folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        parts[QDir(folder.path()).relativeFilePath(file.fileName())] = file.readAll();
    }
    return parts;
}

/// Of "AB12": 27.
size_t ColumnOf(QStringView place) {
    size_t column = 0;
    for (const QChar letter : place) {
        if (letter.isLetter()) {
            column = column * 26 + size_t(letter.unicode() - u'A') + 1;
        }
    }
    return column - 1;
}

void ReadCell(QXmlStreamReader& xml, std::vector<BookCell>& row) {
    const QXmlStreamAttributes attributes = xml.attributes();
    const size_t column = ColumnOf(attributes.value("r"_L1));
    row.resize(std::max(row.size(), column + 1));
    BookCell& cell = row[column];
    cell.type = attributes.value("t"_L1).toString();
    cell.style = attributes.value("s"_L1).toInt();
    while (!(xml.isEndElement() && xml.name() == "c"_L1) && !xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && (xml.name() == "t"_L1 || xml.name() == "v"_L1)) {
            cell.text = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == "f"_L1) {
            cell.hasFormula = true;
        }
    }
}

BookSheet ReadSheet(const QByteArray& part) {
    BookSheet sheet;
    QXmlStreamReader xml(part);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QString name = xml.name().toString();
        if (!sheet.elements.contains(name)) {
            sheet.elements << name;
        }
        if (name == u"row"_s) {
            const size_t number = xml.attributes().value("r"_L1).toULong();
            sheet.rows.resize(std::max(sheet.rows.size(), number));
        } else if (name == u"c"_s) {
            ReadCell(xml, sheet.rows.back());
        } else if (name == u"pane"_s) {
            sheet.pane = xml.attributes().value("topLeftCell"_L1).toString();
        } else if (name == u"autoFilter"_s) {
            sheet.filter = xml.attributes().value("ref"_L1).toString();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return sheet;
}

void ReadStyles(const QByteArray& part, Book& book) {
    QMap<int, QString> forms;
    QList<bool> boldFonts;
    QString inside;
    QXmlStreamReader xml(part);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QXmlStreamAttributes attributes = xml.attributes();
        if (xml.name() == "numFmt"_L1) {
            forms[attributes.value("numFmtId"_L1).toInt()] =
                attributes.value("formatCode"_L1).toString();
        } else if (xml.name() == "fonts"_L1 || xml.name() == "cellXfs"_L1 ||
                   xml.name() == "cellStyleXfs"_L1) {
            inside = xml.name().toString();
        } else if (xml.name() == "font"_L1) {
            boldFonts << false;
        } else if (xml.name() == "b"_L1 && inside == u"fonts"_s) {
            boldFonts.back() = true;
        } else if (xml.name() == "xf"_L1 && inside == u"cellXfs"_s) {
            book.numberForms << forms.value(attributes.value("numFmtId"_L1).toInt());
            book.bold << boldFonts.value(attributes.value("fontId"_L1).toInt());
            book.wraps << false;
        } else if (xml.name() == "alignment"_L1 && inside == u"cellXfs"_s) {
            book.wraps.back() = attributes.value("wrapText"_L1) == "1"_L1;
        }
    }
    EXPECT_FALSE(xml.hasError());
}

} // namespace

Book ReadBook(const QString& path) {
    Book book;
    book.parts = Unpacked(path);
    QXmlStreamReader xml(book.parts[u"xl/workbook.xml"_s]);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == "sheet"_L1) {
            const QString part = u"xl/worksheets/sheet%1.xml"_s.arg(book.sheets.size() + 1);
            EXPECT_TRUE(book.parts.contains(part)) << part.toStdString();
            book.sheets.push_back(ReadSheet(book.parts[part]));
            book.sheets.back().name = xml.attributes().value("name"_L1).toString();
        }
    }
    EXPECT_FALSE(xml.hasError());
    ReadStyles(book.parts[u"xl/styles.xml"_s], book);
    return book;
}

} // namespace sheettest
