// A drop list of colours with names.
#pragma once

#include "toolkit/controls/DropCombo.h"

#include <QString>

#include <vector>

/// Colour 0xBBGGRR and name.
struct ColorAndName {
    int color = 0;
    QString name;
};

/// Each entry shows a swatch of its colour and its name, in the list and when selected.
class TOOLKIT_EXPORT CColorTxtComboBox final : public DropCombo {
    Q_OBJECT
public:
    explicit CColorTxtComboBox(QWidget* parent = nullptr);

    /// 1: the swatch as a small flag before the name; 0: the name on a field of the colour.
    void SetVeskStyle(int style);
    /// Replaces all entries and selects the first.
    void OnInitialize(const std::vector<ColorAndName>& entries);
    /// Selects the first entry of this name; none if there is no such entry.
    void SetSelectColorName(const QString& name);
    [[nodiscard]] const std::vector<ColorAndName>& Entries() const { return m_entries; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Rebuild();

    std::vector<ColorAndName> m_entries;
    int m_style = 0;
};
