#include "host/report/PdfReport.h"

#include "host/report/PagePaint.h"
#include "host/report/PdfParts.h"

#include <QFile>
#include <QPainter>
#include <QPdfWriter>

#include <map>
#include <optional>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPdfDpi = 1200;

/// Paints stand-ins and remembers what for.
class PdfInk final : public IPageInk {
public:
    PdfInk(PrintPictures& source, const ReportSteps& reportSteps, int stepCount)
        : m_pictures(source), m_steps(reportSteps), m_stepCount(stepCount) {}

    /// Nothing is thrown through what paints; Check tells of it afterwards.
    void DrawPhoto(QPainter& painter, const PhotoPlace& place, const QString& file,
                   const QString& lack) override {
        if (file.isEmpty()) {
            DrawLack(painter, place.room, lack);
        } else if (!m_fault) {
            try {
                Step();
                Draw(painter, place, m_pictures.Wait(file, place.room.size(), m_steps.stop));
            } catch (const ReportFault& fault) {
                m_fault = fault;
            }
        }
    }

    /// One of a single line would be taken for a stand-in.
    void DrawImage(QPainter& painter, const QRectF& place, const QImage& image) override {
        painter.drawImage(place, image.height() == 1 ? image.scaled(image.width(), 2) : image);
    }

    void Step() { m_steps.Next(m_done++, m_stepCount); }
    void Check() const {
        if (m_fault) {
            throw ReportFault(*m_fault);
        }
    }
    [[nodiscard]] const std::vector<PrintPicture>& Photos() const { return m_photos; }

private:
    void Draw(QPainter& painter, const PhotoPlace& place, const PrintPicture& photo) {
        if (!photo.IsThere()) {
            DrawLack(painter, place.room, {});
            return;
        }
        auto known = m_standIns.find(photo.path);
        if (known == m_standIns.end()) {
            const int index = static_cast<int>(m_photos.size());
            known = m_standIns.emplace(photo.path, StandIn(index)).first;
            m_photos.push_back(photo);
        }
        painter.drawImage(PlaceIn(place, photo.size), known->second);
    }

    PrintPictures& m_pictures;
    const ReportSteps& m_steps;
    const int m_stepCount;
    int m_done = 0;
    std::optional<ReportFault> m_fault;   ///< the first
    std::map<QString, QImage> m_standIns; ///< by the path of the photograph
    std::vector<PrintPicture> m_photos;
};

void PaintPages(const ReportSheet& sheet, const ReportPages& pages, QFile& target, PdfInk& ink) {
    QPdfWriter writer(&target);
    writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
    writer.setResolution(kPdfDpi);
    writer.setPageLayout(PageLayoutOf(sheet.options));
    writer.setTitle(sheet.title);
    writer.setCreator(u"KXVeskPicture"_s);
    QPainter painter(&writer);
    const int count = static_cast<int>(pages.pages.size());
    for (int page = 0; page < count; ++page) {
        if (page > 0) {
            writer.newPage();
        }
        ink.Step();
        painter.save();
        painter.scale(kPdfDpi / kReportDpi, kPdfDpi / kReportDpi);
        PaintPage(painter, pages, page, count, ink);
        painter.restore();
        ink.Check();
    }
}

} // namespace

void WritePdf(const ReportSheet& sheet, PrintPictures& pictures, ReportFile& file,
              const ReportSteps& steps) {
    const ReportPages pages = LayoutReport(sheet, true);
    const std::vector<PagePhoto> photos = PhotosOf(pages);
    for (const PagePhoto& photo : photos) {
        pictures.Prepare(photo.file, photo.room);
    }
    const int stepCount = static_cast<int>(pages.pages.size() + photos.size());
    PdfInk ink(pictures, steps, stepCount);
    {
        QFile target(file.WorkPath());
        if (!target.open(QIODevice::WriteOnly)) {
            throw file.WriteFault();
        }
        PaintPages(sheet, pages, target, ink);
        // Qt's writer tells nobody that a disk is full.
        if (!target.flush() || target.error() != QFile::NoError) {
            throw file.WriteFault();
        }
    }
    steps.Next(stepCount, stepCount);
    PutPartsIn(file.WorkPath(), file.SecondPath(), {ink.Photos(), pages}, file, steps);
    steps.Next(stepCount, stepCount);
    file.Commit(file.SecondPath());
}

} // namespace host
