// The client's progress strip.
#pragma once

#include "services/IKXProgressStrip.h"

#include <QPointer>
#include <QWidget>

class QLabel;

namespace host {

/// A strip with a text and a bar that moves, in the lower left corner of the screen of the window
/// in use. It blocks nothing, never takes the keyboard, and stays above the other windows until it
/// is closed. Work during which no event is handled doesn't show it. Thread: user interface.
class ProgressStrip final : public KX_DATA::IKXProgressStrip {
public:
    ProgressStrip() = default;
    ~ProgressStrip() override;
    ProgressStrip(const ProgressStrip&) = delete;
    ProgressStrip& operator=(const ProgressStrip&) = delete;

    void ShowProgressBar(const QString& text, qint32 value) override;
    void SetShowInfo(const QString& text) override;
    void CloseProgressBar() override;

    /// Null while it isn't shown.
    [[nodiscard]] QWidget* Window() const { return m_window; }

private:
    void Make();
    void Place() const;

    QPointer<QWidget> m_window;
    QPointer<QLabel> m_text;
    QPointer<QObject> m_coming; ///< with it goes the showing that is still to come
};

} // namespace host
