// The window "记录版本".
#pragma once

#include "host/ui/rich/VersionPages.h"
#include "host/ui/rich/VersionSource.h"

#include <QDialog>
#include <QTimer>

#include <optional>

class QLabel;
class QPushButton;

namespace host {

class CompareView;
class RecordPanel;
class VersionPanel;

/// Shows the records of the open projects, the versions of the chosen one, and what differs between
/// two of these; makes an earlier one the newest again. Knows no database. What is read follows
/// what is chosen, one question to the source after the other and only while it is shown; it may be
/// closed meanwhile. Modeless, gone when it is closed. Thread: user interface. Owned by its parent
/// widget.
class VersionWindow final : public QDialog {
    Q_OBJECT

public:
    /// The source must outlive the window.
    VersionWindow(QWidget* parent, IVersionSource& versionSource);

    /// Reads records and versions anew; what is chosen stays chosen.
    void Reload();
    /// Chooses a record, now or when the records have been read.
    void ShowRecord(const QString& id);

signals:
    /// A version of a record became its newest one.
    void Restored(const QString& record);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

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
    QWidget* MakeVersionButtons();
    /// Reads until what is shown is what is chosen.
    void CatchUp();
    /// At most one question to the source. False: nothing is left to be read. The window may be
    /// gone, whatever the answer.
    bool ReadNext();
    void ReadRecords();
    void ReadVersions(const QString& record);
    void ReadText(const Pair& pair, qint64 version);
    [[nodiscard]] Pair ChosenPair() const;
    void ShowPair(const Pair& pair);
    void ShowHeading(const Pair& pair);
    void ChooseAnew();
    void Restore();
    void ShowNotice(const QString& text, bool isFault);
    void ShowVersionButtons();

    IVersionSource& m_source;
    RecordPanel* m_records = nullptr;
    VersionPanel* m_versions = nullptr;
    QLabel* m_heading = nullptr;
    CompareView* m_compare = nullptr;
    QLabel* m_notice = nullptr;
    QPushButton* m_restore = nullptr;
    VersionPages m_pages;
    QTimer m_pause{this};            ///< while keys run through a table, nothing is read
    QString m_wanted;                ///< record to be chosen once the records are read
    std::optional<QString> m_listed; ///< whose versions were read
    QString m_filled;                ///< whose versions are in the table
    std::optional<Pair> m_compared;
    bool m_areRecordsRead = false;
    bool m_wereRecordsRead = false; ///< before
    bool m_isAsking = false;
    bool m_hasFault = false;
};

} // namespace host
