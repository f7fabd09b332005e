#include "hands/Choices.h"

#include "hands/Hands.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

#include <functional>

namespace hands {

namespace {

constexpr int kToArrow = 6; ///< from the right edge of a box, pixels

QString Plain(QString text) {
    const qsizetype shortcut = text.indexOf(u'\t');
    if (shortcut >= 0) {
        text.truncate(shortcut);
    }
    return text.remove(u'&');
}

QAction* FindEntry(const QWidget* menu, const QString& entry) {
    for (QAction* action : menu->actions()) {
        if (Plain(action->text()) == entry && action->isVisible() && action->isEnabled()) {
            return action;
        }
    }
    return nullptr;
}

/// The row is asked for once the list is there: what a box offers may be known only then.
bool ChooseOf(QComboBox* combo, const std::function<int()>& row) {
    const QPointer<QComboBox> guarded(combo);
    if (!DropDown(combo) || guarded.isNull() || !combo->view()->isVisible()) {
        return false;
    }
    if (ClickCell(combo->view(), row(), combo->modelColumn())) {
        return true;
    }
    CloseList(combo);
    return false;
}

} // namespace

bool DropDown(QComboBox* combo) {
    return combo != nullptr &&
           ClickAt(combo, {combo->width() - kToArrow, combo->rect().center().y()});
}

bool CloseList(QComboBox* combo) {
    return combo != nullptr && combo->view()->isVisible() &&
           PressKey(combo->view(), Qt::Key_Escape);
}

bool ChooseRow(QComboBox* combo, int row) {
    return ChooseOf(combo, [row] { return row; });
}

bool ChooseInCombo(QComboBox* combo, const QString& entry) {
    return ChooseOf(combo, [&] { return combo->findText(entry, Qt::MatchStartsWith); });
}

bool ClickInMenuBar(QMenuBar* bar, const QString& menu, const QString& entry) {
    QAction* title = bar == nullptr ? nullptr : FindEntry(bar, menu);
    if (title == nullptr || title->menu() == nullptr) {
        return false;
    }
    if (!title->menu()->isVisible() && !ClickAt(bar, bar->actionGeometry(title).center())) {
        return false;
    }
    return ClickInMenu(title->menu(), entry);
}

bool ClickInMenu(QMenu* menu, const QString& entry) {
    QAction* action = menu == nullptr ? nullptr : FindEntry(menu, entry);
    return action != nullptr && ClickAt(menu, menu->actionGeometry(action).center());
}

bool ClickCell(QAbstractItemView* view, int row, int column, Qt::MouseButton button) {
    if (!CanReach(view) || view->model() == nullptr) {
        return false;
    }
    const QModelIndex cell = view->model()->index(row, column);
    if (!cell.isValid()) {
        return false;
    }
    view->scrollTo(cell);
    return ClickAt(view->viewport(), view->visualRect(cell).center(), button);
}

} // namespace hands
