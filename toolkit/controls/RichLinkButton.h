// A button of the rich text's dialogs that looks like a link.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QPushButton>

/// Blue text without a frame, underlined under the pointer. Only the mouse presses it: Space and
/// Return are swallowed; required as is. Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT CRichLinkButton final : public QPushButton {
    Q_OBJECT

public:
    explicit CRichLinkButton(const QString& text, QWidget* parent);

    void SetAlwaysUnderline(bool on);
    /// The text over several lines; otherwise on one, at the side that SetAlignment says.
    void SetMultiline(bool on);
    void SetAlignment(Qt::Alignment side);
    /// Becomes as large as its text on one line, underlined, and three pixels on each side; with an
    /// icon, as any button. Centred in the place that it had before, if asked to.
    void SizeToContent(bool centreAcross = false, bool centreDown = false);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QFont FontNow() const;

    bool m_alwaysUnderline = false;
    bool m_multiline = false;
    Qt::Alignment m_side = Qt::AlignLeft;
};
