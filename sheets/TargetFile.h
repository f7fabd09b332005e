// The file that a person named: whole at the end, or as it was before.
#pragma once

#include <QSaveFile>

namespace sheets {

/// Written beside its name and put in place by a rename. Destroyed before Commit it leaves what was
/// there. Throws SheetFault. Thread: one at a time.
class TargetFile final {
public:
    explicit TargetFile(const QString& path) : m_file(path) {}

    /// Before any work is done: a folder that is gone, or one that can't be written, is told now.
    void Open();
    void Write(const QByteArray& bytes);
    void Commit();

    /// That there is no room, or whatever else the last operation on a file of ours met.
    [[noreturn]] void Fail(const QString& what) const;

private:
    QSaveFile m_file;
};

} // namespace sheets
