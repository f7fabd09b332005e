// The files of a report on their way into the cache.
#pragma once

#include "host/app/ReportReader.h"

#include <QObject>

#include <optional>
#include <stop_token>

namespace host {

/// Fetches what a report wants, one file after the other beside the interface, and puts it into the
/// content as it comes. Ending it ends the fetching. Thread: user interface.
class ReportFetch final : public QObject {
    Q_OBJECT

public:
    /// Takes what lies in the cache. The session must outlive it.
    ReportFetch(HostSession& hostSession, ReportReading reportReading, QObject* parent);
    ~ReportFetch() override;

    /// Stepped and Ended come, Ended at the latest with the next events where nothing is left.
    void Begin();
    /// What hasn't come by now won't.
    void Stop();
    [[nodiscard]] const ReportContent& Content() const { return m_reading.content; }

signals:
    void Stepped(int done, int total);
    /// @param missing  pictures that didn't come.
    void Ended(int missing);

private:
    void TakeCached();
    void StartNext();
    void Take(size_t wish, bool isThere, const QString& fault);
    void PutIn(const ReportWish& wish);
    void End();

    HostSession& m_session;
    ReportReading m_reading;
    std::vector<size_t> m_left;      ///< indexes of wishes, the next one last
    std::optional<size_t> m_running; ///< the wish on its way
    int m_total = 0;
    int m_missing = 0;
    bool m_isEnded = false;
    std::stop_source m_stop;
    std::stop_source m_transfer{std::nostopstate}; ///< of the file that is on its way
};

} // namespace host
