#include "host/app/DropFlow.h"

#include "host/app/CheckpointMenu.h"
#include "host/app/ConsoleWatch.h"
#include "host/app/DrawingImport.h"
#include "host/app/ImportFlow.h"
#include "host/ui/DropHint.h"
#include "host/ui/MainWindow.h"
#include "host/ui/drawing/DrawingPane.h"

#include <QPointer>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

bool IsDrawing(const QString& path) {
    return path.endsWith(u".pdf"_s, Qt::CaseInsensitive);
}

} // namespace

DropFlow::DropFlow(const Parts& flowParts) : m_parts(flowParts) {
    connect(&m_parts.window, &MainWindow::PathsDropped, this,
            [this](const QStringList& paths) { Take(paths); });
    connect(&m_parts.window.Drawing(), &DrawingPane::PathsDropped, this,
            [this](const QStringList& paths, qint32 pointId) {
                if (pointId != 0) {
                    m_parts.checkpoints.FilePhotos(pointId, paths);
                } else {
                    Take(paths);
                }
            });
    Watch();
}

DropFlow::~DropFlow() = default;

QString DropFlow::WhereDropped(const QStringList& paths) const {
    if (!std::all_of(paths.begin(), paths.end(), IsDrawing)) {
        return m_parts.imports.WhereDropped();
    }
    const QString whyNot = m_parts.drawings.WhyNot();
    return whyNot.isEmpty() ? u"松开后导入为图纸"_s : whyNot;
}

QString DropFlow::WhereDroppedOn(const QString& checkpoint) const {
    const QString whyNot = m_parts.checkpoints.WhyNot();
    return whyNot.isEmpty() ? u"松开后导入到：%1"_s.arg(checkpoint) : whyNot;
}

void DropFlow::Watch() {
    // The windows may outlast it.
    const QPointer self(this);
    const auto where = [self](const QStringList& paths, const QPoint&) {
        return self ? self->WhereDropped(paths) : QString();
    };
    new DropHint(&m_parts.window, where, DropHint::Drops::OfWindow);
    DrawingPane& pane = m_parts.window.Drawing();
    new DropHint(
        &pane,
        [self, where, &pane](const QStringList& paths, const QPoint& at) {
            const QString point = pane.PointCaptionUnder(at);
            return point.isEmpty() || !self ? where(paths, at) : self->WhereDroppedOn(point);
        },
        DropHint::Drops::OfWindow);
    connect(&m_parts.consoles, &ConsoleWatch::Opened, this, [this, where](QWidget* console) {
        auto* hint = new DropHint(console, where, DropHint::Drops::Taken);
        connect(hint, &DropHint::PathsDropped, this,
                [this, console](const QStringList& paths) { Take(paths, console); });
    });
}

void DropFlow::Take(const QStringList& paths, QWidget* over) {
    QStringList drawings;
    QStringList others;
    for (const QString& path : paths) {
        (IsDrawing(path) ? drawings : others) << path;
    }
    if (!drawings.isEmpty()) {
        m_parts.drawings.Begin(drawings);
    }
    if (!others.isEmpty()) {
        m_parts.imports.Ask(others, over);
    }
}

} // namespace host
