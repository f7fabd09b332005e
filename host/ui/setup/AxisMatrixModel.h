// The crossings of one floor as a table: X axes across, Y axes down, a box where they cross.
#pragma once

#include "host/ui/setup/SetupDraft.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <functional>

namespace host {

/// A box is on for a crossing of the model, half for one that is no longer in it, off where there
/// is none. Changes go to the draft. Thread: user interface.
class AxisMatrixModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    AxisMatrixModel(SetupDraft& setupDraft, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Asked before a saved crossing goes: true keeps it, as no longer in the model.
    void SetKeeps(std::function<bool(const QString& positionKey)> keeps) {
        m_keeps = std::move(keeps);
    }
    /// Empty texts: nothing is shown.
    void Show(const QString& project, const QString& floor);
    /// Crosses all of the ones with all of the others, on this floor or on these.
    void Cross(const QStringList& axesX, const QStringList& axesY, const QStringList& floors);
    /// All crossings of an axis of the shown floor.
    void RemoveAxisX(const QString& axis);
    void RemoveAxisY(const QString& axis);
    /// What this floor has and another hasn't.
    void CopyTo(const QStringList& floors);

    [[nodiscard]] const QStringList& AxesX() const { return m_axesX; }
    [[nodiscard]] const QStringList& AxesY() const { return m_axesY; }

private:
    void ReadAxes();
    [[nodiscard]] const site::SetupCrossing* At(const QModelIndex& index) const;
    void EditCrossings(const std::function<void(std::vector<site::SetupCrossing>&)>& change);
    void RemoveWhere(const std::function<bool(const site::SetupCrossing&)>& isMeant);

    SetupDraft& m_draft;
    std::function<bool(const QString&)> m_keeps;
    QString m_project;
    QString m_floor;
    QStringList m_axesX;
    QStringList m_axesY;
    std::map<std::pair<QString, QString>, site::SetupCrossing> m_crossings;
};

} // namespace host
