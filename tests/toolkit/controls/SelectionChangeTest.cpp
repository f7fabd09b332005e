// A person's change of what is chosen, with real clicks, keys and the wheel.
#include "toolkit/controls/SelectionChange.h"
#include "tests/support/Hands.h"
#include "toolkit/controls/DropCombo.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <gmock/gmock.h>

#include <memory>

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct SelectionChangeTest : ::testing::Test {
    QWidget window;
    DropCombo* box = new DropCombo(&window);
    QLineEdit* other = new QLineEdit(&window);
    std::vector<int> changes;

    void SetUp() override {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(other);
        box->addItems({u"甲"_s, u"乙"_s, u"丙"_s});
        box->setCurrentIndex(1);
        window.resize(300, 120);
        window.show();
        window.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&window));
        toolkit::ConnectSelectionChange(box, &window,
                                        [this](int index) { changes.push_back(index); });
    }

    void ClickEntry(int index) const {
        support::DropDown(*box);
        QAbstractItemView* list = box->view();
        ASSERT_TRUE(list->isVisible());
        const QPoint place = list->visualRect(list->model()->index(index, 0)).center();
        QTest::mouseMove(list->viewport(), place);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        // A release so soon after the list came up is the end of the click that dropped it down.
        if (list->isVisible()) {
            QTest::keyClick(list, Qt::Key_Return);
        }
    }

    void Turn(int delta) const {
        const QPointF place = box->rect().center();
        QWheelEvent event(place, box->mapToGlobal(place), QPoint(), QPoint(0, delta), {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box, &event);
    }
};

TEST_F(SelectionChangeTest, AnotherEntryIsTold) {
    ClickEntry(2);
    EXPECT_THAT(changes, ElementsAre(2));
    support::Choose(*box, 0);
    EXPECT_THAT(changes, ElementsAre(2, 0));
}

TEST_F(SelectionChangeTest, TheEntryAlreadyChosenIsNotTold) {
    support::Choose(*box, 1);
    ClickEntry(1);
    EXPECT_EQ(box->currentIndex(), 1);
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(SelectionChangeTest, ChangesByCodeAreNotToldEvenWhenConfirmed) {
    box->setCurrentIndex(2);
    box->clear();
    box->addItems({u"甲"_s, u"乙"_s, u"丙"_s, u"丁"_s});
    box->setCurrentIndex(3);
    EXPECT_THAT(changes, IsEmpty());
    support::Choose(*box, 3);
    EXPECT_THAT(changes, IsEmpty());
    // What was chosen before the code's change is another entry now.
    support::Choose(*box, 1);
    EXPECT_THAT(changes, ElementsAre(1));
}

TEST_F(SelectionChangeTest, WhatTheListIsFilledWithAsItDropsDownIsWhatWasChosen) {
    QObject::connect(box, &DropCombo::dropDown, &window, [this] {
        box->clear();
        box->addItems({u"全部"_s, u"戊"_s});
    });
    support::Choose(*box, 0);
    EXPECT_THAT(changes, IsEmpty());
    support::Choose(*box, 1);
    EXPECT_THAT(changes, ElementsAre(1));
}

TEST_F(SelectionChangeTest, KeysAndWheelOnTheClosedBoxAreTold) {
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_THAT(changes, ElementsAre(2));
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_THAT(changes, ElementsAre(2)) << "there is no entry below the last";
    Turn(120);
    EXPECT_THAT(changes, ElementsAre(2, 1));
}

TEST_F(SelectionChangeTest, LeavingTheListWithEscapeIsNotTold) {
    support::DropDown(*box);
    QTest::keyClick(box->view(), Qt::Key_Down);
    support::CloseList(*box);
    EXPECT_THAT(changes, IsEmpty());
    support::Choose(*box, 2);
    EXPECT_THAT(changes, ElementsAre(2));
}

TEST_F(SelectionChangeTest, AnEntryThatStandsElsewhereInTheListFilledAnewIsTheSame) {
    box->clear();
    box->addItem(u"丙"_s); // what is chosen, before the list is fetched
    QObject::connect(box, &DropCombo::dropDown, box, [this] {
        box->clear();
        box->addItems({u"甲"_s, u"乙"_s, u"丙"_s, u"乙"_s});
        box->setCurrentIndex(2);
    });
    QTest::mousePress(box, Qt::LeftButton);
    ASSERT_EQ(box->currentIndex(), 2);
    // Some window systems hand the keys of a list on by other ways than the list.
    emit box->activated(2);
    EXPECT_THAT(changes, IsEmpty());
    emit box->activated(1);
    emit box->activated(3);
    EXPECT_THAT(changes, ElementsAre(1, 3)) << "of two with one text each is an entry of its own";
    support::CloseList(*box);
}

TEST_F(SelectionChangeTest, SeveralListenersAllHearOfAChange) {
    std::vector<int> second;
    toolkit::ConnectSelectionChange(box, &window, [&](int index) { second.push_back(index); });
    support::Choose(*box, 0);
    EXPECT_THAT(changes, ElementsAre(0));
    EXPECT_THAT(second, ElementsAre(0));
}

TEST_F(SelectionChangeTest, NothingIsToldOnceTheListenerIsGone) {
    auto listener = std::make_unique<QObject>();
    int told = 0;
    toolkit::ConnectSelectionChange(box, listener.get(), [&](int) { ++told; });
    listener.reset();
    support::Choose(*box, 0);
    EXPECT_EQ(told, 0);
}

} // namespace
