// Tells subscribers what the table of changes says, as soon as another program's commit shows in
// the log file.
#pragma once

#include "site/IChanges.h"
#include "site/sqlite/Database.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace site {

/// One's own commits and others' write into the log file, which wakes it; then it looks at once and
/// again after short whiles, since a commit counts only some time after its bytes came. Where files
/// can't be watched it looks every two seconds. Needs an event loop for that; without one, Look.
/// Thread: the database's.
class ChangeFeed final : public QObject, public IChanges {
    Q_OBJECT

public:
    explicit ChangeFeed(Database& owner);
    ~ChangeFeed() override;

    void SetPerson(const QString& name) override { m_database.Log().SetPerson(name); }
    [[nodiscard]] qint64 Mark() const override { return m_told; }
    [[nodiscard]] Past Since(qint64 mark, int most) override;
    [[nodiscard]] std::shared_ptr<void> Subscribe(Listener listener) override;
    void Look() override;

private:
    using Place = std::shared_ptr<Listener>;

    /// Hands on what the database's questions have found.
    void Tell();
    static void TellOne(const Listener& listener, const Changes& changes);
    void Watch();
    void OnWritten();
    void LookAgain();

    Database& m_database;
    std::vector<std::weak_ptr<Listener>> m_listeners;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
    QTimer m_next;
    std::size_t m_step = 0;
    qint64 m_told = 0;
    bool m_telling = false;
};

} // namespace site
