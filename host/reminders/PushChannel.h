// Tells of what comes into the site while the client runs.
#pragma once

#include "site/IFilings.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace site {
class ISite;
} // namespace site

namespace host {

/// Reads on whenever the feed of changes tells of any, never else: at rest nothing is asked. What
/// was there before it began is no news. Of very many the window stays alive between two portions.
/// Thread: user interface.
class PushChannel final : public QObject {
    Q_OBJECT

public:
    /// The site must outlive the channel. Throws DataError.
    explicit PushChannel(site::ISite& from);

    /// Up to here all filings were told, or are older than the channel.
    [[nodiscard]] qint64 Mark() const { return m_mark; }

signals:
    /// Each once, in order of commit; one's own among them, which say so.
    void Filed(const site::Filings& filings);
    /// They can't be read now; it goes on as soon as they can. Told once for each such time.
    void Failed(const QString& text);

private:
    void ReadOn();

    site::ISite& m_site;
    qint64 m_mark = 0;
    QTimer m_next;
    bool m_hasFailed = false;
    std::shared_ptr<void> m_changes;
};

} // namespace host
