// The setup of a site while a person works on it: what was read, and what it is to become.
#pragma once

#include "site/SetupRules.h"
#include "site/SetupState.h"

#include <QObject>

#include <utility>

namespace host {

/// What is shown stands in `Wanted`; whoever changes it says so. Nothing of it is saved here.
/// Thread: user interface.
class SetupDraft final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Begins anew with what a site has.
    void Begin(const site::SetupState& state);
    /// The grid of a project that is looked at from now on, as the site has it; does nothing if it
    /// is known already.
    ///
    /// @param name  what the project is to be called
    void AddGrid(const site::SetupGrid& grid, const QString& name);

    [[nodiscard]] const site::SetupState& Seen() const { return m_seen; }
    [[nodiscard]] const site::SetupState& Wanted() const { return m_wanted; }
    [[nodiscard]] bool IsChanged() const { return m_seen != m_wanted; }
    /// Of a project by the name that it is to have; null: nobody has looked at it.
    [[nodiscard]] const site::SetupGrid* GridOf(const QString& project) const;
    /// What keeps it from being saved.
    [[nodiscard]] std::vector<site::SetupFault> Faults() const {
        return site::FaultsOf(m_seen, m_wanted);
    }

    /// What is typed into a list. Emits Changed.
    template <typename Change> void Edit(Change change) {
        change(m_wanted);
        emit Changed();
    }
    /// What the site has now. Own changes stay, save those of lists that somebody else has changed
    /// too: these are named.
    [[nodiscard]] std::vector<site::SetupList> Rebase(const site::SetupState& now);
    /// All of it, out of a file.
    void Take(site::SetupState wanted);
    /// A project's new name goes along with its worksets and its grid.
    void RenameProject(int row, const QString& name);
    /// The same with the crossings of a floor.
    void RenameFloor(const QString& project, int row, const QString& name);

signals:
    /// Something of what is wanted is another now.
    void Changed();
    /// Everything is: rows that were shown may be gone.
    void Begun();

private:
    site::SetupState m_seen;
    site::SetupState m_wanted;
};

} // namespace host
