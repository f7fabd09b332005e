// What a cell of the grid holds.
#pragma once

#include "toolkit/ImageList.h"
#include "toolkit/ToolkitExport.h"

#include <QColor>
#include <QVariant>

#include <memory>
#include <optional>
#include <stdexcept>

class CGridRow;
class CMultiPageGrid;

/// A cell whose value can't be read as what was asked for.
class TOOLKIT_EXPORT BadCellValue final : public std::runtime_error {
public:
    BadCellValue() : std::runtime_error("cell value has the wrong type") {}
};

/// Plain text or number. Subclasses are the other kinds of cells; how each is drawn is the view's
/// affair. A change shows at the next repaint of the row, which the item asks for by itself.
class TOOLKIT_EXPORT CGridItem {
public:
    CGridItem() = default;
    explicit CGridItem(QVariant value) : m_value(std::move(value)) {}
    virtual ~CGridItem() = default;

    [[nodiscard]] const QVariant& GetValue() const { return m_value; }
    void SetValue(const QVariant& value);
    /// The value as the cell shows it; empty for icons and check boxes.
    [[nodiscard]] virtual QString GetText() const { return m_value.toString(); }
    /// The value as a boolean; a value of another type is converted, no value is false. A text
    /// counts if it is a number, "true" or "false". Throws BadCellValue.
    [[nodiscard]] bool GetBool() const;

    [[nodiscard]] bool IsEnabled() const { return m_enabled; }
    void Enable(bool enabled);
    /// None: the grid's own text colour.
    [[nodiscard]] const std::optional<QColor>& GetTextColor() const { return m_textColor; }
    void SetTextColor(const QColor& color);

private:
    friend class CGridRow;
    void Changed();

    QVariant m_value;
    bool m_enabled = true;
    std::optional<QColor> m_textColor;
    CGridRow* m_row = nullptr;
};

/// A check box; its value is a boolean. A click or Space turns it.
class TOOLKIT_EXPORT CCheckBoxItem final : public CGridItem {
public:
    explicit CCheckBoxItem(bool checked) : CGridItem(QVariant(checked)) {}
    [[nodiscard]] QString GetText() const override { return {}; }
};

/// A text with a swatch of a colour (0xBBGGRR) before it.
class TOOLKIT_EXPORT CColorTxtItem final : public CGridItem {
public:
    CColorTxtItem(int color, const QString& text) : CGridItem(text), m_color(color) {}
    [[nodiscard]] int Color() const { return m_color; }

private:
    int m_color;
};

/// An icon that is a button: a click gives the grid its command. Its tip names what it does.
class TOOLKIT_EXPORT CIconGridItem final : public CGridItem {
public:
    CIconGridItem(const toolkit::ImageList& images, int image, int command, QString tip)
        : m_images(&images), m_image(image), m_command(command), m_tip(std::move(tip)) {}
    [[nodiscard]] QString GetText() const override { return {}; }
    [[nodiscard]] QIcon Icon() const { return m_images->At(m_image); }
    /// Device-independent pixels.
    [[nodiscard]] QSize ImageSize() const { return m_images->ImageSize(); }
    [[nodiscard]] int Image() const { return m_image; }
    [[nodiscard]] int Command() const { return m_command; }
    [[nodiscard]] const QString& Tip() const { return m_tip; }

private:
    const toolkit::ImageList* m_images; ///< outlives the rows: the grid's
    int m_image;
    int m_command;
    QString m_tip;
};
