// The window "记录版本".
#pragma once

#include "host/ui/rich/ReadingWindow.h"
#include "host/ui/rich/VersionPages.h"
#include "host/ui/rich/VersionSource.h"

#include <optional>

class QLabel;

namespace host {

class CompareView;
class RecordPanel;
class VersionPanel;

/// Shows the records of the open projects, the versions of the chosen one, and what differs between
/// two of these; makes an earlier one the newest again.
class VersionWindow final : public ReadingWindow {
    Q_OBJECT

public:
    /// The source must outlive the window.
    VersionWindow(QWidget* parent, IVersionSource& versionSource);

    /// Chooses a record, now or when the records have been read.
    void ShowRecord(const QString& id);

signals:
    /// A version of a record became its newest one.
    void Restored(const QString& record);

protected:
    bool ReadNext() override;
    void Forget(bool hadFault) override;
    void ShowButtons() override;

private:
    /// What is compared.
    struct Pair {
        QString record;
        qint64 from = kNoVersion;
        qint64 to = kNoVersion;

        friend bool operator==(const Pair&, const Pair&) = default;
    };
    static constexpr qint64 kNoVersion = -1;

    QWidget* MakeTables();
    QWidget* MakeComparison();
    void ReadRecords();
    void ReadVersions(const QString& record);
    void ReadText(const Pair& pair, qint64 version);
    [[nodiscard]] Pair ChosenPair() const;
    void ShowPair(const Pair& pair);
    void ShowHeading(const Pair& pair);
    void ChooseAnew();
    void Restore();

    IVersionSource& m_source;
    RecordPanel* m_records = nullptr;
    VersionPanel* m_versions = nullptr;
    QLabel* m_heading = nullptr;
    CompareView* m_compare = nullptr;
    VersionPages m_pages;
    QString m_wanted;                ///< record to be chosen once the records are read
    std::optional<QString> m_listed; ///< whose versions were read
    QString m_filled;                ///< whose versions are in the table
    std::optional<Pair> m_compared;
    bool m_areRecordsRead = false;
    bool m_wereRecordsRead = false; ///< before
};

} // namespace host
