// The sheet on which a rich text is read and written.
#pragma once

#include "toolkit/ToolkitExport.h"
#include "toolkit/richtext/NoteDocument.h"

#include <QTextEdit>

#include <memory>
#include <optional>

namespace toolkit {

/// Text and tables by Qt's own means; pictures and attachments from files, the clipboard and by
/// drop; pictures of another size by their handles; what is pasted is brought into the document
/// form. Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT NoteEdit final : public QTextEdit {
    Q_OBJECT

public:
    explicit NoteEdit(QWidget* parent);

    /// Takes the place of the document before, which ends.
    void SetNote(std::unique_ptr<NoteDocument> document);
    /// Null before the first.
    [[nodiscard]] NoteDocument* Note() const { return m_note; }

    /// Pictures become part of the page, all else is attached. Those that can't be stored are
    /// named in Refused.
    void InsertFiles(const QStringList& paths);
    void InsertAsAttachments(const QStringList& paths);

    /// A picture that is selected by itself, and where it lies in the viewport.
    struct Picked {
        int position = 0; ///< of its character
        QRectF place;
    };
    [[nodiscard]] std::optional<Picked> PickedPicture() const;
    /// @param width  pixels of the document.
    void ResizePicture(int position, double width);
    /// Everything is shown in proportion to running text, which gets so many pixels larger; also in
    /// the documents that follow. What they say stays as it is.
    void Zoom(int pixels);

signals:
    /// Ctrl and a click, or a click where nothing can be written.
    void LinkOpened(const QString& address);
    void Refused(const QString& sentence);

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    /// Tab goes from cell to cell, with Ctrl out of the sheet.
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    /// Tells what a link leads to and how it is opened.
    bool viewportEvent(QEvent* event) override;

private:
    [[nodiscard]] std::optional<Picked> PictureUnder(const QPoint& pixel) const;
    [[nodiscard]] QRectF PlaceOf(int position) const;
    /// Pixels of the document.
    [[nodiscard]] QSize RoomForPictures() const;
    bool InsertStored(const QString& storeName);
    /// The store name of a picture that stands under an address in pasted text; empty: none.
    [[nodiscard]] QString KeepPasted(const QString& address) const;
    void PasteImage(const QImage& image);

    NoteDocument* m_note = nullptr; ///< a child
    int m_face;
    std::optional<Picked> m_resized;
    double m_width = 0; ///< of the picture while it is resized
};

} // namespace toolkit
