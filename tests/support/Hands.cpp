#include "tests/support/Hands.h"

#include "hands/Choices.h"
#include "hands/Hands.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/BalloonTip.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace support {

namespace {

constexpr int kMostTabs = 40;

/// A window that was just shown comes to the foreground when the event loop runs.
void ExpectDone(const std::function<bool()>& deed, QWidget& control) {
    const std::string name = control.objectName().toStdString();
    ASSERT_TRUE(hands::CanReach(&control)) << name;
    ASSERT_TRUE(WaitFor([&control] { return hands::BringUp(&control); })) << name;
    ASSERT_TRUE(deed()) << name;
}

} // namespace

void Click(QWidget* control) {
    ExpectDone([control] { return hands::Click(control); }, *control);
}

void DropDown(QComboBox& box) {
    ExpectDone([&box] { return hands::DropDown(&box); }, box);
}

void CloseList(QComboBox& box) {
    hands::CloseList(&box);
}

void Choose(QComboBox& box, int index) {
    ExpectDone([&box, index] { return hands::ChooseRow(&box, index); }, box);
}

void TypeOver(QLineEdit& edit, const QString& text) {
    ExpectDone([&edit] { return hands::TypeOver(&edit, {}); }, edit);
    hands::SendText(&edit, text);
}

std::vector<std::string> Entries(const QComboBox& box) {
    std::vector<std::string> texts;
    for (int i = 0; i < box.count(); ++i) {
        texts.push_back(box.itemText(i).toStdString());
    }
    return texts;
}

std::string BalloonAt(const QWidget* control) {
    const toolkit::BalloonTip* balloon = toolkit::BalloonTip::Current();
    if (balloon == nullptr || balloon->Control() != control) {
        return {};
    }
    return balloon->Text().toStdString();
}

std::string FocusedName() {
    const QWidget* widget = QApplication::focusWidget();
    while (widget != nullptr &&
           (widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_"_s))) {
        widget = widget->parentWidget();
    }
    return widget == nullptr ? std::string() : widget->objectName().toStdString();
}

std::vector<std::string> TabOrder(QWidget* first) {
    first->setFocus();
    std::vector<std::string> names = {FocusedName()};
    for (int step = 0; step < kMostTabs; ++step) {
        hands::SendKey(first, Qt::Key_Tab);
        if (FocusedName() == names.front()) {
            return names;
        }
        // A date takes three steps, one for each of its parts.
        if (FocusedName() != names.back()) {
            names.push_back(FocusedName());
        }
    }
    return names;
}

} // namespace support
