// The window of drafts and its drafts in the open data folder.
#pragma once

#include "host/ui/rich/DraftSource.h"
#include "site/IDrafts.h"
#include "site/IRichTexts.h"

#include <optional>

namespace host {

class HostSession;

/// Those of the person who is signed in. Thread: user interface.
class SessionDrafts final : public IDraftSource {
public:
    explicit SessionDrafts(HostSession& hostSession) : m_session(hostSession) {}

    [[nodiscard]] DraftList ReadDrafts() override;
    [[nodiscard]] PageText ReadText(const QString& draft) override;
    [[nodiscard]] QString BringBack(const QString& draft) override;
    [[nodiscard]] QString Remove(const QString& draft) override;

private:
    [[nodiscard]] DraftRow RowOf(const site::Draft& draft) const;
    [[nodiscard]] QString WordsOf(const KX_DATA::RichTextKey& key,
                                  const std::optional<site::RichPlace>& place) const;
    [[nodiscard]] std::optional<site::Draft> Find(const QString& id);
    /// Uploads its files and saves it as the newest version. An empty text: done; else why not.
    [[nodiscard]] QString SaveDraft(const site::Draft& draft);

    HostSession& m_session;
};

} // namespace host
