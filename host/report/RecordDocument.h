// A rich text laid out for the pages of a report.
#pragma once

#include "host/report/PageInk.h"
#include "host/report/ReportBlocks.h"

#include <QHash>
#include <QObject>
#include <QTextDocument>
#include <QTextObjectInterface>

namespace host {

/// Takes what the document form allows of the HTML, and pictures from the record's folder alone.
/// One that is wider than the page is made smaller as a whole. Thread: the one that made it, or one
/// to which it was moved.
class RecordDocument final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// @param room  of the text on each page, 1/96 inch. @param taken  of the first of them, above.
    RecordDocument(const RecordBlock& block, const QSizeF& room, double taken);

    [[nodiscard]] int PageCount() const;
    /// Within `room`, whose upper left corner is the painter's origin.
    void Paint(QPainter& painter, int page, IPageInk& ink);

    [[nodiscard]] QString PlainText() const { return m_text.toPlainText(); }

    struct Picture {
        QString file;
        QSizeF size; ///< on the page
    };
    /// In the order of the text, those alone that are there.
    [[nodiscard]] std::vector<Picture> Pictures() const;

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    /// Empty for what is no picture of the folder.
    [[nodiscard]] QString FileOf(const QTextFormat& format) const;
    void ShrinkToFit();
    void LeaveRoom(double height);
    [[nodiscard]] QSizeF OwnSize(const QString& file);

    const QString m_folder;
    /// Whole pixels: pages would else end between two lines.
    const QSizeF m_room;
    QTextDocument m_text;
    double m_scale = 1;             ///< of what is laid out, on the page
    QHash<QString, QSizeF> m_sizes; ///< of files
    IPageInk* m_ink = nullptr;      ///< while a page is painted
};

} // namespace host
