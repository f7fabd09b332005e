// The issue tree of the mark panel, ready to be cut down to what is ticked many times over.
#pragma once

#include "reminder/marks/KeyPrefix.h"
#include "services/MarkGroups.h"

#include <map>
#include <vector>

/// Keeps the entries in the order of their keys, which is the order in which ticked keys come.
/// Thread: user interface.
class IssueMarkTree final {
public:
    /// Of entries with the same key the first one is kept.
    void SetGroups(const std::vector<KX_DATA::IssueMarkGroup>& groups);
    void Clear() { *this = {}; }

    /// The entry of each ticked key, in key order, each alone in a copy of its group; keys with no
    /// entry add nothing.
    [[nodiscard]] std::vector<KX_DATA::IssueMarkGroup>
    Cut(const KX_DATA::ShownIssueMarks& selection) const;
    /// Text of each entry by its key; of entries with the same key that of the last one.
    [[nodiscard]] const std::map<QString, QString>& Names() const { return m_names; }

private:
    struct Ref;
    [[nodiscard]] std::vector<Ref> SortedRefs(const std::vector<KX_DATA::IssueMarkGroup>& groups);
    /// An entry that may have a ticked key; whether it has is seen when it is copied.
    struct Candidate {
        quint32 entry;
        const QString* key;
    };
    [[nodiscard]] std::vector<Candidate> Find(const KX_DATA::ShownIssueMarks& selection) const;
    [[nodiscard]] quint32 FindNear(const QString& key, quint32 from) const;
    [[nodiscard]] quint32 FindBehind(const QString& key, quint32 from) const;

    KeyPrefix m_prefix;
    std::vector<quint64> m_numbers;       ///< of the keys, rising; numbers.size() == entries.size()
    std::vector<const QChar*> m_keyTexts; ///< where the characters of each entry's key are
    std::vector<KX_DATA::IssueMarkEntry> m_entries;
    std::vector<quint32> m_headOf;                ///< of each entry
    std::vector<KX_DATA::IssueMarkGroup> m_heads; ///< the groups without their entries
    std::map<QString, QString> m_names;
};
