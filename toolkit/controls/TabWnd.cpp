#include "toolkit/controls/TabWnd.h"

#include <QTabBar>

CBCGPTabWnd::CBCGPTabWnd(QWidget* parent) : QWidget(parent), m_strip(new QTabBar(this)) {
    m_strip->setExpanding(false);
    m_strip->setDrawBase(true);
    connect(m_strip, &QTabBar::currentChanged, this, [this](int tab) {
        if (onTabChanged) {
            onTabChanged(tab);
        }
    });
}

void CBCGPTabWnd::AddTab(QWidget* page, const QString& text) {
    page->setParent(this);
    m_pages.emplace_back(page);
    m_strip->addTab(text);
    LayOut();
}

int CBCGPTabWnd::GetActiveTab() const {
    return m_strip->currentIndex();
}

void CBCGPTabWnd::SetActiveTab(int tab) {
    m_strip->setCurrentIndex(tab);
}

int CBCGPTabWnd::CalcTabsHeight() const {
    return m_strip->sizeHint().height();
}

void CBCGPTabWnd::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    LayOut();
}

void CBCGPTabWnd::LayOut() {
    const int strip = CalcTabsHeight();
    m_strip->setGeometry(0, 0, width(), strip);
    for (const QPointer<QWidget>& page : m_pages) {
        if (page) {
            page->setGeometry(0, strip, width(), height() - strip);
        }
    }
}
