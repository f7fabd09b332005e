// The pictures of a rich text on its sheet.
#pragma once

#include "toolkit/richtext/NoteDecoder.h"

#include <QCache>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QTextObjectInterface>

#include <optional>

namespace toolkit {

/// Gives pictures their place by the size that the text says, else by the file's header; decodes
/// those in sight alone, as large as they are shown, and keeps no more of them than a few screens
/// need. On a window those of large files are decoded beside the interface thread: until then,
/// their place is grey, or has them in the size before. One that isn't there or is no picture is a
/// frame that says so. Thread: user interface.
class NotePictures final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// @param folder    of the files, with "/" at its end.
    /// @param document  shows them and owns this.
    NotePictures(QString folder, QTextDocument* document);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                    const QTextFormat& format) override;

    /// Device pixels as in the file; empty for what is no picture of the folder.
    [[nodiscard]] QSize FileSize(const QString& storeName);
    /// Now, on this thread. At most as large as the file has it and as a screen needs it; null for
    /// what is no picture.
    [[nodiscard]] QImage Decoded(const QString& storeName, const QSize& most);
    /// So many times as large as the text says.
    void ShowAt(double factor) { m_factor = factor; }
    /// What stands in the place of one that can't be shown.
    static void PaintMissing(QPainter& painter, const QRectF& place);

private:
    /// As the text says, else as in the file.
    [[nodiscard]] QSizeF SizeOf(const QTextFormat& format);
    struct Wanted {
        QString key;
        PictureRequest request;
    };
    [[nodiscard]] Wanted WantedOf(const QString& storeName, const QSize& file, const QSize& most);
    void Keep(const QString& key, const QImage& image);
    /// Also what is there of it so far; nothing while there is none.
    [[nodiscard]] std::optional<QImage> DecodedSoon(const QString& storeName, const QSize& most);
    void TakeDecoded();

    const QString m_folder;
    double m_factor = 1;
    QHash<QString, QSize> m_sizes;
    QCache<QString, QImage> m_decoded; ///< by name and size; costs are kilobytes
    QHash<QString, QString> m_shown;   ///< key of each name that was shown last
    NoteDecoder m_decoder;             ///< last: it ends before what it tells of
};

inline constexpr QSize kMissingPicture(160, 60);

} // namespace toolkit
