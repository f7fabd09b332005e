// What kind of spreadsheet a person wants.
#pragma once

#include <QDialog>

class QCheckBox;
class QRadioButton;

namespace host {

struct SheetChoice {
    bool isWorkbook = true; ///< else CSV
    bool pictures = false;  ///< of workbooks alone
};

/// Asks for workbook or CSV, and for small pictures. Knows no list and writes nothing. Lives on the
/// interface thread, owned by its parent.
class SheetDialog final : public QDialog {
    Q_OBJECT

public:
    /// @param what  the list, for a person.
    SheetDialog(QWidget* parent, const QString& what, const SheetChoice& proposed);

    [[nodiscard]] SheetChoice Choice() const;

private:
    QRadioButton* m_workbook = nullptr;
    QCheckBox* m_pictures = nullptr;
};

} // namespace host
