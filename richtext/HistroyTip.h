// What is asked when somebody else has saved a rich text meanwhile, and what they saved.
#pragma once

#include "services/RichTextRecords.h"
#include "toolkit/windows/PopTipDlg.h"

#include <memory>

class CRichLinkButton;
class CZelvorEditorImpl;
class QLabel;

/// The question whether to overwrite; Ok: yes. Thread: user interface. Made for one run.
class CHistroyTip final : public CPopTipDlg {
public:
    /// @param record  of the other person's save.
    explicit CHistroyTip(KX_DATA::RichTextMsg record);

protected:
    void OnCreated() override;

private:
    CRichLinkButton* historyButton = nullptr; ///< a child of the window
    KX_DATA::RichTextMsg msg;
};

/// The other person's document, to be read only. Thread: user interface. Made for one run.
class CHistroyEditor final : public CPopTipDlg {
public:
    explicit CHistroyEditor(KX_DATA::RichTextMsg record);
    ~CHistroyEditor() override;

protected:
    void OnCreated() override;
    void OnDestroyed() override;
    void OnResized() override { Layout(); }
    qintptr OnEvent(const toolkit::WindowEvent& event) override;

private:
    void Layout();
    void Load();

    KX_DATA::RichTextMsg msg;
    std::unique_ptr<CZelvorEditorImpl> editor; ///< null until the window exists
    QLabel* m_editorText = nullptr;            ///< children of the window
    QLabel* m_timeText = nullptr;
    QLabel* m_stateText = nullptr;
};
