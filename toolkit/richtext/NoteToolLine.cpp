#include "toolkit/richtext/NoteToolLine.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QToolButton>

#include <algorithm>
#include <numeric>
#include <utility>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineEdge = 2;
constexpr int kLineIcon = 16;
constexpr int kBetween = 9; ///< a line between entries, with what is left of it and right of it
constexpr int kBesideBox = kStep;

QToolButton* MakeToolButton(QWidget& parent) {
    auto* button = new QToolButton(&parent);
    button->setAutoRaise(true);
    button->setIconSize({kLineIcon, kLineIcon});
    return button;
}

/// The entries of a box, as a menu that chooses as the box does.
QMenu* MenuOf(QComboBox& box, QWidget& parent) {
    auto* menu = new QMenu(box.accessibleName(), &parent);
    QObject::connect(menu, &QMenu::aboutToShow, &box, [menu, &box] {
        menu->clear();
        for (int index = 0; index < box.count(); ++index) {
            QAction* action = menu->addAction(box.itemText(index), &box, [&box, index] {
                box.setCurrentIndex(index);
                emit box.activated(index);
                emit box.textActivated(box.itemText(index));
            });
            action->setCheckable(true);
            action->setChecked(index == box.currentIndex());
        }
    });
    return menu;
}

bool OpensByKey(int key) {
    return key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter ||
           key == Qt::Key_Space;
}

bool MovesByKey(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Home || key == Qt::Key_End;
}

} // namespace

size_t CountInSight(const std::vector<int>& widths, int room, int more) {
    if (std::accumulate(widths.begin(), widths.end(), 0) <= room) {
        return widths.size();
    }
    size_t count = 0;
    int left = room - more;
    while (count < widths.size() && widths[count] <= left) {
        left -= widths[count++];
    }
    return count;
}

NoteToolLine::NoteToolLine(QWidget* parent) : QWidget(parent) {
    const QString keys = u"Alt+F10 进入工具栏，方向键移动，Esc 返回正文"_s;
    setToolTip(keys);
    setAccessibleName(u"工具栏"_s);
    setAccessibleDescription(keys);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_more = MakeToolButton(*this);
    m_more->setObjectName(u"moreButton"_s);
    m_more->setIcon(Icon(u"more"_s));
    m_more->setAccessibleName(u"更多命令"_s);
    m_more->setToolTip(u"更多命令（%1）"_s.arg(keys));
    m_more->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(m_more);
    menu->setObjectName(u"moreMenu"_s);
    m_more->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, &NoteToolLine::FillMore);
    m_more->setFocusPolicy(Qt::NoFocus);
    m_more->installEventFilter(this);
    m_more->hide();
}

void NoteToolLine::Add(Entry entry) {
    if (entry.widget != nullptr) {
        entry.widget->setFocusPolicy(entry.box != nullptr ? Qt::ClickFocus : Qt::NoFocus);
        entry.widget->installEventFilter(this);
    }
    m_entries.push_back(entry);
    updateGeometry();
    Arrange();
}

void NoteToolLine::AddCommand(QAction* action) {
    QToolButton* button = MakeToolButton(*this);
    button->setDefaultAction(action);
    button->setAccessibleName(action->text());
    Add({button, action, nullptr, {}});
}

void NoteToolLine::AddMenu(QMenu* menu, const QString& name) {
    QToolButton* button = MakeToolButton(*this);
    button->setObjectName(name);
    button->setIcon(menu->icon());
    button->setToolTip(menu->title());
    button->setAccessibleName(menu->title());
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(menu);
    Add({button, menu->menuAction(), nullptr, {}});
}

void NoteToolLine::AddBox(QComboBox* box) {
    Add({box, MenuOf(*box, *this)->menuAction(), box, {}});
}

void NoteToolLine::AddSeparator() {
    Add({});
}

int NoteToolLine::WidthOf(const Entry& entry) const {
    if (entry.widget == nullptr) {
        return kBetween;
    }
    return entry.widget->sizeHint().width() + (entry.box != nullptr ? kBesideBox : 0);
}

QSize NoteToolLine::sizeHint() const {
    int width = 2 * kLineEdge;
    int height = m_more->sizeHint().height();
    for (const Entry& entry : m_entries) {
        width += WidthOf(entry);
        height = std::max(height, entry.widget == nullptr ? 0 : entry.widget->sizeHint().height());
    }
    return {width, height + 2 * kLineEdge};
}

QSize NoteToolLine::minimumSizeHint() const {
    return {m_more->sizeHint().width() + 2 * kLineEdge, sizeHint().height()};
}

