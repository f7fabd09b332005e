// The console that stands open: what it asked last, and which of its rows are ticked.
#pragma once

#include "host/sheet/ListReader.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

class QAbstractItemView;

namespace host {

class MainWindow;
class Surroundings;

/// A row of the page in sight.
struct ConsoleRow {
    QString key;  ///< id of a photo or issue
    QString name; ///< of the file, or theme
};

/// Knows the console by what it asks of the services, and by what its window shows to everybody.
/// Commands about its list are heard in it, too. What it is made of must outlive it. Thread: user
/// interface.
class ConsoleWatch final : public QObject {
    Q_OBJECT

public:
    ConsoleWatch(MainWindow& mainWindow, Surroundings& surroundings);
    ~ConsoleWatch() override;

    /// Null while none is open, or the open one hasn't searched yet.
    [[nodiscard]] QWidget* Console() const;
    /// Its list; null without a console.
    [[nodiscard]] QAbstractItemView* Grid() const;
    /// In whatever order and of whichever kind; all pages of it. Of the last console, once it is
    /// closed.
    [[nodiscard]] const ListQuestion& Asked() const { return m_asked; }
    /// Of the page in sight, from above.
    [[nodiscard]] std::vector<ConsoleRow> Ticked() const;

signals:
    /// One was opened or has ended.
    void Changed();
    /// Another one has searched for the first time.
    void Opened(QWidget* console);
    /// The current row is another photo of the model now.
    void PhotoChosen(qint32 picId);

private:
    void NoteAsked(const ListQuestion& asked);
    void FollowRows();

    MainWindow& m_window;
    Surroundings& m_around;
    QPointer<QWidget> m_console; ///< that asked
    ListQuestion m_asked;
};

} // namespace host
