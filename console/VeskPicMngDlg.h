// The management console.
#pragma once

#include "base/SingletonTmpl.h"
#include "console/ConsoleControls.h"
#include "console/ConsoleFilterBar.h"
#include "console/ConsoleMode.h"
#include "console/VeskPicMngGrid.h"
#include "toolkit/grid/MultiPageGridManager.h"
#include "toolkit/windows/PopTipDlg.h"

#include <QKeySequence>

#include <functional>
#include <memory>

/// Filters on top, the grid in the middle, paging bar and actions below, a status bar.
///
/// Shows one kind at a time; knows no record, those are the grid's manager's. The object lives to
/// the end of the process, its window comes and goes. Thread: user interface.
class CVeskPicMngDlg final : public CPopTipDlg, public NRQUtility::SingletonTmpl<CVeskPicMngDlg> {
public:
    /// Sets the kind, makes the grid if there is none, and checks the kind's radio button.
    void SetMode(ConsoleMode newMode);
    [[nodiscard]] ConsoleMode GetMode() const { return m_mode; }
    /// Closes the window if it shows another kind, so that what is set next acts on a fresh one.
    void MakeRoomFor(ConsoleMode newMode);
    /// Searches with what the controls, or a preset, say.
    void RunSearch();
    /// Saves the recent keywords, ends the window and forgets what it showed.
    void CloseConsole();
    /// Selects the photo of a preset on the present page, if it is there.
    void SelectPresetPic();

    // A preset acts on one search: set it, then open the console.
    void SetBimPreset(const QString& key, qint32 markId, qint32 picId);
    void SetIssuePreset(const QString& key, qint32 markId, const QString& extra);
    void SetPdfPreset(qint32 markId, qint32 drawingId, qint32 checkpointId);

    [[nodiscard]] const boost::shared_ptr<CVeskPicMngGrid>& Grid() const { return m_grid; }
    [[nodiscard]] CMultiPageGridManager* Paging() const { return m_gridManager.get(); }
    /// Null without a window.
    [[nodiscard]] const ConsoleControls* Controls() const { return m_controls.get(); }
    [[nodiscard]] const ConsoleFilterBar& Filters() const { return m_filters; }

protected:
    void OnCreated() override;
    void OnDestroyed() override;
    void OnClose() override { CloseConsole(); }
    void OnResized() override;
    qintptr OnEvent(const toolkit::WindowEvent& event) override;
    void OnSystemCommand(quintptr command) override;

private:
    friend class NRQUtility::SingletonTmpl<CVeskPicMngDlg>;
    CVeskPicMngDlg();

    // Initialisation.
    void MeasureControls();
    void ShowAllowedControls();
    void InitPaging();
    void ConnectControls();
    void ConnectActions();
    void AddShortcut(const QKeySequence& key, const std::function<void()>& action);

    void OnModeRadio(ConsoleMode newMode);
    void OnRefreshPage();
    /// "搜索" can't be pressed; the keyboard that it had comes back to it.
    void DisableSearch();
    void EnableSearch();

    // Window.
    void ApplyLayout();
    void UpdateLeastSize();
    [[nodiscard]] CPicMngBase* Manager() const;
    void OnSearchStart();
    void OnSearchDone();
    void OnRefreshEvent();

    ConsoleFilterBar m_filters;
    std::unique_ptr<ConsoleControls> m_controls;
    boost::shared_ptr<CVeskPicMngGrid> m_grid;
    std::unique_ptr<CMultiPageGridManager> m_gridManager;
    ConsoleMode m_mode = kModeNone;
    bool m_waitCursor = false;
    bool m_searchHadKeyboard = false;
    QRect m_projectComboRect;
    std::array<QSize, kFilterControls> m_filterSizes; ///< as the controls were made
};
