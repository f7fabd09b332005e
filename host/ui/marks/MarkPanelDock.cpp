#include "host/ui/marks/MarkPanelDock.h"

#include "toolkit/Icons.h"

#include <QTabWidget>

namespace host {

using namespace Qt::StringLiterals;

MarkPanelDock::MarkPanelDock(QWidget* parent) : QDockWidget(u"标识面板"_s, parent) {
    setObjectName(u"markPanelDock"_s);
    tabs = new QTabWidget(this);
    tabs->setObjectName(u"markTabs"_s);
    tabs->setDocumentMode(true);
    photos = new MarkPage(MarkKind::kPhotos, tabs);
    issues = new MarkPage(MarkKind::kIssues, tabs);
    tabs->addTab(photos, toolkit::Icon(u"photo"_s), u"照片标识"_s);
    tabs->addTab(issues, toolkit::Icon(u"issue"_s), u"问题标识"_s);
    setWidget(tabs);
    const auto tell = [this] {
        if (isVisible())
            emit PageShown(tabs->currentIndex() == 0 ? MarkKind::kPhotos : MarkKind::kIssues);
    };
    connect(tabs, &QTabWidget::currentChanged, this, tell);
    connect(this, &QDockWidget::visibilityChanged, this, tell);
}

MarkPage& MarkPanelDock::Page(MarkKind kind) const {
    return kind == MarkKind::kPhotos ? *photos : *issues;
}

bool MarkPanelDock::IsPageInSight(MarkKind kind) const {
    return isVisible() && tabs->currentWidget() == &Page(kind);
}

void MarkPanelDock::SetState(const MarkState& state) {
    photos->SetState(state.photos);
    issues->SetState(state.issues);
}

MarkState MarkPanelDock::State() const {
    return {photos->State(), issues->State()};
}

} // namespace host
