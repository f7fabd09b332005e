// Drafts in a folder: one below it for each, with a file that says what it is.
#pragma once

#include "site/IDrafts.h"

#include <functional>
#include <optional>

namespace site {

/// A draft appears as a whole or not at all: it is made beside the others under a name that no
/// draft has, and renamed. What a crash left of the making goes with the next one.
class DraftFolder final : public IDrafts {
public:
    /// @param now  seconds since 1970.
    DraftFolder(QString folderPath, std::function<qint64()> now);

    void Keep(const KX_DATA::RichTextDraft& draft, const QString& person) override;
    [[nodiscard]] std::vector<Draft> Of(const QString& person) override;
    void Remove(const QString& id) override;

private:
    [[nodiscard]] std::optional<Draft> Read(const QString& id) const;
    [[nodiscard]] std::vector<Draft> All() const;
    /// All whose time isn't over; removes the others, and what a crash left.
    [[nodiscard]] std::vector<Draft> Young();

    QString m_folder;
    std::function<qint64()> m_now;
};

} // namespace site
