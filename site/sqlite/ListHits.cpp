#include "site/sqlite/ListHits.h"

#include "site/sqlite/SearchIndex.h"
#include "site/sqlite/SearchText.h"

#include <algorithm>
#include <functional>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kKeptHits = 8;

// The set that add_hit() fills for as long as this object lives.
class HitTarget {
public:
    HitTarget(Database& owner, HitSet& set) : m_database(owner) { m_database.Hits().hits = &set; }
    ~HitTarget() { m_database.Hits().hits = nullptr; }
    HitTarget(const HitTarget&) = delete;
    HitTarget& operator=(const HitTarget&) = delete;

private:
    Database& m_database;
};

QString LabelSql(const ListShape& shape) {
    return shape.kind == ListKind::BimPhotos
               ? u"SELECT count(add_hit(photo_id)) FROM bim_label WHERE label_id = ? AND ppid = ?"_s
               : u"SELECT count(add_hit(p.id)) FROM checkpoint_label c CROSS JOIN pdf_photo p"
                 " ON p.checkpoint_id = c.checkpoint_id WHERE c.label_id = ? AND p.ppid = ?"_s;
}

/// What of a filter decides about the hits.
ListFilter PartOf(const ListShape& shape, const ListFilter& filter) {
    ListFilter part;
    part.ppids = filter.ppids;
    part.keyword = filter.keyword;
    part.labelId = filter.labelId;
    if (shape.kind == ListKind::BimPhotos) {
        part.floor = filter.floor;
        part.unfiled = filter.unfiled;
        part.filed = filter.filed;
    }
    return part;
}

} // namespace

std::shared_ptr<ListHits::Hits> ListHits::Of(const ListShape& shape, const ListFilter& filter,
                                             quint64 state) {
    const ListFilter part = PartOf(shape, filter);
    if (part.keyword.isEmpty() && !part.labelId && !part.floor && !part.unfiled && !part.filed) {
        return nullptr;
    }
    const QString key = KeyOf(shape.kind, part);
    const auto found = std::find_if(m_kept.begin(), m_kept.end(), [&](const Kept& entry) {
        return entry.key == key && entry.state == state;
    });
    if (found != m_kept.end()) {
        m_kept.splice(m_kept.begin(), m_kept, found);
        return m_kept.front().hits;
    }
    auto hits = std::make_shared<Hits>(Hits{HitSet(shape.firstId), 0});
    bool isFirst = true;
    const auto limit = [&](bool wanted, const std::function<void(HitSet&)>& fill) {
        if (!wanted) {
            return;
        }
        HitSet limited(shape.firstId);
        fill(limited);
        if (isFirst) {
            hits->set = std::move(limited);
        } else {
            hits->set.Intersect(limited);
        }
        isFirst = false;
    };
    limit(!part.keyword.isEmpty(), [&](HitSet& set) { AddKeyword(shape, part, set); });
    limit(part.labelId.has_value(), [&](HitSet& set) { AddLabel(shape, part, set); });
    limit(part.floor.has_value(),
          [&](HitSet& set) { AddRows(part, u"floor = ?"_s, {*part.floor}, set); });
    limit(part.unfiled, [&](HitSet& set) {
        AddRows(part, u"(floor = '' OR mark_id NOT IN (SELECT id FROM mark))"_s, {}, set);
    });
    limit(part.filed.has_value(), [&](HitSet& set) {
        AddRows(part, u"id BETWEEN ? AND ? AND uploader = ?"_s,
                {part.filed->first, part.filed->last, part.filed->person}, set);
    });
    hits->count = hits->set.Count();
    m_kept.remove_if([&](const Kept& entry) { return entry.key == key; });
    m_kept.push_front({key, state, hits});
    if (m_kept.size() > kKeptHits) {
        m_kept.pop_back();
    }
    return hits;
}

void ListHits::AddKeyword(const ListShape& shape, const ListFilter& filter, HitSet& set) {
    const HitTarget target(m_database, set);
    const QString sql = u"SELECT count(add_hit(rowid & 4294967295)) FROM %1 WHERE %1 MATCH ?"
                        " AND rowid BETWEEN ? AND ?"_s.arg(shape.searchTable);
    for (const qint32 ppid : filter.ppids) {
        (void)m_database.Value(sql, {SearchPhrase(filter.keyword), SearchRowId(ppid, 0),
                                     SearchRowId(ppid, 0xffffffffLL)});
    }
}

void ListHits::AddRows(const ListFilter& filter, const QString& condition,
                       const QVariantList& values, HitSet& set) {
    const HitTarget target(m_database, set);
    for (const qint32 ppid : filter.ppids) {
        (void)m_database.Value(u"SELECT count(add_hit(id)) FROM bim_photo WHERE ppid = ? AND "_s +
                                   condition,
                               QVariantList{ppid} + values);
    }
}

void ListHits::AddLabel(const ListShape& shape, const ListFilter& filter, HitSet& set) {
    const HitTarget target(m_database, set);
    for (const qint32 ppid : filter.ppids) {
        (void)m_database.Value(LabelSql(shape), {*filter.labelId, ppid});
    }
}

} // namespace site
