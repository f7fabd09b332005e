#include "tests/support/Hands.h"

#include "toolkit/windows/BalloonTip.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace support {

namespace {

constexpr int kMostTabs = 40;

} // namespace

void Click(QWidget* control) {
    ASSERT_TRUE(control->isVisible()) << control->objectName().toStdString();
    QTest::mouseClick(control, Qt::LeftButton);
}

void DropDown(QComboBox& box) {
    ASSERT_TRUE(box.isVisible()) << box.objectName().toStdString();
    // On its arrow: elsewhere a box with an edit field takes the click for its text.
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(box.width() - 6, box.height() / 2));
}

void CloseList(QComboBox& box) {
    if (box.view()->isVisible()) {
        QTest::keyClick(box.view(), Qt::Key_Escape);
    }
}

void Choose(QComboBox& box, int index) {
    DropDown(box);
    ASSERT_TRUE(box.view()->isVisible()) << box.objectName().toStdString();
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int step = 0; step < index; ++step) {
        QTest::keyClick(box.view(), Qt::Key_Down);
    }
    QTest::keyClick(box.view(), Qt::Key_Return);
}

void TypeOver(QLineEdit& edit, const QString& text) {
    edit.setFocus();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    for (const QChar character : text) {
        if (character.unicode() < 0x80) {
            QTest::keyClick(&edit, character.toLatin1());
            continue;
        }
        QInputMethodEvent commit;
        commit.setCommitString(character);
        QCoreApplication::sendEvent(&edit, &commit);
    }
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
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
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
