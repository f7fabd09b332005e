// A widget that writes down what mouse, keys and input method bring.
#pragma once

#include <QWidget>

#include <functional>

namespace hands {

/// Takes the focus by a click, text of an input method, and nothing that is dropped.
class Recorder final : public QWidget {
public:
    explicit Recorder(QWidget* parent = nullptr);

    /// In order: "press 20,10", "release 20,10", "double 20,10", "move 20,10" (left button held),
    /// "hover 20,10", "wheel 240", "key a", "commit 中文"; a modifier stands in front:
    /// "Ctrl+press".
    QStringList seen;
    /// After a press was written down.
    std::function<void()> onPress;

protected:
    bool event(QEvent* event) override;

private:
    void NoteMouse(const QString& what, const QEvent& event);
};

/// Shows a window and waits until it has the keyboard.
[[nodiscard]] bool ShowInFront(QWidget& window);

} // namespace hands
