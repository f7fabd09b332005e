// The console's list as a spreadsheet: question, progress, result.
#pragma once

#include "host/sheet/ListReader.h"
#include "host/ui/SheetDialog.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <stop_token>

namespace host {

class ConsoleWatch;
class HostSession;
class MainWindow;
class ProgressWindow;
class SheetJob;
struct SheetResult;

/// Writes what the open console asked last: all pages of that, not only the one in sight. The rows
/// are those that the console shows this person. One at a time. What it is made of must outlive it;
/// destroying it cancels. Thread: user interface.
class SheetFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        const ConsoleWatch& console;
    };

    explicit SheetFlow(const Parts& flowParts);
    ~SheetFlow() override;

    /// Why there is nothing to write now; empty if there is.
    [[nodiscard]] QString WhyNot() const;
    /// Opens the question.
    void Ask();

signals:
    /// Another answer of WhyNot, whatever the console.
    void Changed();

private:
    void AskForFile();
    void Begin(const QString& path);
    void End(const SheetResult& result);
    /// Where the person is; one of the two is empty.
    void TellEnd(const QString& fault, const QString& question);
    [[nodiscard]] QString ProposedName() const;
    /// Of the projects that were searched.
    [[nodiscard]] QString ProjectsName() const;

    const Parts m_parts;
    QPointer<SheetDialog> m_dialog;
    SheetChoice m_choice; ///< the last one
    QString m_folder;     ///< the last one; empty: none yet
    QString m_path;       ///< of the running job
    QPointer<ProgressWindow> m_progress;
    std::unique_ptr<SheetJob> m_job;
    std::stop_source m_pictures; ///< fetching for the running job
};

} // namespace host
