// Says where dropped files will go, while they are held over a window.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QStringList>

#include <functional>

class QDropEvent;
class QLabel;

namespace host {

/// A line over the lower edge of the window. Lives on the interface thread, owned by the window.
class DropHint final : public QObject {
    Q_OBJECT

public:
    /// What to say of these paths at this place of the window; empty: nothing.
    using Where = std::function<QString(const QStringList& paths, const QPoint& at)>;
    enum class Drops {
        OfWindow, ///< the window takes them itself
        Taken     ///< the window knows nothing of them: they are taken here, and told
    };

    DropHint(QWidget* window, Where where, Drops drops);

    /// What stands there now; empty: nothing.
    [[nodiscard]] QString Text() const;

signals:
    void PathsDropped(const QStringList& paths);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// True for one that the window must not see.
    bool Take(QDropEvent& event);
    void Show(const QString& text);

    QWidget* m_window;
    Where m_where;
    Drops m_drops;
    QPointer<QLabel> m_label; ///< while something is said
};

} // namespace host
