// What keys, wheel and mouse mean to a gallery.
#include "viewers/GalleryInput.h"

#include <gtest/gtest.h>

#include <vector>

using gallery::GalleryAction;
using gallery::GalleryState;
using gallery::Selection;

namespace {

GalleryState Five(int current) {
    GalleryState state;
    state.items.resize(5);
    state.currentIndex = current;
    state.skipSlide = false;
    state.bigArea = QRect(0, 0, 300, 200);
    return state;
}

} // namespace

TEST(InputActions, EachKeyHasItsAction) {
    const std::vector<std::pair<int, GalleryAction>> table{
        {Qt::Key_PageUp, GalleryAction::PageBack},  {Qt::Key_PageDown, GalleryAction::PageForward},
        {Qt::Key_Home, GalleryAction::First},       {Qt::Key_End, GalleryAction::Last},
        {Qt::Key_Left, GalleryAction::KeyBack},     {Qt::Key_Up, GalleryAction::KeyBack},
        {Qt::Key_Right, GalleryAction::KeyForward}, {Qt::Key_Down, GalleryAction::KeyForward},
        {Qt::Key_Space, GalleryAction::None},       {Qt::Key_C, GalleryAction::None}};
    for (const auto& [key, action] : table) {
        EXPECT_EQ(gallery::ActionOf({key, Qt::NoModifier, true, true}), action) << key;
        EXPECT_EQ(gallery::ActionOf({key, Qt::ShiftModifier, false, true}), action) << key;
        EXPECT_EQ(gallery::ActionOf({key, Qt::NoModifier, true, false}), GalleryAction::None)
            << key << " without items";
        EXPECT_EQ(gallery::ActionOf({key, Qt::AltModifier, true, true}), GalleryAction::None)
            << key << " with Alt";
    }
    EXPECT_EQ(gallery::ActionOf({Qt::Key_Left, Qt::ControlModifier, true, true}),
              GalleryAction::None);
}

TEST(InputActions, EnterAndEscapeAreAlwaysSwallowed) {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        for (const bool items : {false, true}) {
            EXPECT_EQ(gallery::ActionOf({key, Qt::NoModifier, false, items}),
                      GalleryAction::Swallow);
            EXPECT_EQ(gallery::ActionOf({key, Qt::ControlModifier, true, items}),
                      GalleryAction::Swallow);
        }
    }
}

TEST(InputActions, ControlAndCCopiesOnThePaneAlone) {
    const auto copy = [](Qt::KeyboardModifiers modifiers, bool onPane) {
        return gallery::ActionOf({Qt::Key_C, modifiers, onPane, true});
    };
    EXPECT_EQ(copy(Qt::ControlModifier, true), GalleryAction::CopyPicture);
    EXPECT_EQ(copy(Qt::ControlModifier, false), GalleryAction::None);
    EXPECT_EQ(copy(Qt::ControlModifier | Qt::ShiftModifier, true), GalleryAction::None);
}

TEST(InputActions, EachButtonHasItsAction) {
    EXPECT_EQ(gallery::ActionOf(gallery::kPrevPic), GalleryAction::ButtonBack);
    EXPECT_EQ(gallery::ActionOf(gallery::kNextPic), GalleryAction::ButtonForward);
    for (const auto back : {gallery::kThumbLeft, gallery::kThumbUp}) {
        EXPECT_EQ(gallery::ActionOf(back), GalleryAction::PageBack);
    }
    for (const auto forward : {gallery::kThumbRight, gallery::kThumbDown}) {
        EXPECT_EQ(gallery::ActionOf(forward), GalleryAction::PageForward);
    }
}

