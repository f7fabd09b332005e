// What the console does with rows of its grid: with one, or with those that are checked.
#pragma once

#include "console/ConsoleMode.h"

#include <QString>

#include <functional>

class CGridRow;
class CVeskPicMngGrid;

/// Runs an action to its end: question, service, page, notification. The manager knows how its kind
/// does it.
///
/// Any question or service may end the console, change its kind or its page. The grid outlives the
/// action, what it shows need not. Thread: user interface. Part of the grid.
class ConsoleActions final {
public:
    explicit ConsoleActions(CVeskPicMngGrid& grid) : m_grid(grid) {}

    /// What an icon of a row does.
    void Run(RowCommand command, CGridRow& row);
    /// Reverse lookup into the view, if the row has one.
    void Locate(CGridRow& row);

    /// Says what is missing where nothing is checked.
    using Tip = std::function<void(const QString& text)>;
    void AskAndDelete(const Tip& tip);
    void AskAndDownload(const Tip& tip);
    void SetCheckedShown(bool show, const Tip& tip);

    // Without a question, for rows that are checked.
    void DeleteChecked();
    /// Copies the checked photos into a folder, given without a closing separator.
    void DownloadChecked(const QString& folder);
    void SetCheckedShown(bool show);

private:
    void Edit(CGridRow& row);
    void Delete(CGridRow& row);
    void SaveAs(const CGridRow& row);
    void SetShown(bool show);
    void ShowStatusOfChecked(bool show);
    [[nodiscard]] bool HasChecked(const Tip& tip, const QString& text) const;

    CVeskPicMngGrid& m_grid;
};
