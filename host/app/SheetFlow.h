// The console's list as a spreadsheet: question, progress, result.
#pragma once

#include "host/sheet/ListReader.h"
#include "host/ui/SheetDialog.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <stop_token>

namespace host {

class HostSession;
class MainWindow;
class ProgressWindow;
class SheetJob;
class Surroundings;
struct SheetResult;

/// Remembers what the open console asked last, in whatever order and of whichever kind; all pages
/// of that are written, not only the one in sight. The rows are those that the console shows this
/// person. One at a time. What it is made of must outlive it; destroying it cancels. Thread: user
/// interface.
class SheetFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        Surroundings& around;
    };

    explicit SheetFlow(const Parts& flowParts);
    ~SheetFlow() override;

    /// Why there is nothing to write now; empty if there is.
    [[nodiscard]] QString WhyNot() const;
    /// Opens the question.
    void Ask();

signals:
    /// Another answer of WhyNot.
    void Changed();
    /// A console that wasn't open before has asked for its list.
    void ConsoleOpened(QWidget* console);

private:
    void NoteAsked(site::ListKind kind, const site::ListFilter& filter,
                   const site::ListOrder& order);
    void AskForFile();
    void Begin(const QString& path);
    void End(const SheetResult& result);
    /// Where the person is; one of the two is empty.
    void TellEnd(const QString& fault, const QString& question);
    [[nodiscard]] QString ProposedName() const;
    /// Of the projects that were searched.
    [[nodiscard]] QString ProjectsName() const;

    const Parts m_parts;
    QPointer<QWidget> m_console; ///< that asked
    ListQuestion m_asked;
    QPointer<SheetDialog> m_dialog;
    SheetChoice m_choice; ///< the last one
    QString m_folder;     ///< the last one; empty: none yet
    QString m_path;       ///< of the running job
    QPointer<ProgressWindow> m_progress;
    std::unique_ptr<SheetJob> m_job;
    std::stop_source m_pictures; ///< fetching for the running job
};

} // namespace host
