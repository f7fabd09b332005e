// The size of a new table in two numbers.
#pragma once

#include "toolkit/richtext/NoteTableGrid.h"

#include <QDialog>

class QSpinBox;

namespace toolkit {

/// Asks, and knows nothing of a document. Ends itself when it is closed. Thread: user interface.
class NoteTableDialog final : public QDialog {
    Q_OBJECT

public:
    explicit NoteTableDialog(QWidget* parent);

    [[nodiscard]] NoteTableSize Size() const;

private:
    QSpinBox* m_rows = nullptr;
    QSpinBox* m_columns = nullptr;
};

} // namespace toolkit
