// Several floors or axes in one cell.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace host {

/// Parts between 、 , ， ; ； and line ends, tidy, without empty ones.
[[nodiscard]] QStringList ListedParts(const QString& cell);

struct ListedNames {
    QStringList names;
    QString fault; ///< Chinese; empty: none
};

/// Axes: names and ranges like "1-12", "A-H" or "1/A~1/F" (also with ～ and 至): what stands before
/// the number or letter is the same on both sides. With "-" a range has numbers or single letters
/// on both sides and nothing else. Of letters I, O and Z are left out within a range, as they are
/// no axes on drawings. At most 1,000 names.
[[nodiscard]] ListedNames ListedAxes(const QString& cell);

/// Floors of those that there are.
class FloorNames final {
public:
    /// @param known  in their order, none twice
    explicit FloorNames(const QStringList& known);

    /// In the order of the cell: names, "全部", and ranges like "1-6" or "B1~3F" from one of them
    /// to another. A floor whose own name is such a text is meant before a range.
    [[nodiscard]] ListedNames Listed(const QString& cell) const;
    [[nodiscard]] bool Has(const QString& floor) const { return m_places.contains(floor); }

private:
    [[nodiscard]] ListedNames OfPart(const QString& part) const;

    QStringList m_known;
    QHash<QString, qsizetype> m_places;
};

/// Is the axis read back as it is, written into a list?
[[nodiscard]] bool IsPlainAxis(const QString& axis);

} // namespace host
