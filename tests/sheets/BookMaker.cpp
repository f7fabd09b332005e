#include "tests/sheets/BookMaker.h"

#include <gtest/gtest.h>

#include <array>
#include <zip.h>

namespace sheettest {

using namespace Qt::StringLiterals;

namespace {

const QByteArray kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
const QByteArray kMain = "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
const QByteArray kLinks =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships"; // also a type's root

QByteArray Relation(const QByteArray& id, const QByteArray& type, const QByteArray& target) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + kLinks + '/' + type + "\" Target=\"" +
           target + "\"/>";
}

QByteArray Relations(const QByteArray& all) {
    return kHead +
           "<Relationships "
           "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">" +
           all + "</Relationships>";
}

QByteArray Styles() {
    return kHead + "<styleSheet " + kMain +
           "><numFmts count=\"2\"><numFmt numFmtId=\"164\" formatCode=\"0&quot;层&quot;\"/>"
           "<numFmt numFmtId=\"165\" formatCode=\"yyyy\\-mm\"/></numFmts>"
           "<cellStyleXfs count=\"1\"><xf numFmtId=\"9\"/></cellStyleXfs>"
           "<cellXfs count=\"6\"><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/><xf numFmtId=\"49\"/>"
           "<xf numFmtId=\"164\"/><xf numFmtId=\"2\"/><xf numFmtId=\"165\"/></cellXfs>"
           "</styleSheet>";
}

} // namespace

QByteArray Zipped(const QMap<QString, QByteArray>& parts) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const target = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_source_keep(target);
    zip_t* const archive = zip_open_from_source(target, ZIP_TRUNCATE, &error);
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        zip_source_t* const bytes = zip_source_buffer(archive, part.value().constData(),
                                                      zip_uint64_t(part.value().size()), 0);
        EXPECT_GE(zip_file_add(archive, part.key().toUtf8().constData(), bytes, ZIP_FL_ENC_UTF_8),
                  0);
    }
    EXPECT_EQ(zip_close(archive), 0);
    QByteArray zipped;
    zip_source_open(target);
    std::array<char, 4096> block{};
    for (zip_int64_t got = 1; got > 0;) {
        got = zip_source_read(target, block.data(), block.size());
        zipped.append(block.data(), std::max<zip_int64_t>(got, 0));
    }
    zip_source_close(target);
    zip_source_free(target);
    zip_error_fini(&error);
    return zipped;
}

QMap<QString, QByteArray> BookPartsOf(const std::vector<SheetXml>& sheets) {
    QMap<QString, QByteArray> parts;
    QByteArray list;
    QByteArray links = Relation("s1", "sharedStrings", "sharedStrings.xml") +
                       Relation("s2", "styles", "/xl/styles.xml");
    for (size_t i = 0; i < sheets.size(); ++i) {
        const QByteArray number = QByteArray::number(qulonglong(i) + 1);
        list += "<sheet name=\"" + sheets[i].first.toUtf8() + "\" sheetId=\"" + number +
                "\" r:id=\"rId" + number + "\"/>";
        links += Relation("rId" + number, "worksheet", "worksheets/sheet" + number + ".xml");
        parts[u"xl/worksheets/sheet%1.xml"_s.arg(i + 1)] =
            kHead + "<worksheet " + kMain + "><sheetData>" + sheets[i].second +
            "</sheetData><extLst><ext><c r=\"A1\"><v>7</v></c></ext></extLst></worksheet>";
    }
    parts[u"_rels/.rels"_s] = Relations(Relation("rId1", "officeDocument", "xl/workbook.xml"));
    parts[u"xl/workbook.xml"_s] = kHead + "<workbook " + kMain + " xmlns:r=\"" + kLinks +
                                  "\"><sheets>" + list + "</sheets></workbook>";
    parts[u"xl/_rels/workbook.xml.rels"_s] = Relations(links);
    parts[u"xl/sharedStrings.xml"_s] =
        kHead + "<sst " + kMain +
        "><si><t>一</t></si><si><r><t>二</t></r><r><rPr><b/></rPr><t>三</t></r>"
        "<rPh sb=\"0\" eb=\"1\"><t>er</t></rPh></si></sst>";
    parts[u"xl/styles.xml"_s] = Styles();
    return parts;
}

QByteArray BookOf(const std::vector<SheetXml>& sheets) {
    return Zipped(BookPartsOf(sheets));
}

} // namespace sheettest
