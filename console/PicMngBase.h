// What differs between the kinds of the console: the strategy behind the grid.
#pragma once

#include "console/BatchDownload.h"
#include "console/ConsoleMode.h"
#include "services/PageQuery.h"
#include "toolkit/ImageList.h"
#include "toolkit/grid/GridRow.h"
#include "toolkit/windows/WindowId.h"

#include <QSize>
#include <QString>

#include <map>
#include <memory>
#include <variant>
#include <vector>

class CVeskPicMngGrid;

/// The filter record that lives in the grid; none before the first search.
using ConsoleFilter =
    std::variant<std::monostate, const KX_DATA::PicQueryFilter*, const KX_DATA::PdfQueryFilter*>;

/// How a change of the checked rows ended.
enum class CheckedResult { Done = 1, Refused = 2, NothingChecked = 3 };
/// How the deletion of a row ended.
enum class DeleteResult { Cancelled = 0, Deleted = 1, Refused = 2 };

/// Decides the columns of a kind, fetches its pages, turns records into rows, and does what the
/// row's icons ask for.
///
/// Holds the records of the current page; rows point to them, so both are replaced together.
/// Thread: user interface. Owned by the grid, which replaces it when the kind changes.
class CPicMngBase {
public:
    explicit CPicMngBase(CVeskPicMngGrid* owner) : grid(owner) {}
    virtual ~CPicMngBase() = default;
    CPicMngBase(const CPicMngBase&) = delete;
    CPicMngBase& operator=(const CPicMngBase&) = delete;

    /// Hint of the keyword box.
    [[nodiscard]] virtual QString GetSearchHint() const { return {}; }
    /// Inserts all columns into the grid and tells which of them sort.
    virtual bool InitColumns(std::map<int, bool>& sortable) = 0;
    /// Tells the host that the marks of this kind changed.
    virtual void NotifyChanged() = 0;
    /// Fetches a page and builds its rows. False: the service refused, no row was built.
    virtual bool QueryPage(const toolkit::ImageList& rowImages, const KX_DATA::PageRequest& request,
                           KX_DATA::PageResult& result) = 0;
    /// Stores the value as status in the row's record.
    virtual void SetRowStatus(CGridRow& row, qint32 value) = 0;
    virtual CheckedResult SetCheckedStatus(qint32 projectId, bool hidden) = 0;
    [[nodiscard]] virtual int GetCheckColumn() const { return 0; }
    [[nodiscard]] virtual int GetStatusColumn() const { return 0; }
    [[nodiscard]] virtual int GetIndexColumn() const { return 1; }
    virtual bool DeleteChecked(qint32 projectId) = 0;
    /// Asks first.
    virtual DeleteResult DeleteRow(qint32 projectId, CGridRow& row) = 0;
    /// Whether the view must be told after a change of the checked rows.
    [[nodiscard]] virtual bool IsViewAffected() { return true; }
    virtual bool GetUsedMarks(std::vector<qint32>& markIds) = 0;
    /// Least size of the dialog, device-independent pixels.
    [[nodiscard]] virtual QSize GetMinTrackSize() const { return {1085, 845}; }
    /// True when the page must be fetched again.
    virtual bool EditRow(CGridRow& row) = 0;
    /// Reverse lookup into the view.
    virtual void LocateRow(CGridRow& row) { Q_UNUSED(row); }
    virtual void PreviewRow(CGridRow& row) { Q_UNUSED(row); }
    /// Photo of a row; KX_DATA::kNoPic for kinds that have none.
    [[nodiscard]] virtual qint32 GetRowPicId(const CGridRow& row) const {
        Q_UNUSED(row);
        return KX_DATA::kNoPic;
    }
    /// Where a row's photo comes from when it is downloaded; empty texts for kinds that have none.
    [[nodiscard]] virtual DownloadSource GetDownloadSource(const CGridRow& row) const {
        Q_UNUSED(row);
        return {};
    }
    /// Names the row's item among all of its kind.
    [[nodiscard]] virtual QString GetRowKey(const CGridRow& row) const = 0;
    /// Whether the view must be told when this row is deleted.
    [[nodiscard]] virtual bool IsRowInView(const CGridRow& row) {
        Q_UNUSED(row);
        return true;
    }

    /// The filter if it is of this type, else one that filters nothing.
    [[nodiscard]] const KX_DATA::PicQueryFilter& PicFilter() const;
    [[nodiscard]] const KX_DATA::PdfQueryFilter& PdfFilter() const;

    CVeskPicMngGrid* grid = nullptr; ///< owns this manager
    ConsoleFilter filter;
    int currentPage = 1; ///< written by the grid before each query

protected:
    /// A viewer has opened that brings the console back when it closes.
    void LeaveToViewer();
    /// The same for who may have been replaced meanwhile.
    static void LeaveToViewer(toolkit::WindowId console);
    /// Inserts the columns of a kind, then hides what rights and workset hide.
    void InsertColumns(ConsoleMode mode, std::map<int, bool>& sortable);
    /// A row with check box and running number; `place` counts from 0.
    [[nodiscard]] std::unique_ptr<CGridRow> StartRow(int place, bool checked) const;
    /// Colour and name of a mark, or an empty cell for one that the table lacks.
    static void PutMark(CGridRow& row, qint32 markId);
    static void PutIcons(CGridRow& row, int firstColumn, const toolkit::ImageList& images);
    [[nodiscard]] static QString ProjectName(qint32 ppid);
    static void WriteAction(const QString& action);

    /// Checked rows from the last to the first, so that lists made of them come out in that order.
    [[nodiscard]] std::vector<CGridRow*> CheckedRows() const;

    template <class Record> [[nodiscard]] static Record& RecordOf(const CGridRow& row) {
        return *static_cast<Record*>(row.GetData());
    }
};
