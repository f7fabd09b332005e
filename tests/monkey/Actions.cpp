#include "tests/monkey/Actions.h"

#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/Commands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "host/ui/plan/FloorPlanPane.h"
#include "tests/monkey/Faults.h"
#include "tests/monkey/Neighbour.h"
#include "tests/monkey/Targets.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextEdit>

#include <map>

namespace monkey {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestSide = 2400;
constexpr int kOften = 50;         ///< of a hundred
constexpr int kSometimes = 25;     ///< of a hundred
constexpr int kSeldom = 8;         ///< of a hundred
constexpr int kMostWheelSteps = 7; ///< up and down
constexpr int kMostKeys = 40;      ///< longer texts come at once

void Tell(const QString& what) {
    Note(u"    "_s + what);
}

QString PlaceText(const QPoint& place) {
    return u" at %1,%2"_s.arg(place.x()).arg(place.y());
}

Qt::KeyboardModifiers ModifiersFor(const Deed& deed) {
    static constexpr std::array kModifiers = {Qt::ControlModifier, Qt::ShiftModifier,
                                              Qt::AltModifier};
    return deed.Chance(6, kSeldom) ? Qt::KeyboardModifiers(kModifiers[size_t(deed.Of(7, 3))])
                                   : Qt::KeyboardModifiers();
}

void DoMouse(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    QWidget* widget = WidgetFor(deed, WindowFor(deed));
    if (widget == nullptr) {
        return;
    }
    const QPoint place = PlaceFor(deed, *widget);
    Tell(TextOf(widget) + PlaceText(place));
    switch (deed.kind) {
    case Kind::RightClick:
        hands::SendClick(widget, place, {Qt::RightButton, ModifiersFor(deed)});
        break;
    case Kind::DoubleClick:
        hands::SendDoubleClick(widget, place, {Qt::LeftButton, ModifiersFor(deed)});
        break;
    case Kind::Hover:
        hands::SendHover(widget, place);
        break;
    case Kind::Wheel:
        hands::SendWheel(widget, place, deed.Of(7, 2 * kMostWheelSteps + 1) - kMostWheelSteps,
                         ModifiersFor(deed));
        break;
    case Kind::Drag:
        hands::SendDrag(widget, place,
                        QPoint(deed.Of(6, widget->width() + 1), deed.Of(7, widget->height() + 1)));
        break;
    default:
        hands::SendClick(widget, place, {Qt::LeftButton, ModifiersFor(deed)});
    }
}

void DoCell(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    const QWidget* window = WindowFor(deed);
    if (window == nullptr) {
        return;
    }
    QList<QAbstractItemView*> views = window->findChildren<QAbstractItemView*>();
    views.removeIf([window](const QAbstractItemView* view) {
        return view->window() != window || !hands::CanReach(view) || view->model() == nullptr ||
               view->model()->rowCount() == 0;
    });
    if (views.isEmpty()) {
        return;
    }
    const QAbstractItemView* view = views[deed.Of(2, views.size())];
    QWidget* viewport = view->viewport();
    const QModelIndex cell =
        view->indexAt(QPoint(deed.Of(4, viewport->width()), deed.Of(5, viewport->height())));
    if (!cell.isValid() || !hands::CanReach(viewport)) {
        return;
    }
    const QPoint place = view->visualRect(cell).center();
    Tell(u"%1 row %2 column %3"_s.arg(TextOf(view)).arg(cell.row()).arg(cell.column()));
    if (deed.Chance(3, kSometimes)) {
        hands::SendDoubleClick(viewport, place, {});
    } else {
        hands::SendClick(viewport, place, {Qt::LeftButton, ModifiersFor(deed)});
    }
}

void DoFlag(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    const auto* client = qobject_cast<host::MainWindow*>(ClientWindow());
    if (client == nullptr) {
        return;
    }
    host::FloorPlanCanvas& canvas = client->Plan().Canvas();
    const auto& boxes = canvas.FlagsLayout().boxes;
    if (boxes.empty() || !hands::CanReach(&canvas)) {
        return;
    }
    const QPoint place = boxes[size_t(deed.Of(1, qsizetype(boxes.size())))].rect.center().toPoint();
    Tell(u"flag"_s + PlaceText(place));
    hands::SendClick(&canvas, place,
                     {deed.Chance(2, kSometimes) ? Qt::RightButton : Qt::LeftButton, {}});
}

void Type(QWidget* widget, const QString& text) {
    if (text.size() <= kMostKeys) {
        hands::SendText(widget, text);
        return;
    }
    hands::BringUp(widget);
    hands::CommitText(text);
}

void DoType(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    QWidget* window = WindowFor(deed);
    if (window == nullptr) {
        return;
    }
    const QString& text = Texts()[deed.Of(3, Texts().size())];
    Tell(u"'%1' into %2"_s.arg(text.left(40), TextOf(window)));
    Type(window, text);
}

bool TakesText(const QWidget* widget, const QWidget* window) {
    const bool takes = qobject_cast<const QLineEdit*>(widget) != nullptr ||
                       qobject_cast<const QPlainTextEdit*>(widget) != nullptr ||
                       qobject_cast<const QTextEdit*>(widget) != nullptr;
    return takes && widget->window() == window && hands::CanReach(widget);
}

/// Of a field of its own, a list or a date; what is typed stays without Enter or Tab.
void DoEdit(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    const QWidget* window = WindowFor(deed);
    if (window == nullptr) {
        return;
    }
    QList<QWidget*> fields = window->findChildren<QWidget*>();
    fields.removeIf([window](const QWidget* widget) { return !TakesText(widget, window); });
    if (fields.isEmpty()) {
        return;
    }
    const QPointer<QWidget> field(fields[deed.Of(2, fields.size())]);
    const QString& text = ShortTexts()[deed.Of(3, ShortTexts().size())];
    Tell(u"'%1' into %2 of %3"_s.arg(text, TextOf(field->parentWidget()), TextOf(field)));
    hands::SendClick(field, {deed.Of(4, field->width()), field->height() / 2}, {});
    if (!field.isNull() && deed.Chance(5, kOften)) {
        hands::SendKey(field, Qt::Key_Backspace, {});
    }
    if (!field.isNull()) {
        Type(field, text);
    }
}

void DoKey(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    QWidget* window = WindowFor(deed);
    if (window == nullptr) {
        return;
    }
    const KeyPress& press = Keys()[size_t(deed.Of(3, qsizetype(Keys().size())))];
    Tell(QKeySequence(press.modifiers | press.key).toString() + u" into "_s + TextOf(window));
    hands::SendKey(window, press.key, press.modifiers);
}

void DoShortcut(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    QWidget* client = ClientWindow();
    const auto& rows = host::CommandTable();
    const host::CommandRow& row = rows[size_t(deed.Of(3, qsizetype(rows.size())))];
    const bool quits = row.command == host::Command::Quit && !deed.Chance(4, kSeldom);
    if (client == nullptr || !hands::CanReach(client) || row.key.isEmpty() || quits) {
        return;
    }
    Tell(row.text);
    hands::SendKey(client, row.key[0].key(), row.key[0].keyboardModifiers());
}

void CloseIt(const Deed& deed, QWidget* window) {
    // Without its main window the client ends, and the next one begins.
    if (window == ClientWindow() && !deed.Chance(4, kSeldom)) {
        return;
    }
    Tell(TextOf(window));
    hands::CloseWindow(window);
}

void DoWindow(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    QWidget* window = WindowFor(deed);
    if (window == nullptr) {
        return;
    }
    if (deed.kind == Kind::Close) {
        CloseIt(deed, window);
        return;
    }
    if (window->windowType() == Qt::Popup) {
        return;
    }
    Tell(TextOf(window));
    switch (deed.kind) {
    case Kind::Resize:
        window->resize(deed.Of(4, kLargestSide), deed.Of(5, kLargestSide));
        break;
    case Kind::Move:
        window->move(deed.Of(4, kLargestSide) - 200, deed.Of(5, kLargestSide) - 200);
        break;
    case Kind::Minimise:
        window->showMinimized();
        break;
    case Kind::Maximise:
        window->showMaximized();
        break;
    default:
        break;
    }
}

/// Of all windows, minimised ones too: what a person does in the task bar.
void DoTaskBar(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    QList<QWidget*> windows = Windows();
    windows.removeIf([](const QWidget* window) {
        // A toast stands in no task bar.
        return window->windowType() == Qt::Popup ||
               window->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus) ||
               !hands::CanReach(window);
    });
    if (windows.isEmpty()) {
        return;
    }
    QWidget* window = windows[deed.Of(1, windows.size())];
    Tell(TextOf(window));
    if (deed.kind == Kind::Restore) {
        window->showNormal();
    }
    window->raise();
    window->activateWindow();
}

