// A place where a site is to be made, and that becomes as it was if nothing comes of it.
#pragma once

#include <QString>
#include <QStringList>

namespace site {

/// Looks at the place when it is made, and changes nothing until it is told to take back.
/// Thread: any.
class FreshPlace final {
public:
    explicit FreshPlace(const QString& place);

    /// An opening would make a new site: the place is missing, empty, or holds what an opening left
    /// that was cut short.
    [[nodiscard]] bool IsFree() const { return m_free; }

    /// Removes what openings have made since, and the folders that weren't there before, down from
    /// the first one. What somebody else put there stays, as does a place that wasn't free. The
    /// site is closed, and nothing was filed in it.
    void TakeBack() const;

private:
    QString m_root;
    bool m_free = false;
    QStringList m_missing; ///< folders that weren't there, the lowest first
};

} // namespace site
