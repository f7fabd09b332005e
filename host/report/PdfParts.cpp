#include "host/report/PdfParts.h"

#include <QFile>

#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <stdexcept>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kBlock = 256 * 1024;
constexpr double kPointsOfDot = 72 / kReportDpi;

/// To a file, each failure told: the library's own passes over the last one.
class FilePipe final : public Pipeline {
public:
    explicit FilePipe(QFile& target) : Pipeline("file", nullptr), m_target(target) {}

    void write(const unsigned char* data, size_t length) override {
        const auto bytes = static_cast<qint64>(length);
        if (m_target.write(reinterpret_cast<const char*>(data), bytes) != bytes) {
            throw std::runtime_error(m_target.errorString().toStdString());
        }
    }
    void finish() override {}

private:
    QFile& m_target;
};

void CopyPhoto(const QString& path, Pipeline& pipe, const ReportSteps& steps) {
    if (steps.stop.stop_requested()) {
        throw ReportFault({});
    }
    QFile photo(path);
    if (!photo.open(QIODevice::ReadOnly)) {
        throw std::runtime_error(photo.errorString().toStdString());
    }
    for (QByteArray block = photo.read(kBlock); !block.isEmpty(); block = photo.read(kBlock)) {
        pipe.write(reinterpret_cast<const unsigned char*>(block.constData()),
                   static_cast<size_t>(block.size()));
    }
    pipe.finish();
}

bool IsStandIn(QPDFObjectHandle& object, size_t photos) {
    if (!object.isStream()) {
        return false;
    }
    QPDFObjectHandle dict = object.getDict();
    return dict.getKey("/Subtype").isNameAndEquals("/Image") &&
           dict.getKey("/Height").isInteger() && dict.getKey("/Height").getIntValue() == 1 &&
           dict.getKey("/Width").getIntValue() >= 1 &&
           static_cast<size_t>(dict.getKey("/Width").getIntValue()) <= photos;
}

void PutPhotos(QPDF& pdf, const PdfParts& parts, const ReportSteps& steps) {
    for (QPDFObjectHandle object : pdf.getAllObjects()) {
        if (!IsStandIn(object, parts.photos.size())) {
            continue;
        }
        QPDFObjectHandle dict = object.getDict();
        const PrintPicture& photo =
            parts.photos[static_cast<size_t>(dict.getKey("/Width").getIntValue() - 1)];
        dict.replaceKey("/Width", QPDFObjectHandle::newInteger(photo.size.width()));
        dict.replaceKey("/Height", QPDFObjectHandle::newInteger(photo.size.height()));
        dict.replaceKey("/BitsPerComponent", QPDFObjectHandle::newInteger(8));
        dict.replaceKey("/ColorSpace", QPDFObjectHandle::newName("/DeviceRGB"));
        object.replaceStreamData(
            [path = photo.path, &steps](Pipeline* pipe) { CopyPhoto(path, *pipe, steps); },
            QPDFObjectHandle::newName("/DCTDecode"), QPDFObjectHandle::newNull());
    }
}

/// In UTF-16 with its mark, as PDF has texts.
QPDFObjectHandle TextObject(const QString& text) {
    return QPDFObjectHandle::newUnicodeString(text.toStdString());
}

QPDFObjectHandle PlaceOf(const PdfParts& parts, std::vector<QPDFPageObjectHelper>& pages,
                         const PageHeading& heading) {
    const double height = parts.pages.shape.page.height();
    QPDFObjectHandle place = QPDFObjectHandle::newArray();
    place.appendItem(pages[static_cast<size_t>(heading.page)].getObjectHandle());
    place.appendItem(QPDFObjectHandle::newName("/XYZ"));
    place.appendItem(QPDFObjectHandle::newNull());
    place.appendItem(QPDFObjectHandle::newReal((height - heading.top) * kPointsOfDot, 2));
    place.appendItem(QPDFObjectHandle::newNull());
    return place;
}

/// A bookmark in the making, with the last of those below it.
struct Bookmark {
    QPDFObjectHandle dict;
    int level = 0;
    QPDFObjectHandle last;
    int open = 0;
};

