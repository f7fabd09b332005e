// The colours of text and of the ground under it.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QColor>
#include <QMenu>

class QTextCharFormat;

namespace toolkit {

class NoteEdit;

enum class NotePaint { Text, Ground };

/// Invalid where nothing is said: the sheet's own.
[[nodiscard]] TOOLKIT_EXPORT QColor PresentColor(const QTextCharFormat& format, NotePaint what);
/// Of what is selected and what is typed next. Invalid: the sheet's own.
TOOLKIT_EXPORT void SetNoteColor(NoteEdit& sheet, NotePaint what, const QColor& color);

/// The sheet's own, a few colours by name, and any other. Thread: user interface. Owned by its
/// parent; the sheet must outlive it.
class NoteColorMenu final : public QMenu {
    Q_OBJECT

public:
    NoteColorMenu(NoteEdit& sheet, NotePaint what, QWidget* parent);

private:
    void AddColor(const QString& text, const QColor& color);
    void AskForColor();
    void CheckPresent();

    NoteEdit& m_sheet;
    const NotePaint m_what;
};

} // namespace toolkit
