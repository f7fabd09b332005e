// What lies in a data folder without being ours goes out of the way and is never deleted.
#pragma once

#include <QString>
#include <QStringList>

namespace site {

/// Moves entries of a data folder into a dated folder in it, made with the first of them. Links are
/// moved as links. Thread: the folder's own.
class SetAside final {
public:
    /// @param root   the data folder
    /// @param today  names the folder: "2026-11-22"
    SetAside(QString root, QString today);

    /// `entry` is a path below the data folder, "bin/notes.txt". True if it isn't there any more;
    /// otherwise it lies where it lay.
    bool Take(const QString& entry);

    /// What was moved and what could not be, for the person; empty if there was neither.
    [[nodiscard]] QString Story() const;

private:
    QString m_root;
    QString m_place; ///< below the data folder
    QStringList m_taken;
    QStringList m_left;
};

} // namespace site
