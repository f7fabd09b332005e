// The editor of one issue.
#pragma once

#include "base/SingletonTmpl.h"
#include "services/IssueRecords.h"
#include "toolkit/windows/PopTipDlg.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace KX_DATA {
class IKXView;
}
namespace Ui {
class TNPicEditDlg;
}

/// Subject, mark, status, description and component of an issue. Modeless: for a pick of the
/// component it steps aside with all windows above it and comes back when the host says so.
///
/// Its window stays when it is closed, hidden, until the client ends. Thread: user interface.
/// Exists once in a process.
class CTNPicEditDlg final : public CPopTipDlg, public NRQUtility::SingletonTmpl<CTNPicEditDlg> {
public:
    CTNPicEditDlg();
    ~CTNPicEditDlg() override;

    /// Called after a save; empty: nobody is told. Whoever sets it answers for its life.
    std::function<void()> refreshTarget;
    /// The view from which the editor was opened: the windows above it step aside with the editor.
    /// Never cleared; none until one is set, null when it is gone.
    std::optional<QPointer<QWidget>> ownerView;

    /// False: there is no editor; the user has been told.
    /// @param parent  what it is opened from; counts when the window is made.
    bool OpenQuestion(qint32 ppid, const QString& questionId, toolkit::WindowId parent);
    /// Ends the editing without saving. Nothing at all for one that never had an owner: its button
    /// "取消" doesn't close it either; required as is.
    void CloseEditor();
    /// The pick in the host's view has ended; 1: the person confirmed it.
    void OnPickFinished(qint32 result);

    [[nodiscard]] const KX_DATA::QuestionDetail& Question() const { return question; }
    [[nodiscard]] bool IsComponentChanged() const { return componentChanged != 0; }

protected:
    void OnCreated() override;
    void OnDestroyed() override;
    void OnClose() override { CloseEditor(); }

private:
    void ConnectControls();
    void FillControls();
    void FillMarks();
    void ShowComponent(const QString& text);
    void StepAside();
    void TakePick();
    void RestoreView();
    void OnSave();
    [[nodiscard]] std::optional<KX_DATA::IssueUpdate> ReadUpdate();
    [[nodiscard]] bool MakeQRCode(KX_DATA::IssueUpdate& update);

    std::vector<qint32> markIds;      ///< of the entries of the mark box, in its order
    KX_DATA::IKXView* view = nullptr; ///< not owned; fetched at each opening and after each pick
    qint32 projectId = 0;
    qint32 savedViewTool = 0;
    std::vector<qint32> savedViewState;
    bool viewStateSaved = false; ///< set by the first pick; nothing clears it
    KX_DATA::PickedComponent pickedComponent;
    qint32 componentChanged = 0; ///< by a pick since the opening
    KX_DATA::QuestionDetail question;
    int m_opening = 0; ///< counts the issues that were opened
    QString m_pickOf;  ///< the issue for which a component was picked last
    std::unique_ptr<Ui::TNPicEditDlg> m_form;
};
