// The window "草稿箱".
#pragma once

#include "host/ui/rich/DraftSource.h"
#include "host/ui/rich/ReadingWindow.h"

#include <optional>
#include <utility>

class QLabel;
class QStackedWidget;

namespace toolkit {
class NoteEdit;
}

namespace host {

class HintTable;
class RowModel;

/// Shows what was written and not saved; brings it back or removes it.
class DraftWindow final : public ReadingWindow {
    Q_OBJECT

public:
    /// The source must outlive the window.
    DraftWindow(QWidget* parent, IDraftSource& draftSource);

signals:
    /// A draft became the newest version of its record.
    void BroughtBack(const QString& draft);

protected:
    bool ReadNext() override;
    void Forget(bool hadFault) override;
    void ShowButtons() override;

private:
    enum Column { kPlace, kState, kAt, kSummary, kDaysLeft };
    /// Which draft the preview shows, and as it was when.
    using Shown = std::pair<QString, qint64>;

    QWidget* MakeTable();
    QWidget* MakePreview();
    void ReadDrafts();
    void ReadDraftText(const Shown& draft);
    void FillTable(std::vector<DraftRow> rows);
    [[nodiscard]] const DraftRow* Chosen() const;
    void BringBack();
    void Remove();
    void ShowPreviewHint(const QString& text);

    IDraftSource& m_source;
    std::vector<DraftRow> m_rows;
    RowModel* m_model = nullptr;
    HintTable* m_table = nullptr;
    QStackedWidget* m_pages = nullptr; ///< the preview, or why there is none
    toolkit::NoteEdit* m_preview = nullptr;
    QLabel* m_previewHint = nullptr;
    std::optional<Shown> m_shown;
    bool m_areDraftsRead = false;
    bool m_isFilling = false;
};

} // namespace host
