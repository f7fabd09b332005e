// The controls of the console's window.
#pragma once

#include "console/ConsoleLayout.h"

#include <QWidget>

class CColorTxtComboBox;
class DropCombo;
class KXComboBox;
class QCheckBox;
class QDateEdit;
class QLabel;
class QPushButton;
class QRadioButton;
class QStatusBar;

/// Made with the window and owned by it; the pointers are good as long as the window is. Every
/// control has an object name, a tooltip that names its shortcut, and an accessible name.
struct ConsoleControls {
    explicit ConsoleControls(QWidget* window);

    /// Controls of the filter line, by FilterControl.
    [[nodiscard]] std::array<QWidget*, kFilterControls> Filters() const;
    /// Action buttons, by ActionButton.
    [[nodiscard]] std::array<QPushButton*, kActionButtons> Actions() const;
    /// Tab order: filters, grid, kinds, actions; the paging bar is made last and stays there.
    void PutBehindFilters(QWidget* gridView) const;

    DropCombo* projectCombo;
    CColorTxtComboBox* markCombo;
    DropCombo* labelCombo;
    DropCombo* statusCombo;
    QCheckBox* noDateLimit;
    QDateEdit* startPicker;
    QLabel* dateDash;
    QDateEdit* endPicker;
    KXComboBox* keywordCombo;
    QPushButton* searchButton;
    QRadioButton* bimRadio;
    QRadioButton* pdfRadio;
    QPushButton* downloadButton;
    QPushButton* deleteButton;
    QPushButton* showButton;
    QPushButton* hideButton;
    QStatusBar* statusBar;
    QLabel* statusPane;
};
