// A picture on the clipboard.
#pragma once

#include <QMimeData>
#include <QString>

namespace gallery {

/// Offers the file, and its picture, which is decoded when somebody pastes it. Owned by the
/// clipboard. Thread: user interface.
class PictureClip final : public QMimeData {
    Q_OBJECT
public:
    explicit PictureClip(const QString& path);

    [[nodiscard]] bool hasFormat(const QString& mimeType) const override;
    [[nodiscard]] QStringList formats() const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    QString m_path;
};

} // namespace gallery
