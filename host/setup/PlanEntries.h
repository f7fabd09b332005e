// Entries of the lists of a setup by their names.
#pragma once

#include <QHash>
#include <QStringList>

#include <vector>

namespace host {

/// Places of a list's entries by their names.
template <typename Entry> QHash<QString, size_t> PlacesOf(const std::vector<Entry>& entries) {
    QHash<QString, size_t> places;
    for (size_t i = 0; i < entries.size(); ++i) {
        places.insert(entries[i].name, i);
    }
    return places;
}

template <typename Entry> QStringList NamesIn(const std::vector<Entry>& entries) {
    QStringList names;
    for (const Entry& entry : entries) {
        names << entry.name;
    }
    return names;
}

/// The entry of that name, made if there is none.
template <typename Entry>
Entry& EntryNamed(const QString& name, std::vector<Entry>& entries, QHash<QString, size_t>& places,
                  bool& isNew) {
    const auto known = places.constFind(name);
    isNew = known == places.constEnd();
    if (!isNew) {
        return entries[*known];
    }
    places.insert(name, entries.size());
    entries.emplace_back();
    entries.back().name = name;
    return entries.back();
}

} // namespace host
