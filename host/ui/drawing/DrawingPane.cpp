#include "host/ui/drawing/DrawingPane.h"

#include "host/ui/LocalPaths.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QComboBox>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr double kButtonZoom = 1.5;
constexpr int kChoiceCharacters = 8;
constexpr int kWidestChoice = 260;

} // namespace

DrawingPane::DrawingPane(QWidget* parent) : QWidget(parent) {
    setObjectName(u"drawingPane"_s);
    setAcceptDrops(true);
    m_store = new SheetStore({}, this);
    m_canvas = new DrawingCanvas(*m_store, this);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(MakeBar());
    lines->addWidget(MakeHintLine());
    lines->addWidget(m_canvas, 1);
    m_retry = new QPushButton(u"重试"_s, this);
    m_retry->setObjectName(u"retryDrawing"_s);
    lines->addWidget(m_retry, 0, Qt::AlignHCenter);
    connect(m_retry, &QPushButton::clicked, this, &DrawingPane::RetryWanted);
    connect(m_canvas, &DrawingCanvas::PageChanged, this, &DrawingPane::ShowPages);
    connect(m_canvas, &DrawingCanvas::Left, this, &DrawingPane::HintLeft);
    connect(m_store, &SheetStore::StateChanged, this, &DrawingPane::ShowState);
    SetHint({});
    SetDrawings({}, -1);
    SetMayChange(false);
    ShowState();
}

QToolButton* DrawingPane::MakeButton(const QString& icon, const QString& tip, const QString& name) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(toolkit::Icon(icon));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QWidget* DrawingPane::MakeBar() {
    auto* bar = new QWidget(this);
    m_choice = new QComboBox(bar);
    m_choice->setObjectName(u"drawingChoice"_s);
    m_choice->setAccessibleName(u"图纸"_s);
    m_choice->setMinimumContentsLength(kChoiceCharacters);
    m_choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_choice->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_choice->setMaximumWidth(kWidestChoice);
    auto* caption = new QLabel(u"图纸："_s, bar);
    caption->setBuddy(m_choice);
    m_previous = MakeButton(u"previous"_s, u"上一页（PageUp）"_s, u"previousPage"_s);
    m_page = new QLabel(bar);
    m_page->setObjectName(u"pageNumber"_s);
    m_next = MakeButton(u"next"_s, u"下一页（PageDown）"_s, u"nextPage"_s);
    m_out = MakeButton(u"zoom-out"_s, u"缩小（-）"_s, u"zoomOut"_s);
    m_in = MakeButton(u"zoom-in"_s, u"放大（+）"_s, u"zoomIn"_s);
    m_fit = MakeButton(u"fit"_s, u"显示整张图纸（0）"_s, u"fitSheet"_s);
    m_place = MakeButton(u"pin"_s, u"新建检查点：在图纸上点击其位置"_s, u"placeCheckpoint"_s);
    m_place->setCheckable(true);
    m_import = MakeButton(u"import"_s, u"导入图纸（PDF）"_s, u"importDrawing"_s);
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(8, 4, 8, 4);
    line->setSpacing(4);
    line->addWidget(caption);
    line->addWidget(m_choice, 1);
    line->addSpacing(8);
    for (QWidget* part :
         std::initializer_list<QWidget*>{m_previous, m_page, m_next, m_out, m_in, m_fit}) {
        line->addWidget(part);
    }
    line->addStretch(1);
    line->addWidget(m_place);
    line->addWidget(m_import);
    connect(m_choice, &QComboBox::activated, this, &DrawingPane::DrawingChosen);
    connect(m_previous, &QToolButton::clicked, this,
            [this] { m_canvas->ShowPage(m_canvas->Page() - 1); });
    connect(m_next, &QToolButton::clicked, this,
            [this] { m_canvas->ShowPage(m_canvas->Page() + 1); });
    connect(m_out, &QToolButton::clicked, this, [this] { m_canvas->Zoom(1 / kButtonZoom); });
    connect(m_in, &QToolButton::clicked, this, [this] { m_canvas->Zoom(kButtonZoom); });
    connect(m_fit, &QToolButton::clicked, m_canvas, &DrawingCanvas::Fit);
    connect(m_place, &QToolButton::clicked, this, &DrawingPane::PlacingWanted);
    connect(m_import, &QToolButton::clicked, this, &DrawingPane::ImportWanted);
    return bar;
}