void DoProject(const Deed& deed, const Surroundings& surroundings) {
    Q_UNUSED(surroundings);
    const QWidget* client = ClientWindow();
    auto* combo = client == nullptr ? nullptr : client->findChild<QComboBox*>(u"projectChoice"_s);
    if (combo == nullptr || combo->count() == 0 || !hands::CanReach(combo)) {
        return;
    }
    const QString entry = combo->itemText(deed.Of(1, combo->count()));
    Tell(entry);
    hands::ChooseInCombo(combo, entry);
}

void DoNeighbour(const Deed& deed, const Surroundings& surroundings) {
    Tell(surroundings.neighbour.Change(deed));
}

void DoTransfers(const Deed& deed, const Surroundings& surroundings) {
    if (surroundings.changeTransfers) {
        Tell(surroundings.changeTransfers(deed));
    }
}

void DoDrop(const Deed& deed, const Surroundings& surroundings) {
    QWidget* client = ClientWindow();
    if (client == nullptr) {
        return;
    }
    QStringList paths;
    const QFileInfoList files =
        QDir(surroundings.dropFolder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        if (paths.size() <= deed.Of(1, 4)) {
            paths << file.absoluteFilePath();
        }
    }
    if (deed.Chance(2, kSometimes)) {
        paths = QStringList{surroundings.dropFolder};
    }
    Tell(u"%1 paths"_s.arg(paths.size()));
    hands::DropPaths(client, paths);
}

