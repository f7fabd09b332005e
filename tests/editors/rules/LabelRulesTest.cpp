#include "editors/LabelRules.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::HasBlank;
using ZelvorNRQ_KXVeskPicture::NewLabelFault;
using ZelvorNRQ_KXVeskPicture::TypedText;
using ZelvorNRQ_KXVeskPicture::WithoutFirstBlank;

namespace {

TEST(LabelBlanks, OnlyTheFirstBlankGoesAtATime) {
    EXPECT_EQ(WithoutFirstBlank({u"a b c"_s, 5}), (TypedText{u"ab c"_s, 4}));
    EXPECT_EQ(WithoutFirstBlank({u"ab c"_s, 4}), (TypedText{u"abc"_s, 3}));
}

TEST(LabelBlanks, TheCursorStaysAtItsCharacter) {
    EXPECT_EQ(WithoutFirstBlank({u"ab cd"_s, 1}), (TypedText{u"abcd"_s, 1}));
    EXPECT_EQ(WithoutFirstBlank({u"ab cd"_s, 2}), (TypedText{u"abcd"_s, 2}));
    EXPECT_EQ(WithoutFirstBlank({u"ab cd"_s, 3}), (TypedText{u"abcd"_s, 2}));
    EXPECT_EQ(WithoutFirstBlank({u" "_s, 1}), (TypedText{u""_s, 0}));
}

TEST(LabelBlanks, ATextWithoutOneIsUnchanged) {
    EXPECT_FALSE(HasBlank(u"裂缝"_s));
    EXPECT_FALSE(HasBlank(QString()));
    EXPECT_TRUE(HasBlank(u" "_s));
    EXPECT_EQ(WithoutFirstBlank({u"裂缝"_s, 1}), (TypedText{u"裂缝"_s, 1}));
    EXPECT_EQ(WithoutFirstBlank({QString(), 0}), (TypedText{QString(), 0}));
}

TEST(NewLabels, AnEmptyTextIsNoLabel) {
    EXPECT_EQ(NewLabelFault(QString(), {}), e_VeskPicMngStatus::LabelEmpty);
    // Even where the service delivered one.
    EXPECT_EQ(NewLabelFault(QString(), {QString()}), e_VeskPicMngStatus::LabelEmpty);
}

TEST(NewLabels, ANameThatIsThereIsComparedExactly) {
    EXPECT_EQ(NewLabelFault(u"Crack"_s, {u"a"_s, u"Crack"_s}), e_VeskPicMngStatus::LabelExists);
    EXPECT_EQ(NewLabelFault(u"crack"_s, {u"Crack"_s}), std::nullopt);
    EXPECT_EQ(NewLabelFault(u"Crac"_s, {u"Crack"_s}), std::nullopt);
    EXPECT_EQ(NewLabelFault(u"Crack"_s, {}), std::nullopt);
}

} // namespace
