#include "bench/Report.h"

#include <QFile>
#include <QJsonDocument>
#include <QTextStream>

#include <algorithm>
#include <map>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

double Quantile(std::vector<double> values, double share) {
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    return values[size_t(double(values.size() - 1) * share)];
}

template <class Take> std::vector<double> All(const std::vector<CaseResult>& cases, Take take) {
    std::vector<double> values;
    for (const CaseResult& result : cases) {
        values.push_back(take(result));
    }
    return values;
}

QString Cell(double value) {
    return QString::number(value, 'f', 2).rightJustified(9);
}

} // namespace

double Median(std::vector<double> values) {
    return Quantile(std::move(values), 0.5);
}

double NinthDecile(std::vector<double> values) {
    return Quantile(std::move(values), 0.9);
}

void Report::Add(const CaseResult& result) {
    m_cases.push_back(result);
}

void Report::AddFigure(const QString& name, double value, const QString& unit) {
    m_figures[name] = QJsonObject{{u"value"_s, value}, {u"unit"_s, unit}};
    QTextStream(stdout) << name << u": "_s << QString::number(value, 'f', 2) << u' ' << unit
                        << Qt::endl;
}

void Report::AddGoal(const QString& name, double value, const QString& unit, double most) {
    const bool met = value >= 0 && value <= most;
    m_figures[name] =
        QJsonObject{{u"value"_s, value}, {u"unit"_s, unit}, {u"atMost"_s, most}, {u"met"_s, met}};
    QTextStream(stdout) << name << u": "_s << QString::number(value, 'f', 2) << u' ' << unit
                        << u"   (goal: at most "_s << most << u' ' << unit
                        << (met ? u", met)"_s : u", MISSED)"_s) << Qt::endl;
}

double Report::RatioFirst(const CaseResult& result) const {
    return result.first / (result.rawFirst + m_barePaint);
}

double Report::RatioAgain(const CaseResult& result) const {
    return result.again / (result.rawAgain + m_barePaint);
}

void Report::PrintGroup(const QString& title, const std::vector<CaseResult>& group) const {
    const auto first = All(group, [](const CaseResult& c) { return c.first; });
    const auto again = All(group, [](const CaseResult& c) { return c.again; });
    const auto ratioFirst = All(group, [this](const CaseResult& c) { return RatioFirst(c); });
    const auto ratioAgain = All(group, [this](const CaseResult& c) { return RatioAgain(c); });
    QTextStream(stdout) << title.leftJustified(34) << Cell(Median(first))
                        << Cell(NinthDecile(first)) << Cell(Quantile(first, 1.0))
                        << Cell(Median(again)) << Cell(NinthDecile(again))
                        << Cell(Median(ratioFirst)) << Cell(Median(ratioAgain)) << Qt::endl;
}

void Report::PrintTable() const {
    QTextStream out(stdout);
    out << u"bare replace and paint of 30 rows x 17 columns: "_s
        << QString::number(m_barePaint, 'f', 2) << u" ms\n"_s;
    out << u"                                     first      p90    worst    again      p90"
           u"   ratio1   ratio2\n"_s;
    out.flush();
    std::map<QString, std::vector<CaseResult>> groups;
    for (const CaseResult& result : m_cases) {
        groups[result.list + u" | "_s + result.filter + u" | "_s + result.page].push_back(result);
    }
    for (const auto& [title, group] : groups) {
        PrintGroup(title, group);
    }
    std::map<bool, std::vector<CaseResult>> byKeyword;
    for (const CaseResult& result : m_cases) {
        byKeyword[result.filter.startsWith(u"keyword"_s)].push_back(result);
    }
    for (const auto& [keyword, group] : byKeyword) {
        PrintGroup(keyword ? u"ALL with keyword"_s : u"ALL without keyword"_s, group);
    }
}

bool Report::WriteJson(const QString& path) const {
    QJsonArray cases;
    for (const CaseResult& c : m_cases) {
        cases.append(QJsonObject{{u"list"_s, c.list},
                                 {u"sort"_s, c.sort},
                                 {u"filter"_s, c.filter},
                                 {u"page"_s, c.page},
                                 {u"hits"_s, c.hits},
                                 {u"firstMs"_s, c.first},
                                 {u"againMs"_s, c.again},
                                 {u"rawFirstMs"_s, c.rawFirst},
                                 {u"rawAgainMs"_s, c.rawAgain},
                                 {u"ratioFirst"_s, RatioFirst(c)},
                                 {u"ratioAgain"_s, RatioAgain(c)}});
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return false;
    }
    file.write(QJsonDocument(QJsonObject{{u"barePaintMs"_s, m_barePaint},
                                         {u"figures"_s, m_figures},
                                         {u"cases"_s, cases}})
                   .toJson());
    return true;
}

} // namespace bench
