#include "host/ui/pick/PickPane.h"

#include "host/ui/WindowKeys.h"
#include "host/ui/pick/PickCanvas.h"
#include "host/ui/plan/PlanScroll.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/controls/StaticText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBesideHint = 380; ///< for three buttons and a few words
constexpr QStringView kProperties(u"属性");

} // namespace

PickPane::PickPane(QWidget* parent) : QWidget(parent) {
    setObjectName(u"pickPane"_s);
    m_canvas = new PickCanvas(this);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(MakePickBar());
    lines->addWidget(new PlanScroll(m_canvas, this), 1);
    connect(m_canvas, &PickCanvas::Changed, this, &PickPane::ShowPicked);
    connect(m_canvas, &PickCanvas::Confirmed, this, [this] { emit Ended(true); });
    connect(m_canvas, &PickCanvas::Cancelled, this, [this] { emit Ended(false); });
    connect(m_canvas, &PickCanvas::PropertiesWanted, this, &PickPane::PropertiesWanted);
}

QWidget* PickPane::MakePickBar() {
    auto* bar = new QWidget(this);
    bar->setObjectName(u"pickBar"_s);
    bar->setAutoFillBackground(true);
    QPalette palette = bar->palette();
    palette.setColor(QPalette::Window, toolkit::Colors::Selection());
    bar->setPalette(palette);
    m_hint = new QLabel(u"请选择构件：单击选择，Ctrl+单击增减，可以换楼层"_s, bar);
    m_hint->setObjectName(u"pickHint"_s);
    m_picked = new CStaticFilespec(bar);
    m_picked->setObjectName(u"pickedText"_s);
    m_picked->SetPathShortening(false);
    m_picked->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_properties = new QPushButton(toolkit::Icon(u"info"_s), kProperties.toString(), bar);
    m_properties->setObjectName(u"pickProperties"_s);
    m_properties->setAccessibleName(kProperties.toString());
    m_properties->setToolTip(u"显示所指构件的属性"_s);
    auto* done = new QPushButton(u"完成"_s, bar);
    done->setObjectName(u"pickDone"_s);
    done->setToolTip(u"采用所选构件（Enter）"_s);
    auto* leave = new QPushButton(u"取消"_s, bar);
    leave->setObjectName(u"pickCancel"_s);
    leave->setToolTip(u"不选构件（Esc）"_s);
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins(12, 4, 8, 4);
    line->setSpacing(8);
    line->addWidget(m_hint);
    line->addWidget(m_picked, 1);
    for (QPushButton* button : {m_properties, done, leave}) {
        button->setAutoDefault(false);
        line->addWidget(button);
    }
    connect(m_properties, &QPushButton::clicked, this, [this] {
        if (const PlanComponent* current = m_canvas->Current()) {
            emit PropertiesWanted(PlanComponent(*current));
        }
    });
    connect(done, &QPushButton::clicked, this, [this] { emit Ended(true); });
    connect(leave, &QPushButton::clicked, this, [this] { emit Ended(false); });
    return bar;
}

void PickPane::Begin(const FloorPlanModel& model, int floor, const ComponentSource& source) {
    m_canvas->Begin(model, floor, source);
    m_canvas->setFocus();
}

void PickPane::keyPressEvent(QKeyEvent* event) {
    if (!PressByEnter(*this, *event)) {
        QWidget::keyPressEvent(event);
    }
}

void PickPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FitBar();
}

/// In a narrow pane the buttons keep their words, what is picked is elided, the hint goes.
void PickPane::FitBar() {
    m_hint->setVisible(width() >= m_hint->sizeHint().width() + kBesideHint);
    m_properties->setText(width() >= kBesideHint ? kProperties.toString() : QString());
}

void PickPane::ShowPicked() {
    const QString text = PickedText(m_canvas->State());
    m_picked->setText(text);
    m_picked->setToolTip(toolkit::PlainTip(text));
    m_properties->setEnabled(m_canvas->Current() != nullptr);
}

} // namespace host
