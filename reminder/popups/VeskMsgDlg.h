// What a toast shows of one reminder.
#pragma once

#include "reminder/popups/MsgDlgLayout.h"
#include "services/PicRecords.h"
#include "toolkit/windows/PopupWindow.h"

#include <array>

class CPicStatic;

namespace reminder {

/// What a record came as.
inline constexpr qint32 kPicPopup = 0;
inline constexpr qint32 kIssuePopup = 1;

/// Handed from the caller to the dialog, which its toast makes without an argument; overwritten by
/// the next toast.
[[nodiscard]] KX_DATA::PicMsgRecord& CurrentPopupRecord();
[[nodiscard]] qint32& CurrentPopupKind();

/// Shows one record in a toast, at once and whatever number there is. Thread: user interface.
void ShowPopup(const KX_DATA::PicMsgRecord& record, toolkit::WindowId owner, qint32 kind);

} // namespace reminder

/// Who did what where, with a preview and the way to it. Photos and issues alike.
/// Thread: user interface. Owned by its toast.
class CVeskMsgDlg final : public CBCGPPopupDlg {
public:
    void OnInitDialog() override;
    [[nodiscard]] QSize PreferredSize() const override;

protected:
    QWidget* MakeWindow(QWidget* parent) override;
    void OnCreated() override;
    void OnTimer(int timerId) override;

private:
    friend class MsgDlgWidget;
    void FillLines(const QString& markName);
    void OnLook();
    void OnMouseMove();

    bool m_previewDirty = true;
    KX_DATA::PicMsgRecord m_record;
    bool m_isIssue = false;          ///< as it was made
    std::array<QString, 5> m_lines;  ///< empty and hidden: the third one of an issue
    CPicStatic* m_preview = nullptr; ///< of the window
};
