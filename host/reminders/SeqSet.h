// A set of numbers that mostly follow each other.
#pragma once

#include "site/IFilings.h"

#include <QString>

#include <vector>

namespace host {

/// Numbers from 1 on, held as ranges.
class SeqSet final {
public:
    void Add(const site::SeqRange& range);
    void Add(qint64 seq) { Add({seq, seq}); }
    void Add(const SeqSet& other);
    /// Takes out what isn't above.
    void Forget(qint64 upTo);
    [[nodiscard]] bool Has(qint64 seq) const;
    /// Up to here all numbers from 1 on are in it; 0: not even 1.
    [[nodiscard]] qint64 Whole() const;
    /// What lacks, from the first number to the last one.
    [[nodiscard]] std::vector<site::SeqRange> Gaps(const site::SeqRange& within) const;

    /// "1-100,105,110-120"; reading leaves out what is none of that.
    [[nodiscard]] QString Text() const;
    [[nodiscard]] static SeqSet FromText(const QString& text);

    bool operator==(const SeqSet& other) const = default;

private:
    std::vector<site::SeqRange> m_ranges; ///< in order, with a gap between each two
};

} // namespace host
