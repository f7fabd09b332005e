// Asks where a link leads and how it reads.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;

namespace toolkit {

/// What a typed address means: one without a scheme is of the web, or of mail if it has an "@".
/// Empty stays empty.
[[nodiscard]] TOOLKIT_EXPORT QString WholeAddress(const QString& typed);
/// What is wrong with a whole address, for people; empty for one that a link may have, and for none
/// at all.
[[nodiscard]] TOOLKIT_EXPORT QString FaultOfAddress(const QString& address);

struct NoteLinkWords {
    QString address; ///< empty: no link
    QString text;    ///< empty: as it reads already, or as the address
};

/// Stays open, with a sentence below the field, while the address is none. Ends itself when it is
/// closed. Thread: user interface.
class NoteLinkDialog final : public QDialog {
    Q_OBJECT

public:
    /// @param isTextFixed  what is linked can't be shown in a line, and stays as it is.
    NoteLinkDialog(const NoteLinkWords& present, bool isTextFixed, QWidget* parent);

    /// Of what was accepted.
    [[nodiscard]] NoteLinkWords Words() const;
    void accept() override;

private:
    void AddLines();

    QLineEdit* m_text = nullptr;
    QLineEdit* m_address = nullptr;
    QLabel* m_fault = nullptr;
};

} // namespace toolkit
