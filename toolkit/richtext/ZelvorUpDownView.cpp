#include "toolkit/richtext/ZelvorUpDownView.h"

#include <QResizeEvent>

using namespace Qt::StringLiterals;

CZelvorUpDownView::CZelvorUpDownView(QWidget* parent) : QSplitter(Qt::Vertical, parent) {
    setObjectName(u"upDownView"_s);
    setChildrenCollapsible(false);
}

void CZelvorUpDownView::SetSplitterWnd(QWidget* top, QWidget* bottom) {
    addWidget(top);
    addWidget(bottom);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    top->show();
    bottom->show();
}

void CZelvorUpDownView::SetBottomHeight(int pixels) {
    m_wantedHeight = pixels;
    const int rest = height() - handleWidth() - pixels;
    if (count() < 2 || rest <= 0) {
        return;
    }
    setSizes({rest, pixels});
    m_wantedHeight = 0;
}

void CZelvorUpDownView::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    if (m_wantedHeight > 0) {
        SetBottomHeight(m_wantedHeight);
    }
}
