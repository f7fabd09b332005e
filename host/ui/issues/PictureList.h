// Pictures that a person collects, as thumbnails.
#pragma once

#include <QImage>
#include <QObject>
#include <QTimer>

#include <vector>

class QListWidget;

namespace host {

struct CollectedPicture {
    QString path;
    QImage reduced; ///< null while it isn't decoded yet
};

/// Fills a list with thumbnails that are decoded one after the other while nothing else is to do.
/// The list must outlive it. Thread: user interface.
class PictureList final : public QObject {
    Q_OBJECT

public:
    /// What a phone makes of a picture for lists fits into this, pixels.
    static constexpr QSize kReduced{480, 360};

    explicit PictureList(QListWidget& list);

    /// Files that are there already are passed over. Gives what can't be taken, a line each.
    QString Add(const QStringList& paths);
    void RemoveSelected();
    [[nodiscard]] const std::vector<CollectedPicture>& Pictures() const { return m_pictures; }

signals:
    void Changed();

private:
    void DecodeNext();

    QListWidget& m_list;
    std::vector<CollectedPicture> m_pictures;
    QTimer m_decoding;
};

/// The picture, upright, no larger than `size`; null if it can't be decoded. Thread: any.
[[nodiscard]] QImage ReducedPicture(const QString& path, const QSize& size);

} // namespace host
