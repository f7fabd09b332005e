// Results of the benchmark: a table for people, JSON for programs.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <vector>

namespace bench {

/// One measured case. Times in milliseconds.
struct CaseResult {
    QString list;   ///< which list of the console
    QString sort;   ///< field and order
    QString filter; ///< what limits the search
    QString page;   ///< first, 1000th, last
    qint64 hits = 0;
    double first = 0;    ///< the first time this search ran
    double again = 0;    ///< median of the repetitions
    double rawFirst = 0; ///< the same statements through SQLite's own interface
    double rawAgain = 0;
};

/// Median; 0 of nothing.
[[nodiscard]] double Median(std::vector<double> values);
/// A value that nine in ten don't exceed; 0 of nothing.
[[nodiscard]] double NinthDecile(std::vector<double> values);

/// Collects cases and figures; writes them at the end.
class Report final {
public:
    /// Cost of replacing and painting 30 plain rows, to which ratios refer.
    void SetBarePaint(double milliseconds) { m_barePaint = milliseconds; }
    void Add(const CaseResult& result);
    void AddFigure(const QString& name, double value, const QString& unit);
    /// A figure that should be at most `most`.
    void AddGoal(const QString& name, double value, const QString& unit, double most);

    /// Grouped by list and filter, with medians, worst case and ratio to the bare operations.
    void PrintTable() const;
    [[nodiscard]] bool WriteJson(const QString& path) const;

private:
    [[nodiscard]] double RatioFirst(const CaseResult& result) const;
    [[nodiscard]] double RatioAgain(const CaseResult& result) const;
    void PrintGroup(const QString& title, const std::vector<CaseResult>& group) const;

    double m_barePaint = 0;
    std::vector<CaseResult> m_cases;
    QJsonObject m_figures;
};

} // namespace bench
