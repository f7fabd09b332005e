// What others filed, as rows of a list.
#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QPixmap>

#include <vector>

namespace host {

struct CatchUpItem {
    qint64 seq = 0; ///< grows with each commit
    bool isIssue = false;
    bool isRead = false;
    qint32 ppid = 0;
    qint32 picId = 0;   ///< of a photo
    QString questionId; ///< of an issue, as the component that it is raised against
    QString handle;
    QString name; ///< file name or theme
    QString person;
    QString time; ///< as text
    QString place;
    QString floor;
    QString positionKey;
    qint32 markId = 0;
    QString markName;
    QString uuid; ///< of its picture; empty: none
    QString tip;  ///< a further line for who looks closer; empty: none

    bool operator==(const CatchUpItem& other) const = default;
};

/// Newest first. The display text of a row is all that it says, for who can't see it.
/// Thread: user interface.
class CatchUpModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;
    using Items = std::vector<CatchUpItem>;

    void SetItems(Items items);
    /// Behind these there may be older ones.
    void SetHasMore(bool hasMore) { m_hasMore = hasMore; }
    /// The newest of them first, all newer than what is listed.
    void Prepend(const Items& items);
    void Append(const Items& items);
    void MarkRead(int row);
    void MarkAllRead();

    [[nodiscard]] const Items& All() const { return m_items; }
    [[nodiscard]] const CatchUpItem& At(int row) const { return m_items[std::size_t(row)]; }

    /// Null until it came; asks for one that wasn't wanted before.
    [[nodiscard]] QPixmap PictureOf(const CatchUpItem& item);
    void SetPicture(const QString& uuid, const QPixmap& picture);
    /// It is asked for again when it is in sight again.
    void ForgetPicture(const QString& uuid) { m_pictures.remove(uuid); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

signals:
    void PictureWanted(qint32 ppid, const QString& uuid);
    /// Older ones than this number.
    void MoreWanted(qint64 before);

private:
    Items m_items;
    bool m_hasMore = false;
    QHash<QString, QPixmap> m_pictures; ///< null: asked for
};

} // namespace host
