#include "tour/TourEyes.h"

#include "hands/Hands.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QStatusBar>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

bool Answers(const QWidget* window, const QString& nameOrTitle) {
    return window->isWindow() &&
           (window->objectName() == nameOrTitle || window->windowTitle().startsWith(nameOrTitle));
}

bool LiesOver(const QWidget* other, const QWidget* window) {
    const Qt::WindowType type = other->windowType();
    const bool floats = type == Qt::Popup || type == Qt::ToolTip || type == Qt::Tool;
    return other != window && other->isVisible() && other->isWindow() && floats &&
           other->geometry().intersects(window->geometry());
}

} // namespace

QWidget* FindWindow(const QString& nameOrTitle) {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal->isVisible() && Answers(modal, nameOrTitle)) {
        return modal;
    }
    // A minimised window that has an owner is out of sight, and still the window of its name.
    QWidget* minimised = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && Answers(window, nameOrTitle)) {
            return window;
        }
        if (window->isMinimized() && Answers(window, nameOrTitle)) {
            minimised = window;
        }
    }
    return minimised;
}

QWidget* FindIn(const QWidget* window, const QString& name) {
    if (window == nullptr) {
        return nullptr;
    }
    const QList<QWidget*> found = window->findChildren<QWidget*>(name);
    for (QWidget* widget : found) {
        if (widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

QWidget* OpenMessageBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

bool AnswerMessageBox(const QString& button) {
    auto* box = qobject_cast<QMessageBox*>(OpenMessageBox());
    if (box == nullptr) {
        return false;
    }
    const QList<QAbstractButton*> buttons = box->buttons();
    for (QAbstractButton* candidate : buttons) {
        if (candidate->text().remove(u'&').startsWith(button)) {
            return hands::Click(candidate);
        }
    }
    return false;
}

QString MessageBoxText() {
    const auto* box = qobject_cast<QMessageBox*>(OpenMessageBox());
    return box == nullptr ? QString() : box->text();
}

QString ReadText(const QWidget* widget) {
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        return label->text();
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
        return combo->currentText();
    }
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) {
        return edit->text();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        return button->text();
    }
    if (widget == nullptr) {
        return {};
    }
    QString text;
    if (const auto* bar = qobject_cast<const QStatusBar*>(widget)) {
        text = bar->currentMessage();
    }
    const QList<QLabel*> labels = widget->findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (label->isVisible()) {
            text += label->text() + u'\n';
        }
    }
    return text;
}

bool ShowsPhoto(QWidget* pane, double xShare, double yShare) {
    if (pane == nullptr) {
        return false;
    }
    const QImage seen = pane->grab().toImage();
    const QPoint place(static_cast<int>(seen.width() * xShare),
                       static_cast<int>(seen.height() * yShare));
    return seen.pixelColor(place) != seen.pixelColor(1, 1);
}

bool SavePicture(QWidget* window, const QString& path) {
    QList<QWidget*> shown{window};
    QRect area = window->geometry();
    const QList<QWidget*> all = QApplication::topLevelWidgets();
    for (QWidget* other : all) {
        if (!LiesOver(other, window)) {
            continue;
        }
        shown << other;
        area |= other->geometry();
    }
    const double scale = window->devicePixelRatioF();
    QPixmap picture(area.size() * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(window->palette().color(QPalette::Mid));
    QPainter painter(&picture);
    for (QWidget* one : shown) {
        painter.drawPixmap(one->geometry().topLeft() - area.topLeft(), one->grab());
    }
    painter.end();
    return picture.save(path);
}

} // namespace tour
