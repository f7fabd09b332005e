#include "tests/viewers/bim/BimViewFixture.h"

#include "frame/KXVeskPictureImpl.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/AmrFiles.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int kThreeSeconds = 150;

} // namespace

BimViewFixture::BimViewFixture() {
    AddPhoto(1);
    AddPhoto(2, u"note2"_s);
    AddPhoto(3);
    folder.Write(PictureFolder() + u"note2.amr"_s, support::SilentAmr(kThreeSeconds));
}

void BimViewFixture::AddPhoto(qint32 picId, const QString& audioUuid) {
    KX_DATA::BimPicRow row = BimPhoto(picId);
    row.axisX = u"3"_s;
    row.axisY = u"B"_s;
    row.uploadStamp = clock.NowSeconds() - 86400;
    row.updateStamp = clock.NowSeconds() - 3600;
    host.pics.bimPics.push_back(row);
    KX_DATA::PicFileEntry file;
    file.picId = picId;
    file.picUuid = row.text8;
    file.audioUuid = audioUuid;
    host.pics.files.push_back(file);
    folder.Write(PictureFolder() + row.text8 + u".jpg"_s,
                 support::JpegBytes(support::CornerMarked(QSize(300, 200))));
}

bool BimViewFixture::Open(qint32 wantedPicId) {
    Facade().pendingPicId = wantedPicId;
    return Facade().OpenBimPicView(1, u"1"_s, u"K"_s, 1);
}

void BimViewFixture::Press(int key) {
    QTest::keyClick(Pane().Widget(), Qt::Key(key));
}

void BimViewFixture::Click(QWidget* control) {
    QTest::mouseClick(control, Qt::LeftButton);
}
