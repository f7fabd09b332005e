// What of the mark panel's tree is ticked.
#pragma once

#include "host/ui/marks/MarkTree.h"

#include <QJsonObject>

#include <set>

namespace host {

/// One issue below a mark.
struct MarkEntry {
    QString group;
    qint32 markId = 0;
    QString key;

    bool operator==(const MarkEntry&) const = default;
    bool operator<(const MarkEntry& other) const;
};

/// Ticks as rules with exceptions: "all", "all but floor 3", "of floor 3 only mark 5". So what
/// comes into the tree later is ticked as its surroundings are, and a million entries cost nothing.
/// A value; functions touch no window.
class MarkTicks final {
public:
    /// Everything is ticked.
    MarkTicks() = default;

    void SetAll(bool on);
    void SetFloor(const QString& group, bool on);
    void SetMark(const QString& group, qint32 markId, bool on);
    void SetEntry(const QString& group, qint32 markId, const QString& key, bool on);
    /// Writes the rules as short as the tree allows: a floor whose marks are all ticked becomes a
    /// floor that is ticked, and so on. Rules about what the tree doesn't list stay. For after a
    /// person's click, not for after a reload.
    void Tidy(const MarkTree& tree);
    /// The entries that are ticked otherwise than their mark.
    [[nodiscard]] std::set<MarkEntry> Exceptions() const;
    /// Exceptions that the tree doesn't list at present: they stay, but don't count in its states.
    void SetUnlisted(const std::set<MarkEntry>& unlisted);
    /// Forgets exceptions about entries that are gone.
    void Forget(const std::set<MarkEntry>& gone);

    [[nodiscard]] bool IsMarkTicked(const QString& group, qint32 markId) const;
    [[nodiscard]] bool IsEntryTicked(const QString& group, qint32 markId, const QString& key) const;
    [[nodiscard]] Qt::CheckState StateOf(const MarkTreeFloor& floor) const;
    [[nodiscard]] Qt::CheckState StateOf(const MarkTreeFloor& floor,
                                         const MarkTreeMark& mark) const;
    /// Photos or issues that are ticked.
    [[nodiscard]] qint32 TickedCount(const MarkTree& tree) const;

    [[nodiscard]] QJsonObject ToJson() const;
    /// What isn't understood counts as ticked.
    [[nodiscard]] static MarkTicks FromJson(const QJsonObject& json);

    bool operator==(const MarkTicks&) const = default;

private:
    struct Mark {
        bool rest = true;
        std::set<QString> others; ///< entries that are the other way round
        std::set<QString> away;   ///< more of them, not listed at present
        [[nodiscard]] bool IsPlain(bool on) const {
            return rest == on && others.empty() && away.empty();
        }
        bool operator==(const Mark&) const = default;
    };
    struct Floor {
        bool rest = true;
        std::map<qint32, Mark> marks; ///< those that aren't like the rest
        bool operator==(const Floor&) const = default;
    };
    [[nodiscard]] bool RestOf(const QString& group) const;
    [[nodiscard]] bool RestOf(const QString& group, qint32 markId) const;
    /// Null: the mark is as the rest.
    [[nodiscard]] const Mark* FindMark(const QString& group, qint32 markId) const;
    Mark& MarkFor(const QString& group, qint32 markId);
    void TidyFloor(const MarkTreeFloor& floor);

    bool m_rest = true;
    std::map<QString, Floor> m_floors; ///< those that aren't like the rest
};

} // namespace host
