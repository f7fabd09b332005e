#include "viewers/NoteRules.h"

#include "viewers/GalleryItem.h"

#include <gtest/gtest.h>

using gallery::NoteAction;
using gallery::NoteImage;

namespace {

struct PressCase {
    PlayState player;
    qint32 note;
    NoteAction action;
    NoteImage image;
};

} // namespace

TEST(NoteRules, APressDoesWhatTheTableSays) {
    const PressCase cases[] = {
        {PlayState::Playing, kOnDisk, NoteAction::StopPlaying, NoteImage::Play},
        {PlayState::Playing, kDownloadFailedState, NoteAction::StopPlaying, NoteImage::Play},
        {PlayState::Busy, kOnDisk, NoteAction::None, NoteImage::Stop},
        {PlayState::Idle, kNothingToFetch, NoteAction::None, NoteImage::Stop},
        {PlayState::Idle, -1, NoteAction::None, NoteImage::Stop},
        {PlayState::Idle, kWaiting, NoteAction::Wait, NoteImage::Stop},
        {PlayState::Idle, kDownloading, NoteAction::Wait, NoteImage::Stop},
        {PlayState::Idle, kOnDisk, NoteAction::Play, NoteImage::Stop},
        {PlayState::Idle, kDownloadFailedState, NoteAction::ShowFailure, NoteImage::Play},
    };
    for (const PressCase& c : cases) {
        const auto step = gallery::OnPlayPressed(c.player, c.note);
        EXPECT_EQ(step.action, c.action) << int(c.player) << " " << c.note;
        EXPECT_EQ(step.image, c.image) << int(c.player) << " " << c.note;
    }
}

TEST(NoteRules, ASecondOfWaitingDoesWhatTheTableSays) {
    EXPECT_EQ(gallery::OnWaitTick(kWaiting).action, NoteAction::ShowWait);
    EXPECT_EQ(gallery::OnWaitTick(kDownloading).action, NoteAction::ShowWait);
    EXPECT_EQ(gallery::OnWaitTick(kOnDisk).action, NoteAction::Play);
    EXPECT_EQ(gallery::OnWaitTick(kDownloadFailedState).action, NoteAction::ShowFailure);
    EXPECT_EQ(gallery::OnWaitTick(kDownloadFailedState).image, NoteImage::Play);
    EXPECT_EQ(gallery::OnWaitTick(kNothingToFetch).action, NoteAction::None);
}

TEST(NoteRules, WhileTheDownloadRunsTheTextShowsTwoAsItsPercent) {
    EXPECT_EQ(gallery::WaitText(kDownloading), u"正在缓冲 2%");
    EXPECT_EQ(gallery::WaitText(kWaiting), u"正在缓冲");
}

TEST(NoteRules, ThePositionIsShownInMinutesAndSeconds) {
    EXPECT_EQ(gallery::PositionText(0, 90), u"00:00 / 01:30");
    EXPECT_EQ(gallery::PositionText(61, 6000), u"01:01 / 100:00");
}

TEST(NoteRules, AnItemWithoutANoteSaysSo) {
    EXPECT_EQ(gallery::IdleText(QString()), u"无语音");
    EXPECT_EQ(gallery::IdleText(QStringLiteral("uuid")), u"就绪");
}

TEST(NoteRules, APictureOfTheProgressStopsAtSixteenBits) {
    EXPECT_EQ(gallery::ProgressEnd(0), 0);
    EXPECT_EQ(gallery::ProgressEnd(65535), 65535);
    EXPECT_EQ(gallery::ProgressEnd(65536), 0);
    EXPECT_EQ(gallery::ProgressEnd(65537), 1);
}

TEST(NoteRules, SecondsTurnIntoMinutesAtSixty) {
    EXPECT_EQ(gallery::PositionText(59, 60), u"00:59 / 01:00");
    EXPECT_EQ(gallery::PositionText(60, 119), u"01:00 / 01:59");
}

TEST(NoteRules, ANoteLiesUnderItsUuidWithItsEnding) {
    EXPECT_EQ(gallery::NotePath(QStringLiteral("/f/"), QStringLiteral("v")), u"/f/v.amr");
    EXPECT_TRUE(gallery::NotePath(QStringLiteral("/f/"), QString()).isEmpty());
    EXPECT_EQ(gallery::FailureText(), u"下载语音失败");
}

TEST(NoteRules, TheCurrentItemsNoteIsThatOfItsRecord) {
    gallery::GalleryState state;
    state.items.resize(2);
    state.items[1].audioUuid = QStringLiteral("a");
    state.items[1].audioPath = QStringLiteral("/f/a.amr");
    state.items[1].audioState = kDownloading;
    state.currentIndex = 1;
    const gallery::NoteSource note = gallery::CurrentNote(state);
    EXPECT_EQ(note.uuid, u"a");
    EXPECT_EQ(note.path, u"/f/a.amr");
    EXPECT_EQ(note.state, kDownloading);
    state.currentIndex = 2;
    EXPECT_TRUE(gallery::CurrentNote(state).uuid.isEmpty());
}
