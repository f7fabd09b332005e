#include "base/Guard.h"

#include "tests/support/AnsweredPrompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ZelvorNRQ_KXVeskPicture::CatchStatus;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::Guarded;
using ZelvorNRQ_KXVeskPicture::ShowStatus;

constexpr toolkit::WindowId kDialog = (toolkit::WindowId(7) << 32U) | 3U;

TEST(Guard, WhatRaisesNothingRunsAndShowsNothing) {
    const support::AnsweredPrompts prompts;
    bool ran = false;
    EXPECT_TRUE(Guarded(kDialog, [&] { ran = true; }));
    EXPECT_TRUE(ran);
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST(Guard, ARaisedStatusIsShownAtTheDialogAndEndsTheHandler) {
    support::AnsweredPrompts prompts;
    prompts.ExpectMessage(u"删除Vesk照片失败！"_s);
    bool wentOn = false;
    EXPECT_FALSE(Guarded(kDialog, [&] {
        throw e_VeskPicMngStatus::DeleteFailed;
        wentOn = true;
    }));
    EXPECT_FALSE(wentOn);
    EXPECT_THAT(prompts.Parents(), ElementsAre(kDialog));
}

TEST(Guard, AStatusWithoutAMessageOfItsOwnIsShownAsUnknown) {
    support::AnsweredPrompts prompts;
    prompts.ExpectMessage(u"出现未知错误！"_s);
    EXPECT_FALSE(Guarded(kDialog, [] { throw e_VeskPicMngStatus(0); }));
}

TEST(Guard, CatchingGivesTheStatusAndShowsNothing) {
    const support::AnsweredPrompts prompts;
    EXPECT_EQ(CatchStatus([] { throw e_VeskPicMngStatus::DisplayOff; }),
              e_VeskPicMngStatus::DisplayOff);
    EXPECT_EQ(CatchStatus([] {}), std::nullopt);
    EXPECT_THAT(prompts.Parents(), IsEmpty());
}

TEST(Guard, OtherFaultsPassThrough) {
    EXPECT_THROW(Guarded(kDialog, [] { throw std::runtime_error("memory"); }), std::runtime_error);
}

TEST(Guard, AStatusCanBeShownWithoutAParent) {
    support::AnsweredPrompts prompts;
    prompts.ExpectMessage(u"当前照片状态为隐藏，不支持直接定位！"_s);
    ShowStatus(toolkit::kNoWindow, e_VeskPicMngStatus::PicHidden);
    EXPECT_THAT(prompts.Parents(), ElementsAre(toolkit::kNoWindow));
}

} // namespace
