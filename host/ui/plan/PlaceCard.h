// The card beside a chosen intersection: what is there and what can be done.
#pragma once

#include "host/ui/PhotoCount.h"

#include <QFrame>

class QLabel;
class QPushButton;

namespace host {

/// Lives on the interface thread, owned by the plan's canvas.
class PlaceCard final : public QFrame {
    Q_OBJECT

public:
    explicit PlaceCard(QWidget* parent);

    /// Shows the card beside a place, within an area of its parent.
    void ShowFor(const QString& caption, const PhotoCount& count, const QRectF& place,
                 const QRectF& area);

signals:
    void PhotosWanted();

private:
    QLabel* m_text = nullptr;
    QPushButton* m_photos = nullptr;
};

} // namespace host
