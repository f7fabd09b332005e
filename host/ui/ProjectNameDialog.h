// Asks for the name of a new project.
#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QLineEdit;
class QPushButton;

namespace host {

/// Accepts a name that isn't blank and not taken yet. Lives on the interface thread.
class ProjectNameDialog final : public QDialog {
    Q_OBJECT

public:
    static constexpr int kLongestName = 60;

    ProjectNameDialog(QWidget* parent, const QStringList& takenNames);

    /// Without blanks at its ends.
    [[nodiscard]] QString Name() const;

private:
    void Validate();

    QStringList m_taken;
    QLineEdit* m_nameEdit = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_okButton = nullptr;
};

} // namespace host
