#include "tests/viewers/pdf/PdfViewFixture.h"

#include "frame/KXVeskPictureImpl.h"
#include "tests/support/AmrFiles.h"
#include "tests/viewers/support/SamplePictures.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTenSeconds = 500;

} // namespace

PdfViewFixture::PdfViewFixture() {
    KX_DATA::DrawingRecord& first = host.drawings.drawings[101];
    first.checkpointNo = 7;
    first.description = u"梁底裂缝"_s;
    first.remark = u"请复查"_s;
    first.markName = u"质量"_s;
    first.markColor = 0x0000FF;
    first.position = {11, 22};
    first.labels = {{u"L1"_s, u"裂缝"_s}, {u"L2"_s, u"二 层"_s}};
    first.updateTime = u"2026-03-04 08:00:00"_s;
    host.drawings.drawings[102].checkpointNo = 8;
    host.drawings.drawings[103].checkpointNo = 9;
    for (const qint32 picId : {1, 2, 3}) {
        AddPicture(101, picId);
    }
    AddPicture(102, 9);
    host.pics.checkpointPics[2].updateTime = host.pics.checkpointPics[2].uploadTime;
    SetComments(2);
}

bool PdfViewFixture::Open(qint32 drawingId, qint32 wantedPicId) {
    Facade().pendingPicId = wantedPicId;
    return Facade().OpenPdfPicView(1, drawingId, u"一层平面"_s, mainWindow.Id());
}

KX_DATA::DrawingRecord& PdfViewFixture::Stored(qint32 drawingId) {
    return host.drawings.drawings.at(drawingId);
}

void PdfViewFixture::AddPicture(qint32 drawingId, qint32 picId) {
    const QString uuid = u"uuid%1"_s.arg(picId);
    Stored(drawingId).pics.push_back({picId, 0, 0, uuid});
    KX_DATA::CheckpointPicDetail detail;
    detail.name = u"图片%1.jpg"_s.arg(picId);
    detail.description = u"描述%1"_s.arg(picId);
    detail.uploader = u"张三"_s;
    detail.uploadTime = u"2026-03-01 08:00:00"_s;
    detail.updater = u"李四"_s;
    detail.updateTime = u"2026-03-02 09:00:00"_s;
    host.pics.checkpointPics[picId] = detail;
    folder.Write(u"1/thumbs/%1.jpg"_s.arg(uuid),
                 support::JpegBytes(support::CornerMarked(QSize(300, 200))));
}

void PdfViewFixture::SetComments(int count) {
    host.drawings.comments.clear();
    for (int at = 1; at <= count; ++at) {
        KX_DATA::CheckpointComment comment;
        comment.exists = 1;
        comment.text = u"张三：评论%1"_s.arg(at);
        comment.commentId = 1000 + at;
        comment.time = clock.NowSeconds();
        host.drawings.comments.push_back(comment);
    }
}

void PdfViewFixture::GiveNote(qint32 drawingId) {
    Stored(drawingId).audioUuid = u"note"_s;
    folder.Write(u"1/thumbs/note.amr"_s, support::SilentAmr(kTenSeconds));
}

std::vector<std::string> PdfViewFixture::Shown() const {
    std::vector<std::string> texts;
    for (int row = 0; row < List().GetRowCount(); ++row) {
        texts.push_back(List().model()->index(row, 0).data().toString().toStdString());
    }
    return texts;
}

void PdfViewFixture::Press(int key) {
    QTest::keyClick(Pane().Widget(), Qt::Key(key));
}

void PdfViewFixture::Click(QWidget* control) {
    QTest::mouseClick(control, Qt::LeftButton);
}

void PdfViewFixture::ClickComment(int row) {
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                      List().visualRect(List().model()->index(row, 0)).center());
}

void PdfViewFixture::Send(const QString& text) {
    Box().setFocus();
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&Box(), &event);
    Click(&SendButton());
}
