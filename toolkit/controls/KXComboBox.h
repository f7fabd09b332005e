// A combo box with an edit field, a hint text, and a list of recent entries.
#pragma once

#include "toolkit/controls/DropCombo.h"

#include <QString>

/// Text with recent entries. The hint shows while the field is empty; it is never part of the text.
/// What is typed is never completed or added to the list by itself; an entry replaces it only when
/// it is chosen.
class TOOLKIT_EXPORT KXComboBox final : public DropCombo {
    Q_OBJECT
public:
    explicit KXComboBox(QWidget* parent = nullptr);

    void SetTipInfo(const QString& hint);
    [[nodiscard]] QString TipInfo() const;

signals:
    /// Enter in the edit field. The key then goes on, to the dialog's default button if there is
    /// one.
    void returnPressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_textBeforeFill;
};