QWidget* DrawingPane::MakeHintLine() {
    m_hintLine = new QWidget(this);
    m_hintLine->setObjectName(u"drawingHintLine"_s);
    m_hintLine->setAutoFillBackground(true);
    QPalette palette = m_hintLine->palette();
    palette.setColor(QPalette::Window, toolkit::Colors::Selection());
    m_hintLine->setPalette(palette);
    m_hint = new QLabel(m_hintLine);
    m_hint->setObjectName(u"drawingHint"_s);
    m_hint->setTextFormat(Qt::PlainText);
    m_hint->setWordWrap(true);
    auto* leave = new QPushButton(u"取消（Esc）"_s, m_hintLine);
    leave->setObjectName(u"leaveHint"_s);
    auto* line = new QHBoxLayout(m_hintLine);
    line->setContentsMargins(12, 4, 8, 4);
    line->addWidget(m_hint, 1);
    line->addWidget(leave);
    connect(leave, &QPushButton::clicked, this, &DrawingPane::HintLeft);
    return m_hintLine;
}

void DrawingPane::SetDrawings(const QStringList& names, int current) {
    m_choice->clear();
    m_choice->addItems(names);
    m_choice->setCurrentIndex(current);
    m_choice->setEnabled(!names.isEmpty());
    m_choice->setPlaceholderText(names.isEmpty() ? u"没有图纸"_s : u"请选择图纸"_s);
    m_choice->setToolTip(toolkit::PlainTip(names.value(current)));
    m_canvas->SetEmptyText(names.isEmpty()
                               ? u"本工程没有图纸。有权限的人可以用右上角的按钮导入 PDF 图纸，"
                                 "或把 PDF 文件拖到这里。"_s
                               : u"请选择一张图纸。"_s);
}

void DrawingPane::SetMayChange(bool may) {
    m_place->setVisible(may);
    m_import->setVisible(may);
}

void DrawingPane::SetHint(const QString& hint) {
    m_hint->setText(hint);
    m_hintLine->setVisible(!hint.isEmpty());
}

QString DrawingPane::Hint() const {
    return m_hint->text();
}

void DrawingPane::SetPlacing(bool on) {
    m_place->setChecked(on);
    m_canvas->SetPlacing(on);
}

void DrawingPane::ShowPages() {
    const int count = int(m_store->Pages().size());
    const int page = m_canvas->Page();
    for (QWidget* part : std::initializer_list<QWidget*>{m_previous, m_page, m_next}) {
        part->setVisible(count > 1);
    }
    m_page->setText(u"%1 / %2"_s.arg(page + 1).arg(count));
    m_previous->setEnabled(page > 0);
    m_next->setEnabled(page + 1 < count);
}

void DrawingPane::ShowState() {
    const bool isOpen = m_store->Present() == SheetStore::State::Open;
    for (QWidget* part : std::initializer_list<QWidget*>{m_out, m_in, m_fit, m_place}) {
        part->setEnabled(isOpen);
    }
    m_retry->setVisible(m_store->Present() == SheetStore::State::Broken);
    ShowPages();
}

QString DrawingPane::PointCaptionUnder(const QPoint& at) const {
    const qint32 pointId = m_canvas->PointUnder(m_canvas->mapFrom(this, QPointF(at)));
    for (const SheetFlag& flag : m_canvas->Flags()) {
        if (pointId != 0 && flag.pointId == pointId) {
            return u"检查点 %1"_s.arg(flag.number);
        }
    }
    return {};
}

void DrawingPane::dragEnterEvent(QDragEnterEvent* event) {
    if (MayDrop(*event)) {
        event->acceptProposedAction();
    }
}

void DrawingPane::dropEvent(QDropEvent* event) {
    const QStringList paths = LocalPaths(event->mimeData());
    if (!MayDrop(*event)) {
        return;
    }
    event->acceptProposedAction();
    const QPointF at = m_canvas->mapFrom(this, event->position().toPoint());
    emit PathsDropped(paths, m_canvas->PointUnder(at));
}

} // namespace host
