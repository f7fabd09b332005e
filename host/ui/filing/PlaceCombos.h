// Floor, X axis and Y axis, each list filled by the choice before it.
#pragma once

#include <QObject>
#include <QString>

#include <utility>
#include <vector>

class QComboBox;

namespace host {

/// Fills three boxes with what the client's services say of a project; each has an entry for "none
/// yet" on top. The boxes must outlive it. Thread: user interface.
class PlaceCombos final : public QObject {
    Q_OBJECT

public:
    struct Boxes {
        QComboBox& floor;
        QComboBox& axisX;
        QComboBox& axisY;
    };

    PlaceCombos(const Boxes& placeBoxes, qint32 project);

    /// As far as the project has them.
    void Propose(const QString& floor, const QString& axisX, const QString& positionKey);
    void SetEnabled(bool enabled);
    /// Empty while one of the three isn't chosen.
    [[nodiscard]] QString PositionKey() const;
    /// A floor is chosen on which nothing crosses.
    [[nodiscard]] bool LacksAxes() const;

signals:
    /// By the person.
    void Changed();

private:
    using Entries = std::vector<std::pair<QString, QString>>; ///< name, data
    void FillFloors();
    void FillAxesX();
    void FillAxesY();
    void Refill(QComboBox& box, const Entries& entries);

    const Boxes m_boxes;
    const qint32 m_ppid;
    bool m_enabled = true;
};

} // namespace host
