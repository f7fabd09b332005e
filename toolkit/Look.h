// One look for host and module: palette, font, metrics, style.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QColor>
#include <QFont>
#include <QString>

class QApplication;

namespace toolkit {

/// Colours in use; see the palette in docs.
struct TOOLKIT_EXPORT Colors {
    static QColor Pane();       ///< background of pictures and panes
    static QColor Text();       ///< running text
    static QColor TextAccent(); ///< navy
    static QColor Accent();
    static QColor Hover();
    static QColor Frame();
    static QColor Error();     ///< marks: invalid position
    static QColor ErrorText(); ///< running text that tells of an error
    static QColor Link();
    static QColor Selection(); ///< accent at low strength, under dark text
    static QColor AlternateRow();
    static QColor HintText();
    static QColor DisabledText();
    static QColor Window();   ///< a shade under white
    static QColor Header();   ///< headers of lists
    static QColor GridLine(); ///< between the cells of a list
};

/// From a number 0xBBGGRR.
[[nodiscard]] TOOLKIT_EXPORT QColor ColorFromBgr(int bgr);
/// Black or white, whichever reads better on `background`.
[[nodiscard]] TOOLKIT_EXPORT QColor TextOn(const QColor& background);

/// A text for setToolTip and QToolTip that shows as it stands, whatever it looks like, and wraps
/// when it is long.
[[nodiscard]] TOOLKIT_EXPORT QString PlainTip(const QString& text);
/// A text for setWindowTitle that shows as it stands: "[*]" means something else there.
[[nodiscard]] TOOLKIT_EXPORT QString PlainTitle(QString text);

/// Base step of all distances, device-independent pixels.
inline constexpr int kStep = 4;

/// The controls' face at a height in pixels (12 is the normal one).
[[nodiscard]] TOOLKIT_EXPORT QFont UiFont(int pixelHeight = 12);

/// Sets style, palette, font, font substitutions and Qt's Chinese texts for the whole program.
/// Called once, before the first window.
TOOLKIT_EXPORT void ApplyLook(QApplication& app);

} // namespace toolkit
