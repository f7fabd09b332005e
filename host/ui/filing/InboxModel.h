// Photos that wait to be filed, as rows of a list.
#pragma once

#include <QAbstractListModel>
#include <QCache>
#include <QPixmap>
#include <QSet>

#include <vector>

namespace host {

struct InboxItem {
    qint32 picId = 0;
    qint32 ppid = 0;
    QString name;
    QString time; ///< when it was filed, as text
    QString lack; ///< what is missing
    QString person;
    QString floor;
    QString positionKey;
    qint32 markId = 0;
    QString uuid;  ///< of its picture; empty: none
    QString facts; ///< what its camera knew, in one line; empty: nothing

    bool operator==(const InboxItem& other) const = default;
};

/// In the order in which they come; the display text of a row is all that it says. Pictures are
/// asked for as they come in sight, and a bounded number of them is kept. Thread: user interface.
class InboxModel final : public QAbstractListModel {
    Q_OBJECT

public:
    explicit InboxModel(QObject* parent);
    using Items = std::vector<InboxItem>;

    /// @param all  how many there are; the rest is asked for as one scrolls on.
    void SetItems(Items newItems, int all);
    void Append(const Items& more, int all);
    [[nodiscard]] const Items& All() const { return m_items; }
    [[nodiscard]] const InboxItem& At(int row) const { return m_items[std::size_t(row)]; }
    [[nodiscard]] int Total() const { return m_total; }

    /// Null: it can't be had.
    void SetPicture(const QString& uuid, const QPixmap& picture);
    /// It is asked for again when it is in sight again.
    void ForgetPicture(const QString& uuid) { m_asked.remove(uuid); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

signals:
    void PictureWanted(qint32 ppid, const QString& uuid) const;
    void MoreWanted();

private:
    [[nodiscard]] QPixmap PictureOf(const InboxItem& item) const;

    Items m_items;
    int m_total = 0;
    bool m_isFetching = false;
    QPixmap m_blank; ///< stands for a picture that isn't there yet
    mutable QCache<QString, QPixmap> m_pictures;
    mutable QSet<QString> m_asked; ///< under way, or not to be had
};

} // namespace host
