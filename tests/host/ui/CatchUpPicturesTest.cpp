// The small pictures of the list: which come, in which order, and which are dropped.
#include "host/app/CatchUpPictures.h"

#include "host/session/HostSession.h"
#include "site/IFilings.h"
#include "site/IIntake.h"
#include "tests/support/WaitFor.h"

#include <QBuffer>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

class Pictures : public testing::Test {
protected:
    Pictures() {
        EXPECT_FALSE(m_session.Open(m_dir.filePath(u"site"_s)).has_value());
        m_intake = m_session.Site().NewIntake();
        m_ppid = m_intake->AddProject(u"一期"_s);
    }
    /// The file's uuid.
    QString File(const QByteArray& bytes) {
        site::NewBimPhoto photo;
        photo.ppid = m_ppid;
        photo.fileName = u"a.jpg"_s;
        static_cast<void>(m_intake->FilePhoto(photo, {{}, bytes}));
        return m_session.Site().Filings().Latest({m_ppid}, {1, 1'000'000}, 1).front().uuid;
    }
    static QByteArray Jpeg(const QSize& size) {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::green);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "JPEG");
        return bytes;
    }

    QTemporaryDir m_dir;
    HostSession m_session;
    std::unique_ptr<site::IIntake> m_intake;
    qint32 m_ppid = 0;
    CatchUpPictures pictures{m_session};
};

TEST_F(Pictures, OneComesAsLargeAsItMayBeAndAsWideAsItIs) {
    pictures.SetSize({72, 54});
    QSignalSpy came(&pictures, &CatchUpPictures::Came);
    const QString uuid = File(Jpeg({400, 100}));
    pictures.Ask(m_ppid, uuid);
    ASSERT_TRUE(WaitFor([&] { return came.count() == 1; }));
    EXPECT_EQ(came[0][0].toString(), uuid);
    EXPECT_EQ(came[0][1].value<QImage>().size(), QSize(72, 18));
}

TEST_F(Pictures, WhatIsNoPictureOrNotThereComesAsNone) {
    QSignalSpy came(&pictures, &CatchUpPictures::Came);
    pictures.Ask(m_ppid, File("no picture"));
    pictures.Ask(m_ppid, u"missing"_s);
    ASSERT_TRUE(WaitFor([&] { return came.count() == 2; }));
    EXPECT_TRUE(came[0][1].value<QImage>().isNull());
    EXPECT_TRUE(came[1][1].value<QImage>().isNull());
}

TEST_F(Pictures, OfVeryManyTheOldestWishesAreDroppedAndToldSo) {
    QSignalSpy came(&pictures, &CatchUpPictures::Came);
    QSignalSpy dropped(&pictures, &CatchUpPictures::Dropped);
    const QString uuid = File(Jpeg({40, 40}));
    for (int at = 0; at < 100; ++at) {
        pictures.Ask(m_ppid, at == 0 || at == 99 ? uuid : u"missing-%1"_s.arg(at));
    }
    ASSERT_TRUE(WaitFor([&] { return came.count() + dropped.count() == 100; }));
    EXPECT_EQ(dropped.count(), 38) << "two are at work, sixty wait";
    EXPECT_EQ(dropped[0][0].toString(), u"missing-2"_s);
    bool isLatestThere = false;
    for (int at = 0; at < 4; ++at) {
        isLatestThere = isLatestThere || !came[at][1].value<QImage>().isNull();
    }
    EXPECT_TRUE(isLatestThere) << "the latest wish goes first";
}

TEST_F(Pictures, NobodyIsToldOnceTheyAreGone) {
    const QString uuid = File(Jpeg({400, 100}));
    {
        CatchUpPictures gone(m_session);
        gone.Ask(m_ppid, uuid);
    }
    QSignalSpy came(&pictures, &CatchUpPictures::Came);
    pictures.Ask(m_ppid, uuid);
    EXPECT_TRUE(WaitFor([&] { return came.count() == 1; }));
}

TEST_F(Pictures, WithoutASiteTheyAreNotFetched) {
    const QString uuid = File(Jpeg({400, 100}));
    m_intake.reset();
    m_session.Close();
    QSignalSpy came(&pictures, &CatchUpPictures::Came);
    pictures.Ask(m_ppid, uuid);
    support::RunPendingEvents();
    EXPECT_EQ(came.count(), 0);
}

} // namespace
} // namespace host