void Close(std::vector<Bookmark>& path) {
    Bookmark done = path.back();
    path.pop_back();
    if (done.last.isInitialized()) {
        done.dict.replaceKey("/Last", done.last);
        done.dict.replaceKey("/Count", QPDFObjectHandle::newInteger(done.open));
    }
    if (!path.empty()) {
        path.back().open += 1 + done.open;
    }
}

/// ISO 32000-1, 12.3.3.
void PutBookmarks(QPDF& pdf, const PdfParts& parts, std::vector<QPDFPageObjectHelper>& pages) {
    if (parts.pages.headings.empty()) {
        return;
    }
    QPDFObjectHandle root =
        pdf.makeIndirectObject(QPDFObjectHandle::parse("<< /Type /Outlines >>"));
    std::vector<Bookmark> path{{root, 0, {}, 0}};
    for (const PageHeading& heading : parts.pages.headings) {
        while (path.back().level >= heading.level) {
            Close(path);
        }
        QPDFObjectHandle dict = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
        dict.replaceKey("/Title", TextObject(heading.text));
        dict.replaceKey("/Dest", PlaceOf(parts, pages, heading));
        dict.replaceKey("/Parent", path.back().dict);
        if (path.back().last.isInitialized()) {
            dict.replaceKey("/Prev", path.back().last);
            path.back().last.replaceKey("/Next", dict);
        } else {
            path.back().dict.replaceKey("/First", dict);
        }
        path.back().last = dict;
        path.push_back({dict, heading.level, {}, 0});
    }
    while (!path.empty()) {
        Close(path);
    }
    pdf.getRoot().replaceKey("/Outlines", root);
    pdf.getRoot().replaceKey("/PageMode", QPDFObjectHandle::newName("/UseOutlines"));
}

/// ISO 32000-1, 12.5.6.5; printed, as PDF/A wants it of all that stands on a page.
void PutLinks(QPDF& pdf, const PdfParts& parts, std::vector<QPDFPageObjectHelper>& pages) {
    const double height = parts.pages.shape.page.height();
    for (const PageLink& link : parts.pages.links) {
        const QRectF& place = link.place;
        QPDFObjectHandle dict =
            QPDFObjectHandle::parse("<< /Type /Annot /Subtype /Link /Border [0 0 0] /F 4 >>");
        QPDFObjectHandle rect = QPDFObjectHandle::newArray();
        for (const double edge :
             {place.left(), height - place.bottom(), place.right(), height - place.top()}) {
            rect.appendItem(QPDFObjectHandle::newReal(edge * kPointsOfDot, 2));
        }
        dict.replaceKey("/Rect", rect);
        dict.replaceKey("/Dest", PlaceOf(parts, pages, parts.pages.headings[link.heading]));
        QPDFObjectHandle page = pages[static_cast<size_t>(link.page)].getObjectHandle();
        if (!page.hasKey("/Annots")) {
            page.replaceKey("/Annots", QPDFObjectHandle::newArray());
        }
        page.getKey("/Annots").appendItem(pdf.makeIndirectObject(dict));
    }
}

} // namespace

QImage StandIn(int index) {
    QImage image(index + 1, 1, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

void PutPartsIn(const QString& painted, const QString& whole, const PdfParts& parts,
                const ReportFile& file, const ReportSteps& steps) {
    QFile target(whole);
    if (!target.open(QIODevice::WriteOnly)) {
        throw file.WriteFault();
    }
    try {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processFile(QFile::encodeName(painted).constData());
        PutPhotos(pdf, parts, steps);
        auto pages = QPDFPageDocumentHelper(pdf).getAllPages();
        PutBookmarks(pdf, parts, pages);
        PutLinks(pdf, parts, pages);
        FilePipe pipe(target);
        QPDFWriter writer(pdf);
        writer.setOutputPipeline(&pipe);
        writer.setObjectStreamMode(qpdf_o_disable); // PDF/A-1 has none
        writer.setPreserveEncryption(false);
        writer.write();
    } catch (const ReportFault&) {
        throw;
    } catch (const std::exception&) {
        throw file.WriteFault();
    }
    if (!target.flush()) {
        throw file.WriteFault();
    }
}

} // namespace host
