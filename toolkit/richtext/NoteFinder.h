// Find and replace in a rich text.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace toolkit {

class NoteEdit;

/// A line below the text: what is looked for, what takes its place. Goes round at the end.
/// Thread: user interface. Owned by its parent; the sheet must outlive it.
class NoteFinder final : public QWidget {
    Q_OBJECT

public:
    NoteFinder(NoteEdit& sheet, QWidget* parent);

    /// Comes up with what is selected, ready to be typed over.
    void Begin();
    /// False: the text isn't there.
    bool Next(bool backwards = false);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Leave();
    void Replace();
    void ReplaceAll();
    [[nodiscard]] bool IsFound() const;

    NoteEdit& m_sheet;
    QLineEdit* m_wanted = nullptr;
    QLineEdit* m_instead = nullptr;
    QWidget* m_replacing = nullptr;
    QLabel* m_answer = nullptr;
};

} // namespace toolkit
