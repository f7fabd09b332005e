#include "reminder/popups/VeskMsgDlg.h"

#include "base/FacadeAccess.h"
#include "reminder/popups/LabelText.h"
#include "services/Factories.h"
#include "services/IKXLocalCacheData.h"
#include "services/IKXView.h"
#include "toolkit/GbkText.h"
#include "toolkit/Look.h"
#include "toolkit/controls/StaticText.h"
#include "toolkit/windows/WindowEnd.h"
#include "viewers/PicStatic.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPushButton>

using namespace Qt::StringLiterals;

using reminder::DialogBase;
using reminder::MsgPart;

namespace {

constexpr int kAutoCloseMs = 10'000;
constexpr int kAnimationSpeed = 50;
constexpr int kPreviewTimer = 1;
constexpr int kPreviewMs = 8'000;

int GbkWidth(const QString& text) {
    return int(toolkit::ToGbk(text).size());
}

/// A character of the controls' face, as dialog units are counted by.
DialogBase BaseOfFace() {
    const QFontMetrics face(toolkit::UiFont());
    const QString letters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"_s;
    return {(face.horizontalAdvance(letters) / 26 + 1) / 2, face.height()};
}

QString MarkNameOf(qint32 markId) {
    std::map<qint32, KX_DATA::MarkRecord> marks;
    GetKXLocalCacheData()->GetMarkTable(marks);
    const auto mark = marks.find(markId);
    return mark != marks.end() ? mark->second.name : QString();
}

} // namespace

namespace reminder {

KX_DATA::PicMsgRecord& CurrentPopupRecord() {
    static KX_DATA::PicMsgRecord record;
    return record;
}

qint32& CurrentPopupKind() {
    static qint32 kind = kPicPopup;
    return kind;
}

void ShowPopup(const KX_DATA::PicMsgRecord& record, toolkit::WindowId owner, qint32 kind) {
    CurrentPopupRecord() = record;
    CurrentPopupKind() = kind;
    auto* popup = new CBCGPPopupWindow;
    popup->SetAnimationType(CBCGPPopupWindow::kFade);
    popup->SetAutoCloseTime(kAutoCloseMs);
    popup->EnableSmallCaption(false);
    popup->SetAnimationSpeed(kAnimationSpeed);
    popup->SetWindowText(kind == kPicPopup ? u"Vesk照片提醒"_s : u"TN问题提醒"_s);
    popup->CreatePopup(owner, [] { return std::make_unique<CVeskMsgDlg>(); });
}

} // namespace reminder

void CVeskMsgDlg::OnInitDialog() {
    m_record = reminder::CurrentPopupRecord();
    m_isIssue = reminder::CurrentPopupKind() != reminder::kPicPopup;
    FillLines(MarkNameOf(m_record.markerId));
    ZelvorNRQ_KXVeskPicture::IPictureFacade& facade = ZelvorNRQ_KXVeskPicture::PictureFacade();
    if (m_isIssue) {
        facade.RefreshIssueMarks();
        facade.Sink().RefreshTNMarks();
    } else {
        facade.Sink().RefreshBimMarks();
    }
}

void CVeskMsgDlg::FillLines(const QString& markName) {
    if (m_isIssue) {
        // "问题构件:" shows the position, not the component; required as is.
        m_lines = {u"问题主题:"_s + m_record.questionName, u"问题标识:"_s + markName, QString(),
                   u"问题构件:"_s + m_record.pos, u"创建人:"_s + m_record.userName};
    } else {
        m_lines = {u"名称:"_s + m_record.picName, u"标识:"_s + markName,
                   u"标签:"_s + reminder::LabelLine(m_record.labelNames, GbkWidth),
                   u"位置:"_s + m_record.pos, u"上传人:"_s + m_record.userName};
    }
}

QSize CVeskMsgDlg::PreferredSize() const {
    return reminder::MsgDlgSize(BaseOfFace());
}

/// Tells its dialog of the mouse, wherever on it the pointer is.
class MsgDlgWidget final : public QWidget {
public:
    MsgDlgWidget(QWidget* parent, CVeskMsgDlg& dialog) : QWidget(parent), m_dialog(dialog) {
        setMouseTracking(true);
    }
    ~MsgDlgWidget() override { toolkit::TellWindowDies(*this); }
    MsgDlgWidget(const MsgDlgWidget&) = delete;
    MsgDlgWidget& operator=(const MsgDlgWidget&) = delete;

protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        m_dialog.OnMouseMove();
        QWidget::mouseMoveEvent(event);
    }

private:
    CVeskMsgDlg& m_dialog;
};

QWidget* CVeskMsgDlg::MakeWindow(QWidget* parent) {
    auto* widget = new MsgDlgWidget(parent, *this);
    widget->setFixedSize(PreferredSize());
    return widget;
}

void CVeskMsgDlg::OnCreated() {
    const DialogBase base = BaseOfFace();
    const auto place = [&](QWidget& control, MsgPart part) {
        control.setGeometry(reminder::PlaceOf(part, m_isIssue, base));
        control.setMouseTracking(true);
    };
    for (int at = 0; at < int(m_lines.size()); ++at) {
        auto* line = new CStaticFilespec(Widget());
        line->setObjectName(u"line%1"_s.arg(at + 1));
        line->setText(m_lines[size_t(at)]);
        line->SetPathShortening(false);
        line->setToolTip(toolkit::PlainTip(m_lines[size_t(at)]));
        place(*line, MsgPart(at));
        line->setVisible(!m_isIssue || MsgPart(at) != MsgPart::Third);
    }
    auto* caption = new CStaticFilespec(Widget());
    caption->setText(u"预览:"_s);
    place(*caption, MsgPart::PreviewCaption);
    m_preview = new CPicStatic(Widget());
    m_preview->setObjectName(u"preview"_s);
    m_preview->picPath = m_record.localFile;
    place(*m_preview, MsgPart::Preview);
    auto* look = new QPushButton(u"立即查看"_s, Widget());
    look->setObjectName(u"look"_s);
    look->setFocusPolicy(Qt::NoFocus);
    place(*look, MsgPart::Button);
    QObject::connect(look, &QPushButton::clicked, Widget(), [this] { OnLook(); });
    if (m_isIssue) {
        SetTimer(kPreviewTimer, kPreviewMs);
    }
}

void CVeskMsgDlg::OnLook() {
    // By the kind of the newest toast, whatever this one was made as; required as is.
    ZelvorNRQ_KXVeskPicture::IPictureFacade& facade = ZelvorNRQ_KXVeskPicture::PictureFacade();
    const toolkit::WindowId self = Id();
    if (reminder::CurrentPopupKind() == reminder::kPicPopup) {
        facade.Sink().SelectPictureMark(m_record.floor, m_record.markerId, m_record.picId);
        if (KX_DATA::IKXView* view = GetKXHoopsModuleMng()->GetView()) {
            view->LocatePicture(m_record.intersectionId, m_record.markerId);
        }
    } else {
        facade.LocateIssue(m_record.ppid, m_record.questionId);
    }
    if (toolkit::WidgetOf(self) != nullptr) {
        PostCloseToParent();
    }
}

void CVeskMsgDlg::OnMouseMove() {
    if (m_previewDirty) {
        m_previewDirty = false;
        m_preview->update();
    }
}

void CVeskMsgDlg::OnTimer(int timerId) {
    // Never killed: it dies with the window.
    m_previewDirty = m_previewDirty || timerId == kPreviewTimer;
}
