#include "tests/viewers/page/PageFixture.h"

#include "tests/support/AmrFiles.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTwoSeconds = 100;

} // namespace

PageFixture::PageFixture() {
    static_cast<void>(Facade()); // which gives the module its log
    host.marks.marks[1] = {u"质量"_s, 0x2030F0};
    host.marks.marks[2] = {u"安全"_s, 0x00FF00};
    page.kind = 1;
    for (int number = 1; number <= 4; ++number) {
        AddItem(number);
    }
    page.items[1].fileText = u"note"_s;
    page.items[2].fileText = u"note"_s;
    folder.Write(u"1/pics/note.amr"_s, support::SilentAmr(kTwoSeconds));
}

void PageFixture::AddItem(int number) {
    KX_DATA::PicViewItem item;
    const QString tail = QString::number(number);
    item.picId = number;
    item.ppid = 1;
    item.uuid = u"uuid"_s + tail;
    item.picName = u"照片%1.jpg"_s.arg(number);
    item.positionKey = u"K"_s + tail;
    item.drawingId = 70 + number;
    item.markId = 1 + (number + 1) % 2;
    item.positionText = u"%1层 1/A"_s.arg(number);
    item.uploader = u"张"_s + tail;
    item.uploadTime = u"2026-03-0%1 12:00"_s.arg(number);
    item.updater = u"李"_s + tail;
    item.updateTime = item.uploadTime;
    item.labelText = u"渗漏 裂缝"_s + tail;
    item.description = u"描述"_s + tail;
    item.rectifyText = u"整改中"_s;
    page.items.push_back(item);
    folder.Write(u"1/pics/%1.jpg"_s.arg(item.uuid),
                 support::JpegBytes(support::CornerMarked(QSize(60, 40))));
}

void PageFixture::Open() {
    wrap.SetPage(page);
    wrap.Create(mainWindow.Id());
    wrap.ShowRestored();
    support::RunPendingEvents();
}

void PageFixture::Press(int key) {
    QTest::keyClick(Pane().Widget(), Qt::Key(key));
}

QString PageFixture::PlayerText() {
    return Pane().Note().Status()->text();
}

void PageFixture::PlayTheNote() {
    page.index = 1;
    Open();
    ASSERT_TRUE(support::WaitFor([&] { return Pane().State().items[1].audioState == kOnDisk; }));
    QTest::mouseClick(Pane().Note().Button(), Qt::LeftButton);
    ASSERT_TRUE(Pane().Note().IsPlaying());
}
