#include "bench/ConsoleDriver.h"

#include "bench/Stopwatch.h"
#include "console/VeskPicMngDlg.h"
#include "frame/KXVeskPictureImpl.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/DropCombo.h"
#include "toolkit/controls/KXComboBox.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDateEdit>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>

namespace bench {

namespace {

void ClickHeader(QTableView& view, int column) {
    QHeaderView& header = *view.horizontalHeader();
    const QPointF place(header.sectionViewportPosition(column) + header.sectionSize(column) / 2.0,
                        header.height() / 2.0);
    QWidget* target = header.viewport();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, target->mapToGlobal(place), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(target, &event);
    }
}

} // namespace

ConsoleDriver::ConsoleDriver(int kind) : m_console(CVeskPicMngDlg::Instance()) {
    CKXVeskPictureImpl::Instance().ShowPicMng(kind);
    QCoreApplication::processEvents();
}

ConsoleDriver::~ConsoleDriver() {
    m_console.CloseConsole();
}

void ConsoleDriver::Choose(DropCombo& combo, int index) {
    emit combo.dropDown();
    combo.setCurrentIndex(std::min(index, combo.count() - 1));
    emit combo.activated(combo.currentIndex());
}

void ConsoleDriver::ClearFilter() {
    const ConsoleControls& controls = *m_console.Controls();
    controls.keywordCombo->setEditText(QString());
    controls.statusCombo->setCurrentIndex(0);
    if (!controls.noDateLimit->isChecked()) {
        controls.noDateLimit->click();
    }
    Choose(*controls.markCombo, 0);
    Choose(*controls.labelCombo, 0);
}

void ConsoleDriver::SetFilter(const FilterCase& filter) {
    ClearFilter();
    const ConsoleControls& controls = *m_console.Controls();
    switch (filter.kind) {
    case FilterKind::None:
        break;
    case FilterKind::Mark:
        Choose(*controls.markCombo, 1);
        break;
    case FilterKind::Label:
        Choose(*controls.labelCombo, 1);
        break;
    case FilterKind::State:
        Choose(*controls.statusCombo, 1);
        break;
    case FilterKind::Date:
        controls.noDateLimit->click();
        controls.startPicker->setDate(QDate(2020, 1, 1));
        controls.endPicker->setDate(QDate(2020, 12, 31));
        break;
    case FilterKind::Keyword:
        controls.keywordCombo->setEditText(filter.text);
        break;
    }
}

void ConsoleDriver::SortBy(int column, const QString& order) {
    auto& view = *qobject_cast<QTableView*>(m_console.Grid()->Widget());
    for (int click = 0; click < 2; ++click) {
        ClickHeader(view, column);
        if (m_console.Grid()->SortOrder() == order) {
            return;
        }
    }
}

double ConsoleDriver::FetchAndPaint(int page) {
    auto& view = *qobject_cast<QTableView*>(m_console.Grid()->Widget());
    const Stopwatch timer;
    if (page == 1) {
        m_console.Controls()->searchButton->click();
    } else {
        m_console.Paging()->DoPage(page);
    }
    view.viewport()->repaint();
    m_console.Widget()->repaint();
    return timer.Milliseconds();
}

int ConsoleDriver::PageCount() const {
    return m_console.Paging()->GetPageCount();
}

qint64 ConsoleDriver::Hits() const {
    return m_console.Grid()->totalCount;
}

} // namespace bench
