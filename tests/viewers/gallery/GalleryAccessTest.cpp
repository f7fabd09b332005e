// The painted buttons as a screen reader finds them.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"

#include <QAccessible>
#include <QPushButton>
#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class GalleryAccess : public GalleryFixture {
protected:
    GalleryAccess() {
        Open();
        SetItems(OnDisk(10), 5);
    }

    [[nodiscard]] QAccessibleInterface* PaneAccess() {
        return QAccessible::queryAccessibleInterface(Pane());
    }
    /// A child of the pane by what the reader says; null without one.
    [[nodiscard]] QAccessibleInterface* Child(const QString& name) {
        for (int at = 0; at < PaneAccess()->childCount(); ++at) {
            QAccessibleInterface* child = PaneAccess()->child(at);
            if (child->text(QAccessible::Name) == name && !child->state().invisible) {
                return child;
            }
        }
        return nullptr;
    }
    void Press(const QString& name) {
        Child(name)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
};

} // namespace

TEST_F(GalleryAccess, TheButtonsOfTheStripsDirectionHaveNamesKeysAndPlaces) {
    for (const QString& name : {u"上一张"_s, u"下一张"_s, u"前一页"_s, u"后一页"_s}) {
        QAccessibleInterface* button = Child(name);
        ASSERT_NE(button, nullptr) << name.toStdString();
        EXPECT_EQ(button->role(), QAccessible::Button);
        EXPECT_FALSE(button->text(QAccessible::Accelerator).isEmpty());
        EXPECT_EQ(button->parent(), PaneAccess());
        EXPECT_EQ(PaneAccess()->child(PaneAccess()->indexOfChild(button)), button);
    }
    const QRect next = State().buttons[gallery::kNextPic].rect;
    EXPECT_EQ(Child(u"下一张"_s)->rect(), next.translated(Pane()->mapToGlobal(QPoint(0, 0))));
    EXPECT_EQ(PaneAccess()->childCount(), 6);
}

TEST_F(GalleryAccess, AButtonIsFoundByThePointThatItCovers) {
    const QPoint next = Pane()->mapToGlobal(State().buttons[gallery::kNextPic].rect.center());
    EXPECT_EQ(PaneAccess()->childAt(next.x(), next.y()), Child(u"下一张"_s));
    const QPoint middle = Pane()->mapToGlobal(PictureMiddle());
    EXPECT_EQ(PaneAccess()->childAt(middle.x(), middle.y()), nullptr);
}

TEST_F(GalleryAccess, APressDoesWhatAClickDoes) {
    Press(u"下一张"_s);
    EXPECT_EQ(State().currentIndex, 6);
    const gallery::ItemRange before = State().visible;
    Press(u"前一页"_s);
    EXPECT_LT(State().visible.first, before.first);
    EXPECT_EQ(State().currentIndex, 6);
}

TEST_F(GalleryAccess, ADisabledButtonSaysSoAndCantBePressed) {
    gallery->SelectPic(9, gallery::kCurrentLast);
    EXPECT_TRUE(Child(u"下一张"_s)->state().disabled);
    EXPECT_TRUE(Child(u"下一张"_s)->actionInterface()->actionNames().isEmpty());
    Press(u"下一张"_s);
    EXPECT_EQ(State().currentIndex, 9);
    EXPECT_FALSE(Child(u"上一张"_s)->state().disabled);
}

TEST_F(GalleryAccess, AChangeOfStateIsToldOnce) {
    auto* pane = qobject_cast<gallery::GalleryPane*>(Pane());
    ASSERT_NE(PaneAccess(), nullptr);
    (void)Shown();
    QSignalSpy told(pane, &gallery::GalleryPane::ButtonEnabledChanged);
    gallery->SelectPic(9, gallery::kCurrentLast);
    ASSERT_GE(told.size(), 1);
    std::vector<int> buttons;
    for (const QList<QVariant>& one : told) {
        buttons.push_back(one.front().toInt());
    }
    EXPECT_THAT(buttons, testing::UnorderedElementsAre(gallery::kNextPic, gallery::kThumbRight,
                                                       gallery::kThumbDown));
    told.clear();
    (void)Shown();
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(GalleryAccess, ControlsOnThePaneStandBeforeTheButtons) {
    auto* control = new QPushButton(u"标识"_s, Pane());
    control->setGeometry(0, 0, 40, 20);
    control->show();
    EXPECT_EQ(PaneAccess()->childCount(), 7);
    EXPECT_EQ(PaneAccess()->child(0)->text(QAccessible::Name), u"标识"_s);
    EXPECT_EQ(PaneAccess()->child(1)->text(QAccessible::Name), u"上一张"_s);
    EXPECT_EQ(PaneAccess()->child(7), nullptr);
}

TEST_F(GalleryAccess, TheButtonsGoWithTheWindow) {
    const QAccessible::Id button = QAccessible::uniqueId(Child(u"下一张"_s));
    ASSERT_NE(QAccessible::accessibleInterface(button), nullptr);
    gallery->Destroy();
    support::RunPendingEvents();
    EXPECT_EQ(QAccessible::accessibleInterface(button), nullptr);
}

TEST_F(GalleryAccess, AButtonOfTheStripsOtherDirectionHasNoPlace) {
    ASSERT_FALSE(PaneAccess()->child(gallery::kThumbLeft)->rect().isEmpty());
    gallery->SetPicRects(QRect(0, 0, 395, 400), QRect(400, 5, 95, 390));
    ASSERT_FALSE(State().buttons[gallery::kThumbLeft].rect.isEmpty()) << "where it was";
    EXPECT_EQ(PaneAccess()->child(gallery::kThumbLeft)->rect(), QRect());
    EXPECT_FALSE(PaneAccess()->child(gallery::kThumbUp)->rect().isEmpty());
}
