#include "host/reminders/SeqSet.h"

#include <QStringList>

#include <algorithm>

namespace host {

void SeqSet::Add(const site::SeqRange& range) {
    if (range.first > range.last) {
        return;
    }
    // Ranges that touch the new one become one with it.
    const auto first = std::find_if(m_ranges.begin(), m_ranges.end(),
                                    [&](const auto& held) { return held.last >= range.first - 1; });
    const auto last = std::find_if(first, m_ranges.end(),
                                   [&](const auto& held) { return held.first - 1 > range.last; });
    site::SeqRange joined = range;
    if (first != last) {
        joined.first = std::min(joined.first, first->first);
        joined.last = std::max(joined.last, std::prev(last)->last);
    }
    m_ranges.insert(m_ranges.erase(first, last), joined);
}

void SeqSet::Add(const SeqSet& other) {
    for (const site::SeqRange& range : other.m_ranges) {
        Add(range);
    }
}

void SeqSet::Forget(qint64 upTo) {
    std::erase_if(m_ranges, [upTo](const auto& held) { return held.last <= upTo; });
    if (!m_ranges.empty()) {
        m_ranges.front().first = std::max(m_ranges.front().first, upTo + 1);
    }
}

bool SeqSet::Has(qint64 seq) const {
    return std::any_of(m_ranges.begin(), m_ranges.end(),
                       [seq](const auto& held) { return held.first <= seq && seq <= held.last; });
}

qint64 SeqSet::Whole() const {
    return !m_ranges.empty() && m_ranges.front().first <= 1 ? m_ranges.front().last : 0;
}

std::vector<site::SeqRange> SeqSet::Gaps(const site::SeqRange& within) const {
    std::vector<site::SeqRange> gaps;
    qint64 from = within.first;
    for (const site::SeqRange& held : m_ranges) {
        if (held.first > within.last) {
            break;
        }
        if (held.first > from) {
            gaps.push_back({from, held.first - 1});
        }
        if (held.last >= within.last) {
            return gaps;
        }
        from = std::max(from, held.last + 1);
    }
    if (from <= within.last) {
        gaps.push_back({from, within.last});
    }
    return gaps;
}

QString SeqSet::Text() const {
    QStringList parts;
    for (const site::SeqRange& range : m_ranges) {
        const QString first = QString::number(range.first);
        parts << (range.first == range.last ? first : first + u'-' + QString::number(range.last));
    }
    return parts.join(u',');
}

SeqSet SeqSet::FromText(const QString& text) {
    SeqSet set;
    for (const QString& part : text.split(u',', Qt::SkipEmptyParts)) {
        bool isFirst = false;
        bool isLast = false;
        const qint64 first = part.section(u'-', 0, 0).toLongLong(&isFirst);
        const qint64 last = part.section(u'-', -1).toLongLong(&isLast);
        if (isFirst && isLast && first >= 1) {
            set.Add({first, last});
        }
    }
    return set;
}

} // namespace host
