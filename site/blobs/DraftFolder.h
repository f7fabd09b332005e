// Drafts in a folder: one below it for each, with a file that says what it is.
#pragma once

#include "site/IDrafts.h"

#include <functional>
#include <memory>
#include <optional>

class QLockFile;

namespace site {

/// A draft appears as a whole or not at all: it is made beside the others under a name that no
/// draft has, and renamed. What a crash left of the making goes with the next one.
class DraftFolder final : public IDrafts {
public:
    /// @param now  seconds since 1970.
    DraftFolder(QString folderPath, std::function<qint64()> now);
    ~DraftFolder() override;

    void Keep(const KX_DATA::RichTextDraft& draft, const QString& person) override;
    void KeepOpen(const KX_DATA::RichTextDraft& draft, const QString& person) override;
    void DropOpen(const KX_DATA::RichTextKey& key, const QString& docName,
                  const QString& person) override;
    int AdoptOpen(const QString& person) override;
    [[nodiscard]] std::vector<Draft> Of(const QString& person) override;
    [[nodiscard]] std::optional<Draft> One(const QString& id, const QString& person) override;
    void Remove(const QString& id) override;

private:
    /// One below the folder, and who is still writing it.
    struct Found {
        Draft draft;
        QString client; ///< empty: nobody
    };
    [[nodiscard]] std::optional<Found> Read(const QString& id) const;
    [[nodiscard]] std::vector<Found> All() const;
    /// All whose time isn't over; removes the others, and what a crash left.
    [[nodiscard]] std::vector<Found> Young();
    /// @param client  empty: a draft at once. Gives its id.
    QString Put(const KX_DATA::RichTextDraft& draft, const QString& person, const QString& client);
    /// From now on other clients see that this one runs.
    void TellThatThisRuns();
    [[nodiscard]] QString SignOf(const QString& client) const;
    [[nodiscard]] bool IsRunning(const QString& client) const;

    QString m_folder;
    std::function<qint64()> m_now;
    QString m_client;                  ///< this one among all that use the folder
    std::unique_ptr<QLockFile> m_sign; ///< null: this client has kept nothing open yet
};

} // namespace site
