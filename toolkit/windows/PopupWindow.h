// Toasts: small windows in the corner of the screen that close by themselves.
#pragma once

#include "toolkit/windows/WindowObject.h"

#include <QElapsedTimer>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>

namespace toolkit {
class PopupStack;
} // namespace toolkit

class CBCGPPopupWindow;

/// What a toast shows. Its widget comes only when the toast has a place on the screen, and may
/// never come. Thread: user interface. Owned by its toast.
class TOOLKIT_EXPORT CBCGPPopupDlg : public toolkit::WindowObject {
public:
    /// The toast is being made: reads what it shows. Comes before any widget.
    virtual void OnInitDialog() {}
    /// Of the dialog, device-independent pixels; asked for once.
    [[nodiscard]] virtual QSize PreferredSize() const = 0;

protected:
    /// Closes the toast once the event in progress is over. Nothing without a window.
    void PostCloseToParent();

private:
    friend class CBCGPPopupWindow;
    CBCGPPopupWindow* m_popup = nullptr;
};

/// One toast: a tool window with a caption that never takes the keyboard. It stands in the lower
/// right corner of the screen on which the main window is, beside those that are there already;
/// where there is no room it waits, while its time runs, for the first place that gets free. It
/// dies with its owner window. Thread: user interface. Owns itself from Create on.
class TOOLKIT_EXPORT CBCGPPopupWindow final : public toolkit::WindowObject {
public:
    /// Kinds of animation, in the numbers of the platform that they come from.
    static constexpr int kNoAnimation = 0;
    static constexpr int kFade = 2;

    CBCGPPopupWindow();
    ~CBCGPPopupWindow() override;

    void SetAnimationType(int type) { m_animation = type; }
    /// Between two steps of the animation, milliseconds.
    void SetAnimationSpeed(int milliseconds) { m_animationSpeed = milliseconds; }
    /// From Create to the end, milliseconds; 0: until a person closes it.
    void SetAutoCloseTime(int milliseconds) { m_autoCloseTime = milliseconds; }
    void EnableSmallCaption(bool small) { m_smallCaption = small; }

    using MakeDialog = std::function<std::unique_ptr<CBCGPPopupDlg>()>;
    /// Makes the content and calls its OnInitDialog, then shows the toast or lets it wait; from now
    /// on the toast deletes itself. `owner` may be kNoWindow.
    void CreatePopup(toolkit::WindowId owner, const MakeDialog& makeDialog);
    void SetWindowText(const QString& caption);

    /// Of all that were made and haven't closed: those in sight, and those that wait for a place.
    [[nodiscard]] static int CountShown();
    [[nodiscard]] static int CountWaiting();
    /// Ends them all at once.
    static void CloseAll();

protected:
    QWidget* MakeWindow(QWidget* parent) override;
    void OnCreated() override;
    void OnDestroyed() override;
    void OnTimer(int timerId) override;

private:
    friend class toolkit::PopupStack;
    /// Including frame and caption.
    [[nodiscard]] QSize FrameSize() const;
    [[nodiscard]] int CaptionHeight() const;
    /// Milliseconds until it closes by itself.
    [[nodiscard]] qint64 TimeLeft() const;
    /// Its time or its owner has ended.
    [[nodiscard]] bool IsOver() const;
    void ShowAt(const QRect& place);

    int m_animation = kNoAnimation;
    int m_animationSpeed = 0;
    int m_autoCloseTime = 0;
    bool m_smallCaption = true;
    toolkit::WindowId m_owner = toolkit::kNoWindow;
    QString m_caption;
    QSize m_contentSize;
    QElapsedTimer m_sinceCreation;
    std::unique_ptr<CBCGPPopupDlg> m_dialog;
};
