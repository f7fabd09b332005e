#include "toolkit/windows/PopupWindow.h"

#include "toolkit/Look.h"
#include "toolkit/controls/StaticText.h"
#include "toolkit/windows/PopupPlaces.h"
#include "toolkit/windows/PopupStack.h"
#include "toolkit/windows/WindowEnd.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr int kCloseTimer = 1;
constexpr int kFadeTimer = 2;
constexpr double kFadeStep = 0.1;
constexpr int kCaptionHeight = 28;
constexpr int kSmallCaptionHeight = 16;
constexpr int kFrameWidth = 1;

/// Stays above its owner and leaves the keyboard where it is.
class ToastFrame final : public QWidget {
public:
    explicit ToastFrame(QWidget* parent)
        : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus) {
        setAttribute(Qt::WA_ShowWithoutActivating, true);
        setContentsMargins(kFrameWidth, kFrameWidth, kFrameWidth, kFrameWidth);
        setAutoFillBackground(true);
    }
    ~ToastFrame() override { toolkit::TellWindowDies(*this); }
    ToastFrame(const ToastFrame&) = delete;
    ToastFrame& operator=(const ToastFrame&) = delete;

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::WindowBlocked) {
            QMetaObject::invokeMethod(
                this, [this] { BelongToModalWindow(); }, Qt::QueuedConnection);
        }
        return QWidget::event(event);
    }
    void paintEvent(QPaintEvent* event) override {
        Q_UNUSED(event);
        QPainter painter(this);
        painter.setPen(toolkit::Colors::Frame());
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    /// A window that waits for an answer holds up its owner, not the toasts: Qt lets alone what
    /// belongs to it.
    void BelongToModalWindow() {
        QWindow* modal = QGuiApplication::modalWindow();
        if (modal != nullptr && windowHandle() != nullptr) {
            windowHandle()->setTransientParent(modal);
        }
    }
};

/// Caption text and close button, on the ground of headers.
QWidget* MakeCaption(QWidget& frame, const QString& text, int height) {
    auto* caption = new QWidget(&frame);
    caption->setObjectName(u"caption"_s);
    caption->setFixedHeight(height);
    caption->setAutoFillBackground(true);
    QPalette colors = caption->palette();
    colors.setColor(QPalette::Window, toolkit::Colors::Header());
    caption->setPalette(colors);
    auto* row = new QHBoxLayout(caption);
    row->setContentsMargins(2 * toolkit::kStep, 0, toolkit::kStep, 0);
    auto* title = new CStaticFilespec(caption);
    title->setObjectName(u"captionText"_s);
    title->setText(text);
    title->SetPathShortening(false);
    row->addWidget(title, 1);
    auto* close = new QToolButton(caption);
    close->setObjectName(u"captionClose"_s);
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::NoFocus);
    close->setToolTip(u"关闭"_s);
    close->setIcon(frame.style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    QObject::connect(close, &QToolButton::clicked, &frame, &QWidget::close);
    row->addWidget(close);
    return caption;
}

} // namespace

void CBCGPPopupDlg::PostCloseToParent() {
    if (m_popup != nullptr && m_popup->HasWindow()) {
        QMetaObject::invokeMethod(m_popup->Widget(), &QWidget::close, Qt::QueuedConnection);
    }
}

CBCGPPopupWindow::CBCGPPopupWindow() = default;

CBCGPPopupWindow::~CBCGPPopupWindow() {
    Destroy();
}

void CBCGPPopupWindow::CreatePopup(toolkit::WindowId owner, const MakeDialog& makeDialog) {
    m_owner = owner;
    m_sinceCreation.start();
    m_dialog = makeDialog();
    m_dialog->m_popup = this;
    m_dialog->OnInitDialog();
    m_contentSize = m_dialog->PreferredSize();
    toolkit::PopupStack::Instance().Take(std::unique_ptr<CBCGPPopupWindow>(this));
}

void CBCGPPopupWindow::SetWindowText(const QString& caption) {
    m_caption = caption;
    if (HasWindow()) {
        Widget()->setWindowTitle(toolkit::PlainTitle(caption));
        Widget()->findChild<QLabel*>(u"captionText"_s)->setText(caption);
    }
}

int CBCGPPopupWindow::CountShown() {
    return toolkit::PopupStack::Instance().CountShown();
}

int CBCGPPopupWindow::CountWaiting() {
    return toolkit::PopupStack::Instance().CountWaiting();
}

void CBCGPPopupWindow::CloseAll() {
    toolkit::PopupStack::Instance().CloseAll();
}

int CBCGPPopupWindow::CaptionHeight() const {
    return m_smallCaption ? kSmallCaptionHeight : kCaptionHeight;
}

QSize CBCGPPopupWindow::FrameSize() const {
    return m_contentSize + QSize(2 * kFrameWidth, 2 * kFrameWidth + CaptionHeight());
}

qint64 CBCGPPopupWindow::TimeLeft() const {
    return m_autoCloseTime - m_sinceCreation.elapsed();
}

bool CBCGPPopupWindow::IsOver() const {
    const bool ownerIsGone = m_owner != toolkit::kNoWindow && toolkit::WidgetOf(m_owner) == nullptr;
    return ownerIsGone || (m_autoCloseTime > 0 && TimeLeft() <= 0);
}

QWidget* CBCGPPopupWindow::MakeWindow(QWidget* parent) {
    auto* frame = new ToastFrame(parent);
    frame->setObjectName(u"popupWindow"_s);
    frame->setWindowTitle(toolkit::PlainTitle(m_caption));
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeCaption(*frame, m_caption, CaptionHeight()));
    return frame;
}

void CBCGPPopupWindow::OnCreated() {
    m_dialog->Create(Id());
    Widget()->layout()->addWidget(m_dialog->Widget());
}

void CBCGPPopupWindow::ShowAt(const QRect& place) {
    Create(m_owner);
    Widget()->resize(place.size());
    Widget()->move(place.topLeft());
    if (m_autoCloseTime > 0) {
        SetTimer(kCloseTimer, int(std::max<qint64>(TimeLeft(), 0)));
    }
    if (m_animation == kFade) {
        Widget()->setWindowOpacity(0);
        SetTimer(kFadeTimer, m_animationSpeed);
    }
    Widget()->show();
}

void CBCGPPopupWindow::OnTimer(int timerId) {
    if (timerId == kCloseTimer) {
        Destroy();
    } else if (timerId == kFadeTimer) {
        Widget()->setWindowOpacity(std::min(Widget()->windowOpacity() + kFadeStep, 1.0));
        if (Widget()->windowOpacity() >= 1.0) {
            KillTimer(kFadeTimer);
        }
    }
}

void CBCGPPopupWindow::OnDestroyed() {
    m_dialog->Destroy();
    toolkit::PopupStack::Instance().Free(*this);
}