void NoteToolLine::Arrange() {
    std::vector<int> widths;
    for (const Entry& entry : m_entries) {
        widths.push_back(WidthOf(entry));
    }
    const int more = m_more->sizeHint().width();
    const size_t count = CountInSight(widths, width() - 2 * kLineEdge, more);
    const int middle = height() / 2;
    int left = kLineEdge;
    for (size_t i = 0; i < m_entries.size(); ++i) {
        Entry& entry = m_entries[i];
        const bool isInSight = i < count;
        if (entry.widget == nullptr) {
            entry.lineAt = isInSight ? QRect(left + kBetween / 2, 4, 1, height() - 8) : QRect();
        } else {
            const int high = entry.widget->sizeHint().height();
            entry.widget->setGeometry(left, middle - high / 2, entry.widget->sizeHint().width(),
                                      high);
            entry.widget->setVisible(isInSight);
        }
        left += isInSight ? widths[i] : 0;
    }
    m_more->setGeometry(left, middle - m_more->sizeHint().height() / 2, more,
                        m_more->sizeHint().height());
    m_more->setVisible(count < m_entries.size());
    ChooseStop();
    update();
}

void NoteToolLine::FillMore() {
    QMenu& menu = *m_more->menu();
    menu.clear();
    for (const Entry& entry : m_entries) {
        if (entry.widget == nullptr) {
            menu.addSeparator(); // one that has nothing before it or behind it isn't shown
        } else if (!entry.widget->isVisibleTo(this)) {
            menu.addAction(entry.hidden);
        }
    }
}

bool NoteToolLine::CanStop(const QWidget& widget) const {
    return widget.isEnabled() && widget.isVisibleTo(this);
}

std::vector<QWidget*> NoteToolLine::Stops() const {
    std::vector<QWidget*> stops;
    for (const Entry& entry : m_entries) {
        if (entry.widget != nullptr && CanStop(*entry.widget)) {
            stops.push_back(entry.widget);
        }
    }
    if (CanStop(*m_more)) {
        stops.push_back(m_more);
    }
    return stops;
}

void NoteToolLine::ChooseStop() {
    const std::vector<QWidget*> stops = Stops();
    const bool isThere = std::ranges::find(stops, m_last) != stops.end();
    QWidget* stop = isThere ? m_last : stops.empty() ? nullptr : stops.front();
    if (stop == m_stop) {
        return;
    }
    if (QWidget* before = std::exchange(m_stop, stop)) {
        const bool isBox = qobject_cast<QComboBox*>(before) != nullptr;
        before->setFocusPolicy(isBox ? Qt::ClickFocus : Qt::NoFocus);
    }
    if (m_stop != nullptr) {
        const bool isBox = qobject_cast<QComboBox*>(m_stop) != nullptr;
        m_stop->setFocusPolicy(isBox ? Qt::StrongFocus : Qt::TabFocus);
    }
}

void NoteToolLine::Enter() {
    if (m_stop != nullptr) {
        m_stop->setFocus(Qt::ShortcutFocusReason);
    }
}

void NoteToolLine::Move(QWidget& from, int key) {
    const std::vector<QWidget*> stops = Stops();
    const auto at = std::ranges::find(stops, &from);
    if (at == stops.end()) {
        return;
    }
    const auto last = std::ptrdiff_t(stops.size()) - 1;
    std::ptrdiff_t next = at - stops.begin();
    next = key == Qt::Key_Home  ? 0
           : key == Qt::Key_End ? last
                                : next + (key == Qt::Key_Right ? 1 : -1);
    // Round at the ends.
    next = next < 0 ? last : next > last ? 0 : next;
    stops[size_t(next)]->setFocus(Qt::TabFocusReason);
}

bool NoteToolLine::TakeKey(QWidget& at, int key) {
    auto* box = qobject_cast<QComboBox*>(&at);
    auto* button = qobject_cast<QToolButton*>(&at);
    const QLineEdit* line = box != nullptr ? box->lineEdit() : nullptr;
    // Whoever has begun to type is in the text of the box, not in the line of entries.
    const bool isTyped = line != nullptr && line->selectedText() != line->text();
    if (key == Qt::Key_Escape) {
        emit Left();
    } else if (MovesByKey(key) && !isTyped) {
        Move(at, key);
    } else if (box != nullptr && OpensByKey(key) && (line == nullptr || key == Qt::Key_Down)) {
        box->showPopup();
    } else if (button != nullptr && OpensByKey(key)) {
        button->menu() != nullptr ? button->showMenu() : button->click();
    } else {
        // Buttons beside each other would take Up for the one before.
        return button != nullptr && key == Qt::Key_Up;
    }
    return true;
}

bool NoteToolLine::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers held = key->modifiers() & ~Qt::KeypadModifier;
        return held == Qt::NoModifier && TakeKey(*widget, key->key());
    }
    case QEvent::FocusIn:
        m_last = widget;
        ChooseStop();
        break;
    case QEvent::EnabledChange:
        ChooseStop();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void NoteToolLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Arrange();
}

bool NoteToolLine::event(QEvent* event) {
    const bool isTaken = QWidget::event(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        Arrange();
    }
    return isTaken;
}

void NoteToolLine::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event);
    QPainter painter(this);
    for (const Entry& entry : m_entries) {
        painter.fillRect(entry.lineAt, Colors::Frame());
    }
    painter.fillRect(0, height() - 1, width(), 1, Colors::Frame());
}

} // namespace toolkit
