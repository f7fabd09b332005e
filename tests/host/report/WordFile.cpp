#include "tests/host/report/WordFile.h"

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <vector>
#include <zip.h>

namespace reporttest {

using namespace Qt::StringLiterals;

namespace {

/// Children in their order (ISO/IEC 29500-1, annex A): only those that a document of ours has.
const QMap<QString, QString>& SchemaOrder() {
    static const QMap<QString, QString> order{
        {u"rPr"_s,
         u"rStyle rFonts b bCs i iCs caps smallCaps strike dstrike outline shadow emboss imprint "
         "noProof snapToGrid vanish webHidden color spacing w kern position sz szCs highlight u "
         "effect bdr shd fitText vertAlign rtl cs em lang"_s},
        {u"pPr"_s, u"pStyle keepNext keepLines pageBreakBefore framePr widowControl numPr "
                   "suppressLineNumbers pBdr shd tabs suppressAutoHyphens kinsoku wordWrap bidi "
                   "adjustRightInd snapToGrid spacing ind contextualSpacing mirrorIndents jc "
                   "textDirection textAlignment outlineLvl rPr sectPr"_s},
        {u"tblPr"_s, u"tblStyle tblpPr tblOverlap bidiVisual tblStyleRowBandSize "
                     "tblStyleColBandSize tblW jc tblCellSpacing tblInd tblBorders shd tblLayout "
                     "tblCellMar tblLook"_s},
        {u"tcPr"_s, u"cnfStyle tcW gridSpan hMerge vMerge tcBorders shd noWrap tcMar "
                    "textDirection tcFitText vAlign hideMark"_s},
        {u"sectPr"_s, u"headerReference footerReference footnotePr endnotePr type pgSz pgMar "
                      "paperSrc pgBorders lnNumType pgNumType cols titlePg docGrid"_s},
        {u"pBdr"_s, u"top left bottom right between bar"_s},
        {u"tblBorders"_s, u"top left bottom right insideH insideV"_s},
        {u"tblCellMar"_s, u"top left bottom right"_s},
        {u"numPr"_s, u"ilvl numId"_s},
        {u"lvl"_s, u"start numFmt lvlRestart pStyle suff lvlText lvlJc pPr rPr"_s},
        {u"numbering"_s, u"abstractNum num"_s},
        {u"style"_s, u"name aliases basedOn next link uiPriority semiHidden unhideWhenUsed "
                     "qFormat pPr rPr tblPr"_s},
        {u"tbl"_s, u"tblPr tblGrid tr"_s},
        {u"tr"_s, u"trPr tc"_s},
        {u"trPr"_s, u"cantSplit trHeight tblHeader"_s},
        {u"sdt"_s, u"sdtPr sdtContent"_s},
        {u"inline"_s, u"extent effectExtent docPr cNvGraphicFramePr graphic"_s},
        {u"spPr"_s, u"xfrm prstGeom ln"_s},
        {u"settings"_s, u"zoom defaultTabStop characterSpacingControl compat themeFontLang"_s},
    };
    return order;
}

/// Checks the elements of one document as they come.
class OrderCheck final {
public:
    QStringList faults;

    void Begin(const QString& name) {
        if (!m_open.empty()) {
            Check(m_open.back(), name);
            m_open.back().last = name;
        }
        m_open.push_back({name, {}, -1});
    }
    void End() {
        const Open& open = m_open.back();
        const bool isBox = open.name == u"tc"_s || open.name == u"body"_s;
        const QString wanted = open.name == u"tc"_s ? u"p"_s : u"sectPr"_s;
        if (isBox && open.last != wanted) {
            faults << open.name + u" ends with "_s + open.last;
        }
        m_open.pop_back();
    }

private:
    struct Open {
        QString name;
        QString last;
        qsizetype place;
    };

    void Check(Open& parent, const QString& child) {
        const auto order = SchemaOrder().find(parent.name);
        if (order == SchemaOrder().end()) {
            return;
        }
        const qsizetype place = order->split(u' ').indexOf(child);
        if (place < 0 || place < parent.place) {
            faults << child + u" in "_s + parent.name;
        }
        parent.place = std::max(parent.place, place);
        if (parent.name == u"body"_s && parent.last == u"tbl"_s && child == u"tbl"_s) {
            faults << u"two tables in a row"_s;
        }
    }

    std::vector<Open> m_open;
};

} // namespace

WordFile::WordFile(const QString& path) {
    int fault = 0;
    zip_t* archive =
        zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY | ZIP_CHECKCONS, &fault);
    if (archive == nullptr) {
        return;
    }
    m_isWhole = true;
    for (zip_int64_t place = 0; place < zip_get_num_entries(archive, 0); ++place) {
        zip_stat_t known;
        zip_stat_index(archive, zip_uint64_t(place), 0, &known);
        QByteArray bytes(qsizetype(known.size), '\0');
        zip_file_t* file = zip_fopen_index(archive, zip_uint64_t(place), 0);
        m_isWhole = m_isWhole && file != nullptr &&
                    zip_fread(file, bytes.data(), known.size) == zip_int64_t(known.size);
        if (file != nullptr) {
            zip_fclose(file);
        }
        m_parts[QString::fromUtf8(known.name)] = {bytes, known.comp_method != ZIP_CM_STORE};
    }
    zip_discard(archive);
}

QStringList WordFile::Pictures() const {
    return Names().filter(u"word/media/"_s);
}

QStringList FaultsOfXml(const QByteArray& xml) {
    QXmlStreamReader reader(xml);
    OrderCheck check;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            check.Begin(reader.name().toString());
        } else if (token == QXmlStreamReader::EndElement) {
            check.End();
        }
    }
    if (reader.hasError()) {
        check.faults << reader.errorString();
    }
    return check.faults;
}

QStringList ParagraphsOf(const QByteArray& xml) {
    QXmlStreamReader reader(xml);
    QStringList paragraphs;
    std::vector<QString> open;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        const auto name = reader.qualifiedName();
        if (token == QXmlStreamReader::StartElement) {
            if (name == u"w:p") {
                open.emplace_back();
            } else if (name == u"w:t") {
                open.back() += reader.readElementText();
            } else if (name == u"w:br") {
                open.back() += u'\n';
            } else if (name == u"w:tab" && !open.empty() && !reader.attributes().size()) {
                open.back() += u'\t';
            }
        } else if (token == QXmlStreamReader::EndElement && name == u"w:p") {
            paragraphs << open.back();
            open.pop_back();
        }
    }
    return paragraphs;
}

QStringList ValuesOf(const QByteArray& xml, const QString& element, const QString& attribute) {
    QXmlStreamReader reader(xml);
    QStringList values;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement &&
            reader.qualifiedName() == element) {
            values << reader.attributes().value(attribute).toString();
        }
    }
    return values;
}

int CountOf(const QByteArray& xml, const QString& element) {
    return int(ValuesOf(xml, element, {}).size());
}

} // namespace reporttest
