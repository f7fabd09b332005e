// What a file or a pasted table would change in the settings, before it is taken.
#pragma once

#include <QDialog>
#include <QStringList>

namespace host {

/// With faults nothing can be taken; all of them are listed, and can be copied. Owned by its maker.
/// Thread: user interface.
class SetupPreview final : public QDialog {
    Q_OBJECT

public:
    SetupPreview(QWidget* parent, const QString& source, const QStringList& changes,
                 const QStringList& faults);

private:
    void Copy();

    QStringList m_lines;
};

} // namespace host
