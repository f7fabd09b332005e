// A page of the settings: the floors of a project and the axes that cross on each.
#pragma once

#include "host/ui/setup/AxisMatrixModel.h"
#include "host/ui/setup/SetupListPage.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class QVBoxLayout;

namespace host {

/// Shows the project that is chosen in it. Owned by its parent widget. Thread: user interface.
class GridPage final : public QWidget {
    Q_OBJECT

public:
    GridPage(QWidget* parent, SetupDraft& setupDraft);

    [[nodiscard]] QString Project() const;
    [[nodiscard]] SetupListPage& Floors() const { return *m_floors; }
    [[nodiscard]] AxisMatrixModel& Matrix() const { return *m_matrix; }
    /// The projects of the draft; the shown one stays if it is still there.
    void ReadProjects();
    void ShowProject(const QString& project);
    /// Chooses a floor.
    void ShowFloor(int row);
    /// Axes stand in their fields that cross nowhere yet.
    [[nodiscard]] bool HasTyped() const;
    /// Lets them cross. False: they can't, and the page says why.
    bool TakeTyped();

signals:
    /// The grid of this project is to be in the draft when this returns.
    void GridWanted(const QString& project);
    /// In the fields of the axes.
    void Typed();

private:
    QLayout* MakeAxes();
    QLayout* MakeAxesLine();
    QLayout* MakeAxesButtons();
    QLineEdit* MakeAxesEdit(const QString& name, const QString& hint, const QString& tip);
    QPushButton* MakeButton(const QString& name, const QString& text, const QString& tip);
    void MakeMatrix();
    void OnProject();
    void ShowMatrix();
    void Cross();
    [[nodiscard]] QString Floor() const;
    [[nodiscard]] QStringList AllFloors() const;

    SetupDraft& m_draft;
    QComboBox* m_project = nullptr;
    SetupListPage* m_floors = nullptr;
    AxisMatrixModel* m_matrix = nullptr;
    QTableView* m_table = nullptr;
    QLabel* m_caption = nullptr;
    QLineEdit* m_axesX = nullptr;
    QLineEdit* m_axesY = nullptr;
    QCheckBox* m_allFloors = nullptr;
    QPushButton* m_cross = nullptr;
    QPushButton* m_copy = nullptr;
    QPushButton* m_removeX = nullptr;
    QPushButton* m_removeY = nullptr;
    QLabel* m_note = nullptr;
    QString m_shown; ///< project
};

} // namespace host