using Way = void (*)(const Deed&, const Surroundings&);

const std::map<Kind, Way>& Ways() {
    static const std::map<Kind, Way> ways = {
        {Kind::Click, DoMouse},         {Kind::RightClick, DoMouse}, {Kind::DoubleClick, DoMouse},
        {Kind::Hover, DoMouse},         {Kind::Wheel, DoMouse},      {Kind::Drag, DoMouse},
        {Kind::Cell, DoCell},           {Kind::Flag, DoFlag},        {Kind::Type, DoType},
        {Kind::Edit, DoEdit},           {Kind::Key, DoKey},          {Kind::Shortcut, DoShortcut},
        {Kind::Close, DoWindow},        {Kind::Resize, DoWindow},    {Kind::Move, DoWindow},
        {Kind::Minimise, DoWindow},     {Kind::Maximise, DoWindow},  {Kind::Restore, DoTaskBar},
        {Kind::Activate, DoTaskBar},    {Kind::Project, DoProject},  {Kind::Neighbour, DoNeighbour},
        {Kind::Transfers, DoTransfers}, {Kind::Drop, DoDrop},
    };
    return ways;
}

} // namespace

void Act(const Deed& deed, const Surroundings& surroundings) {
    // Written before it is done: it may be the last.
    Note(u"#%1 %2"_s.arg(deed.number).arg(NameOf(deed.kind)));
    const auto way = Ways().find(deed.kind);
    if (way != Ways().end()) {
        way->second(deed, surroundings);
    }
}

} // namespace monkey
