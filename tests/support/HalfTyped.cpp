#include "tests/support/HalfTyped.h"

#include "tests/support/WaitFor.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSpinBox>
#include <QTextEdit>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace support {

namespace {

using Act = void (*)(QWidget& field);

/// Over the last character, so that a date or a number stays one.
void TypeOver(QWidget& field) {
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClick(&field, Qt::Key_8);
}

/// As an input method shows it while the person still chooses.
void Compose(QWidget& field) {
    QInputMethodEvent event(u"zhao"_s, {});
    QCoreApplication::sendEvent(&field, &event);
}

void DropDownAndMove(QWidget& field) {
    auto& box = static_cast<QComboBox&>(field);
    box.showPopup();
    if (!box.view()->isVisible()) {
        return;
    }
    // To an entry that isn't the chosen one, where there is one.
    QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Down);
}

void HoldSpace(QWidget& field) {
    QTest::keyPress(&field, Qt::Key_Space);
}

void HoldMouse(QWidget& field) {
    QTest::mousePress(&field, Qt::LeftButton);
}

void EditCell(QWidget& field) {
    auto& view = static_cast<QAbstractItemView&>(field);
    const QModelIndex first = view.model()->index(0, 0);
    view.setCurrentIndex(first);
    view.edit(first);
    if (QApplication::focusWidget() != nullptr && QApplication::focusWidget() != &view) {
        TypeOver(*QApplication::focusWidget());
    }
}

struct Way {
    const char* what;
    bool (*fits)(const QWidget& field);
    Act act;
};

template <class... Kinds> bool IsAny(const QWidget& field) {
    return ((qobject_cast<const Kinds*>(&field) != nullptr) || ...);
}

bool IsEditableBox(const QWidget& field) {
    const auto* box = qobject_cast<const QComboBox*>(&field);
    return box != nullptr && box->isEditable();
}

bool TakesText(const QWidget& field) {
    return IsAny<QAbstractSpinBox, QLineEdit, QPlainTextEdit, QTextEdit>(field) ||
           IsEditableBox(field);
}

bool IsEditingView(const QWidget& field) {
    const auto* view = qobject_cast<const QAbstractItemView*>(&field);
    return view != nullptr && view->model() != nullptr && view->model()->rowCount() > 0 &&
           (view->model()->flags(view->model()->index(0, 0)) & Qt::ItemIsEditable) != 0 &&
           view->editTriggers() != QAbstractItemView::NoEditTriggers;
}

constexpr Way kWays[] = {
    {"typed over", TakesText, TypeOver},
    {"composed", TakesText, Compose},
    {"dropped down", IsAny<QComboBox>, DropDownAndMove},
    {"space held", IsAny<QAbstractButton>, HoldSpace},
    {"mouse held", IsAny<QAbstractButton>, HoldMouse},
    {"cell edited", IsEditingView, EditCell},
};

/// A part of a field: the line of a date or of a combo, the list of a combo.
bool IsPart(const QWidget& widget) {
    for (const QWidget* above = widget.parentWidget(); above != nullptr;
         above = above->parentWidget()) {
        if (IsAny<QAbstractSpinBox, QComboBox, QLineEdit, QAbstractItemView>(*above)) {
            return true;
        }
    }
    return false;
}

/// Every widget of the window in the order in which they were made.
std::vector<QWidget*> Fields(const QWidget& window) {
    std::vector<QWidget*> fields;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && !IsPart(*widget)) {
            fields.push_back(widget);
        }
    }
    return fields;
}

std::string NameOf(const QWidget& field) {
    return field.objectName().isEmpty() ? field.metaObject()->className()
                                        : field.objectName().toStdString();
}

void ActIn(QWidget& window, size_t place, Act act) {
    const std::vector<QWidget*> fields = Fields(window);
    ASSERT_LT(place, fields.size()) << "the window was not made like the first";
    QWidget& field = *fields[place];
    ASSERT_TRUE(field.isVisible() && field.isEnabled()) << NameOf(field);
    field.setFocus(Qt::MouseFocusReason);
    act(field);
}

/// The calls from the half done input to the window's end.
std::vector<std::string> CallsOfEnd(const EndTrial& trial, const HalfDone* input) {
    const QPointer<QWidget> window = trial.open();
    if (!window) {
        ADD_FAILURE() << "the window did not open";
        return {};
    }
    if (input != nullptr) {
        input->act(*window);
    }
    trial.takeCalls();
    trial.end();
    EXPECT_TRUE(!window || !window->isVisible()) << "the window has not ended";
    RunPendingEvents();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    return trial.takeCalls();
}

} // namespace

std::vector<HalfDone> HalfDoneInputs(const QWidget& window) {
    std::vector<HalfDone> inputs;
    const std::vector<QWidget*> fields = Fields(window);
    for (size_t place = 0; place < fields.size(); ++place) {
        const QWidget& field = *fields[place];
        if (!field.isVisible() || !field.isEnabled()) {
            continue;
        }
        for (const Way& way : kWays) {
            if (way.fits(field)) {
                inputs.push_back(
                    {NameOf(field) + ": " + way.what,
                     [place, act = way.act](QWidget& again) { ActIn(again, place, act); }});
            }
        }
    }
    return inputs;
}

void ExpectEndsAsUntouched(const EndTrial& trial) {
    const QPointer<QWidget> first = trial.open();
    ASSERT_FALSE(first.isNull());
    const std::vector<HalfDone> inputs = HalfDoneInputs(*first);
    ASSERT_FALSE(inputs.empty()) << "nothing can be half done in this window";
    trial.end();
    RunPendingEvents();
    const std::vector<std::string> untouched = CallsOfEnd(trial, nullptr);
    for (const HalfDone& input : inputs) {
        SCOPED_TRACE(input.what);
        EXPECT_EQ(CallsOfEnd(trial, &input), untouched);
    }
}

} // namespace support
