// Texts in order as numbers in order: most comparisons of keys without touching their characters.
#pragma once

#include <QString>

/// Made for a set of keys that begin alike. A number stands for the characters behind the common
/// beginning: eight of them if all are of Latin 1, else four. Of two keys that fit, the lesser one
/// never has the greater number.
class KeyPrefix final {
public:
    /// Collects the keys.
    class Finder final {
    public:
        void Add(const QString& key);
        [[nodiscard]] KeyPrefix Result() const;

    private:
        QString m_first; ///< least of the keys
        QString m_last;  ///< greatest of them
        bool m_hasKeys = false;
        bool m_isLatin = true;
    };

    /// True if the key has the common beginning; a key that hasn't isn't in the set.
    [[nodiscard]] bool Fits(const QString& key) const { return key.startsWith(m_common); }
    /// Only for keys that fit.
    [[nodiscard]] quint64 NumberOf(const QString& key) const;

private:
    QString m_common;
    bool m_isLatin = true;
};
