// Which rows a keyword, a label and the like leave, kept until the data change.
#pragma once

#include "site/ListFilter.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/HitSet.h"
#include "site/sqlite/ListShape.h"

#include <list>
#include <memory>

namespace site {

/// Thread: the database's.
class ListHits final {
public:
    explicit ListHits(Database& owner) : m_database(owner) {}

    struct Hits {
        HitSet set;
        qint64 count = 0;
    };
    /// Null if the filter has nothing of that kind. Holds rows of the filter's projects only.
    /// @param state  of the data that the filter is about, see ChangeLog
    [[nodiscard]] std::shared_ptr<Hits> Of(const ListShape& shape, const ListFilter& filter,
                                           quint64 state);

private:
    struct Kept {
        QString key;
        quint64 state = 0; ///< of the data
        std::shared_ptr<Hits> hits;
    };
    void AddKeyword(const ListShape& shape, const ListFilter& filter, HitSet& set);
    void AddLabel(const ListShape& shape, const ListFilter& filter, HitSet& set);
    void AddRows(const ListFilter& filter, const QString& condition, const QVariantList& values,
                 HitSet& set);

    Database& m_database;
    std::list<Kept> m_kept; ///< latest first
};

} // namespace site