TEST(InputActions, ArrowKeysComeWithoutASlideAndTheOthersWithWhatIsDue) {
    GalleryState state = Five(2);
    const auto selection = [&](GalleryAction action) {
        return gallery::SelectionOf(action, state);
    };
    EXPECT_EQ(selection(GalleryAction::KeyBack), (Selection{1, gallery::kCurrentFirst, true}));
    EXPECT_EQ(selection(GalleryAction::KeyForward), (Selection{3, gallery::kCurrentLast, true}));
    EXPECT_EQ(selection(GalleryAction::ButtonBack), (Selection{1, gallery::kCurrentFirst, false}));
    EXPECT_EQ(selection(GalleryAction::ButtonForward),
              (Selection{3, gallery::kCurrentLast, false}));
    EXPECT_EQ(selection(GalleryAction::First), (Selection{0, gallery::kCurrentFirst, false}));
    EXPECT_EQ(selection(GalleryAction::Last), (Selection{4, gallery::kCurrentLast, false}));
    state.skipSlide = true;
    EXPECT_EQ(selection(GalleryAction::Last), (Selection{4, gallery::kCurrentLast, true}));
    EXPECT_EQ(selection(GalleryAction::First), (Selection{0, gallery::kCurrentFirst, true}));
    EXPECT_EQ(selection(GalleryAction::ButtonForward), (Selection{3, gallery::kCurrentLast, true}));
    EXPECT_EQ(selection(GalleryAction::ButtonBack), (Selection{1, gallery::kCurrentFirst, true}));
    for (const auto none : {GalleryAction::None, GalleryAction::Swallow, GalleryAction::CopyPicture,
                            GalleryAction::PageBack, GalleryAction::PageForward}) {
        EXPECT_EQ(selection(none), std::nullopt);
    }
}

TEST(InputActions, TheWheelStepsByWholeNotchesTowardsTheUserForward) {
    const GalleryState state = Five(2);
    const auto turn = [&](int delta) { return gallery::SelectionOfWheel(delta, state); };
    EXPECT_EQ(turn(120), (Selection{1, gallery::kCurrentFirst, true}));
    EXPECT_EQ(turn(-120), (Selection{3, gallery::kCurrentLast, true}));
    EXPECT_EQ(turn(-359), (Selection{4, gallery::kCurrentLast, true}));
    EXPECT_EQ(turn(119), (Selection{2, gallery::kCurrentFirst, true})) << "no whole notch";
    EXPECT_EQ(turn(-119), (Selection{2, gallery::kCurrentFirst, true}));
    EXPECT_EQ(gallery::NotchesOf(-60), -0.5);
}

TEST(InputActions, APressHoldsAThumbnailOrAZoomedPicture) {
    GalleryState state = Five(2);
    state.visible = {1, 2};
    state.items[1].thumbRect = QRect(10, 250, 50, 50);
    EXPECT_EQ(gallery::HoldAt(state, {20, 260}), gallery::Hold::Thumb);
    EXPECT_EQ(gallery::HoldAt(state, {100, 100}), gallery::Hold::Nothing);
    EXPECT_FALSE(gallery::IsDraggableAt(state, {100, 100}));
    state.zoom.fit = false;
    EXPECT_EQ(gallery::HoldAt(state, {100, 100}), gallery::Hold::Picture);
    EXPECT_TRUE(gallery::IsDraggableAt(state, {100, 100}));
    EXPECT_EQ(gallery::HoldAt(state, {100, 230}), gallery::Hold::Nothing) << "below it";
    EXPECT_FALSE(gallery::IsDraggableAt(state, {100, 230}));
}

TEST(InputActions, ADoubleClickZoomsWhereNoEnabledButtonLies) {
    GalleryState state = Five(2);
    CDirectUIButton& next = state.buttons[gallery::kNextPic];
    next.rect = QRect(240, 50, 50, 90);
    next.shown = true;
    const QPoint onButton = next.rect.center();
    EXPECT_TRUE(gallery::ZoomsAt(state, {100, 100}));
    EXPECT_FALSE(gallery::ZoomsAt(state, {100, 230}));
    next.Enable(false);
    EXPECT_TRUE(gallery::ZoomsAt(state, onButton)) << "a disabled one is no button";
    EXPECT_EQ(gallery::ButtonUnder(state, onButton), &next) << "but has a tip";
    next.Enable(true);
    EXPECT_FALSE(gallery::ZoomsAt(state, onButton));
    EXPECT_EQ(gallery::ButtonUnder(state, {100, 100}), nullptr);
    state.zoom.fit = false;
    EXPECT_FALSE(gallery::IsDraggableAt(state, onButton));
}
