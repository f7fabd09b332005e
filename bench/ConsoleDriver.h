// Drives the console as a person would, without the pointer: through its controls.
#pragma once

#include <QString>

class CVeskPicMngDlg;
class DropCombo;

namespace bench {

/// What limits a search. Only one of them is set.
enum class FilterKind { None, Mark, Label, State, Date, Keyword };

struct FilterCase {
    QString name;
    FilterKind kind = FilterKind::None;
    QString text; ///< keyword
};

/// The open console of one kind.
class ConsoleDriver final {
public:
    /// Opens the console of a kind (1 to 3).
    explicit ConsoleDriver(int kind);
    ~ConsoleDriver();

    /// Sets the controls to one limit; searches once.
    void SetFilter(const FilterCase& filter);
    /// Sorts by a column by clicking its header until the order is the wanted one.
    void SortBy(int column, const QString& order);
    /// From the search button, or from the paging bar for pages behind the first, to painted rows.
    /// Milliseconds.
    [[nodiscard]] double FetchAndPaint(int page);

    [[nodiscard]] int PageCount() const;
    [[nodiscard]] qint64 Hits() const;

private:
    void ClearFilter();
    static void Choose(DropCombo& combo, int index);

    CVeskPicMngDlg& m_console;
};

} // namespace bench
