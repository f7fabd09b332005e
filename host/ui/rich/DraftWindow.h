// The window "草稿箱".
#pragma once

#include "host/ui/rich/DraftSource.h"

#include <QDialog>
#include <QTimer>

#include <optional>
#include <utility>

class QLabel;
class QPushButton;
class QStackedWidget;

namespace toolkit {
class NoteEdit;
}

namespace host {

class HintTable;
class RowModel;

/// Shows what was written and not saved; brings it back or removes it. Knows no database. What is
/// read follows what is chosen, one question to the source after the other and only while it is
/// shown; it may be closed meanwhile. Modeless, gone when it is closed. Thread: user interface.
/// Owned by its parent widget.
class DraftWindow final : public QDialog {
    Q_OBJECT

public:
    /// The source must outlive the window.
    DraftWindow(QWidget* parent, IDraftSource& draftSource);

    /// Reads the drafts anew; the chosen one stays chosen.
    void Reload();

signals:
    /// A draft became the newest version of its record.
    void BroughtBack(const QString& draft);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum Column { kPlace, kState, kAt, kSummary, kDaysLeft };
    /// Which draft the preview shows, and as it was when.
    using Shown = std::pair<QString, qint64>;

    QWidget* MakeTable();
    QWidget* MakePreview();
    QWidget* MakeDraftButtons();
    /// Reads until what is shown is what is chosen.
    void CatchUp();
    /// At most one question to the source. False: nothing is left to be read. The window may be
    /// gone, whatever the answer.
    bool ReadNext();
    void ReadDrafts();
    void ReadDraftText(const Shown& draft);
    void FillTable(std::vector<DraftRow> rows);
    [[nodiscard]] const DraftRow* Chosen() const;
    /// Asks, and has the source do it. True: done, and the window is still there.
    bool AskAndDo(const QString& question, bool (IDraftSource::*deed)(const QString&),
                  const QString& done, const QString& failed);
    void BringBack();
    void Remove();
    void ShowPreviewHint(const QString& text);
    void ShowNotice(const QString& text, bool isFault);
    void ShowDraftButtons();

    IDraftSource& m_source;
    std::vector<DraftRow> m_rows;
    RowModel* m_model = nullptr;
    HintTable* m_table = nullptr;
    QStackedWidget* m_pages = nullptr; ///< the preview, or why there is none
    toolkit::NoteEdit* m_preview = nullptr;
    QLabel* m_previewHint = nullptr;
    QLabel* m_notice = nullptr;
    QPushButton* m_bringBack = nullptr;
    QPushButton* m_remove = nullptr;
    QTimer m_pause{this}; ///< while keys run through the table, nothing is read
    std::optional<Shown> m_shown;
    bool m_areDraftsRead = false;
    bool m_isAsking = false;
    bool m_hasFault = false;
    bool m_isFilling = false;
};

} // namespace host
