// The settings of a site: its projects, people, marks, labels, floors, axes and drawings.
#pragma once

#include "host/ui/setup/SetupDesk.h"
#include "host/ui/setup/SetupDraft.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QTimer;

namespace host {

class DrawingsPage;
class GridPage;
class SetupListPage;

/// All lists are edited as one draft and saved together, all or nothing. Doesn't know the site: it
/// asks its desk. Lives on the interface thread, owned by its parent widget.
class SetupWindow final : public QDialog {
    Q_OBJECT

public:
    enum class Page { Projects, Worksets, People, Marks, Labels, Grid, Drawings };

    /// The desk must outlive the window.
    SetupWindow(QWidget* parent, ISetupDesk& setupDesk);

    void ShowPage(Page page);
    /// Of the pages that show one: the project to begin with.
    void ShowProject(const QString& project);
    /// The drawings may be others now.
    void ReloadDrawings();
    [[nodiscard]] bool HasUnsaved() const;

    /// Escape closes as the button does, with its question.
    void reject() override { close(); }

signals:
    /// The site is set up otherwise now.
    void Saved();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakePages();
    void MakeListPage(Page page, SetupListPage* made);
    QLayout* MakeBottom();
    bool Begin();
    void Save();
    void OnSaved(const site::SetupOutcome& outcome);
    void Rebase();
    void EndTyping();
    void ShowState();
    void ShowFaults();
    void WantGrid(const QString& project);
    void Remove(SetupListPage& page, int row);
    void RemoveFloor(int row);
    [[nodiscard]] bool IsUnused(const std::optional<QString>& uses, site::SetupList list,
                                const QString& name, const QString& instead);
    void PickColor();
    void Import();
    void Paste(site::SetupList list);
    void Take(const SetupReading& reading, const QString& source);
    void Export();
    /// False: the person wants to go on with what is unsaved.
    bool MayClose();

    ISetupDesk& m_desk;
    SetupDraft* m_draft = nullptr;
    QListWidget* m_pages = nullptr;
    QStackedWidget* m_stack = nullptr;
    std::vector<SetupListPage*> m_lists;
    GridPage* m_grid = nullptr;
    DrawingsPage* m_drawings = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_save = nullptr;
    QPushButton* m_color = nullptr;
    QTimer* m_check = nullptr;
};

} // namespace host
