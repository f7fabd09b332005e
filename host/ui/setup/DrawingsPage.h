// A page of the settings: the drawings of a project.
#pragma once

#include "host/ui/setup/SetupDesk.h"

#include <QWidget>

class QComboBox;
class QListWidget;
class QPushButton;

namespace host {

/// What is done here is done at once: a drawing is a file. Owned by its parent widget. Thread: user
/// interface.
class DrawingsPage final : public QWidget {
    Q_OBJECT

public:
    /// The desk must outlive the page.
    DrawingsPage(QWidget* parent, ISetupDesk& setupDesk);

    /// Saved projects only: a drawing needs one.
    void ReadProjects(const std::vector<site::SetupProject>& projects);
    /// One of them.
    void ShowProject(const QString& project);
    /// Reads the drawings anew.
    void Reload();

private:
    void Import();
    void Remove();
    [[nodiscard]] qint32 Ppid() const;

    ISetupDesk& m_desk;
    QComboBox* m_project = nullptr;
    QListWidget* m_list = nullptr;
    QPushButton* m_import = nullptr;
    QPushButton* m_remove = nullptr;
};

} // namespace host
