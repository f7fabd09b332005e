#include "host/ui/marks/MarkPanelDock.h"

#include "toolkit/Icons.h"

#include <QTabWidget>

namespace host {

using namespace Qt::StringLiterals;

MarkPanelDock::MarkPanelDock(QWidget* parent) : QDockWidget(u"标识面板"_s, parent) {
    setObjectName(u"markPanelDock"_s);
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(u"markTabs"_s);
    m_tabs->setDocumentMode(true);
    m_photos = new MarkPage(MarkKind::Photos, m_tabs);
    m_issues = new MarkPage(MarkKind::Issues, m_tabs);
    m_tabs->addTab(m_photos, toolkit::Icon(u"photo"_s), u"照片标识"_s);
    m_tabs->addTab(m_issues, toolkit::Icon(u"issue"_s), u"问题标识"_s);
    setWidget(m_tabs);
    const auto tell = [this] {
        if (isVisible()) {
            emit PageShown(m_tabs->currentIndex() == 0 ? MarkKind::Photos : MarkKind::Issues);
        }
    };
    connect(m_tabs, &QTabWidget::currentChanged, this, tell);
    connect(this, &QDockWidget::visibilityChanged, this, tell);
}

MarkPage& MarkPanelDock::Page(MarkKind kind) const {
    return kind == MarkKind::Photos ? *m_photos : *m_issues;
}

bool MarkPanelDock::IsPageInSight(MarkKind kind) const {
    return isVisible() && m_tabs->currentWidget() == &Page(kind);
}

void MarkPanelDock::SetState(const MarkState& state) {
    m_photos->SetState(state.photos);
    m_issues->SetState(state.issues);
}

MarkState MarkPanelDock::State() const {
    return {m_photos->State(), m_issues->State()};
}

} // namespace host
