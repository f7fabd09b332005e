// The paged grid of the console.
#pragma once

#include "base/IQuestionRefresh.h"
#include "base/Status.h"
#include "console/ConsoleActions.h"
#include "console/ConsoleMode.h"
#include "console/PicMngBase.h"
#include "toolkit/grid/MultiPageGrid.h"

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/enable_shared_from_this.hpp>

/// Turns header clicks into sort keys, pages into queries, and icons into what the manager does
/// with a row. Knows no record; those are the manager's.
///
/// Sends WM_PIC_SEARCH_START and WM_PIC_SEARCH_DONE to the dialog around each page fetch.
/// Thread: user interface. Owned by the dialog through a shared pointer, so that a handler that
/// runs while the dialog ends keeps its grid to its own end.
class CVeskPicMngGrid final : public CMultiPageGrid,
                              public ZelvorNRQ_KXVeskPicture::IQuestionRefresh,
                              public boost::enable_shared_from_this<CVeskPicMngGrid> {
public:
    CVeskPicMngGrid() = default;

    /// Makes the manager of a kind and drops the one before, with all rows.
    void CreateManager(ConsoleMode newMode);
    /// Columns, manager and default sort of a kind.
    void SetMode(ConsoleMode newMode);
    [[nodiscard]] ConsoleMode GetMode() const { return m_mode; }
    [[nodiscard]] qint32 ProjectId() const { return m_projectId; }
    /// Null before the first CreateManager.
    [[nodiscard]] const boost::shared_ptr<CPicMngBase>& Manager() const { return m_manager; }

    [[nodiscard]] bool HasCheckedRow() const;
    /// What icons, menu and buttons do with rows.
    [[nodiscard]] ConsoleActions& Actions() { return m_actions; }
    /// For dialogs that outlive the page, the kind and the console, and tell it of changes.
    [[nodiscard]] boost::weak_ptr<IQuestionRefresh> RefreshHandle() { return weak_from_this(); }

    /// Fetches the page again and tells the host.
    void Refresh() override;
    /// Fetches the page again, tells nobody.
    void FetchCurrentPage();
    /// The same, and the last page if the present one is gone.
    void FetchAfterDelete();

    KX_DATA::PicQueryFilter picFilter; ///< BIM photos and issues
    KX_DATA::PdfQueryFilter pdfFilter; ///< drawing photos
    int totalCount = 0;                ///< of the last search

    [[nodiscard]] const QString& SortFieldName() const { return m_sortField; }
    [[nodiscard]] const QString& SortOrder() const { return m_sortOrder; }
    [[nodiscard]] bool AllChecked() const { return m_allChecked; }
    /// Changes each time the grid is emptied: who asked a service for rows before that must not add
    /// them any more.
    [[nodiscard]] int Filling() const { return m_filling; }

protected:
    void OnInitialize() override;
    void OnHeaderClick(int column) override;
    [[nodiscard]] bool CompareRows(const CGridRow& first, const CGridRow& second) const override;
    void OnPreparePage() override;
    void OnQueryPage() override;
    void OnIconCommand(int command, CGridRow& row) override;
    void OnDoubleClick(CGridRow& row, int column) override;
    void FillRowMenu(CGridRow& row, QMenu& menu) override;

private:
    /// The dialog has this grid, in a window.
    [[nodiscard]] bool IsInDialog() const;
    void Empty();
    void CheckAll(bool checked);
    void SortBy(int column);
    void FetchPage();
    [[nodiscard]] QString TakeSelectedKey();
    void SelectKey(const QString& key);
    /// Says in the empty grid whether nothing matched or reading failed.
    void NoteQuery(bool succeeded);

    ConsoleActions m_actions{*this};
    toolkit::ImageList m_headerImages;
    toolkit::ImageList m_rowImages;
    qint32 m_projectId = 0; ///< open when the grid was made
    ConsoleMode m_mode = kModeBim;
    QString m_sortField = QStringLiteral("last_modifytime");
    QString m_sortOrder = QStringLiteral("desc");
    bool m_allChecked = false;
    bool m_queryFailed = false;
    int m_filling = 0;
    QString m_keptKey; ///< what was selected before a manager of the same kind came
    boost::shared_ptr<CPicMngBase> m_manager;
};
