// The pages of a report, one below the other.
#pragma once

#include "host/report/PrintPictures.h"
#include "host/report/ReportPages.h"

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include <optional>

namespace host {

/// Shows what is laid out, as large as its width allows or at a zoom; photographs come as they are
/// ready. The record of a long report is laid out after the first picture of the rest.
/// Thread: user interface. Owned by its parent widget.
class ReportPreview final : public QAbstractScrollArea {
    Q_OBJECT

public:
    /// What makes the photographs must outlive it, and tells it of each that is ready.
    ReportPreview(PrintPictures& pictures, QWidget* parent);

    /// The place in the report stays where it can.
    void SetSheet(ReportSheet sheet);
    void PictureReady();

    [[nodiscard]] int PageCount() const;
    /// The one in the middle of the sight, from 0 on.
    [[nodiscard]] int CurrentPage() const;
    void GoTo(int page);
    /// 1: as large as on paper; nothing: as wide as there is room.
    void SetZoom(std::optional<double> zoom);
    [[nodiscard]] double Zoom() const;
    /// All pages are known, the record's too.
    [[nodiscard]] bool IsWhole() const { return m_isWhole; }
    /// No photograph in sight is still to come.
    [[nodiscard]] bool IsPainted() const;
    [[nodiscard]] const ReportPages& Pages() const { return m_pages; }

signals:
    void Moved();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// A page painted, and whether a photograph of it is still to come.
    struct Shot {
        QPixmap pixmap;
        bool isComplete = false;
    };
    void LayOut(bool withRecord);
    void UpdateBars();
    [[nodiscard]] QSizeF PageSize() const;
    [[nodiscard]] QRectF PlaceOf(int page) const;
    [[nodiscard]] const Shot& ShotOf(int page);

    PrintPictures& m_pictures;
    ReportSheet m_sheet;
    ReportPages m_pages;
    bool m_isWhole = false;
    std::optional<double> m_zoom;
    QCache<int, Shot> m_shots;
};

} // namespace host
