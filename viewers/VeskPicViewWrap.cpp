#include "viewers/VeskPicViewWrap.h"

#include "services/Factories.h"
#include "services/IRichEditorAuth.h"
#include "toolkit/Look.h"
#include "viewers/PagePhotoSource.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPreviewRecordHeight = 300;

} // namespace

CVeskPicViewWrap::CVeskPicViewWrap() : CPicViewWrap(std::make_unique<CVeskPicViewDlg>(*this)) {}

CPicViewWrap::Lower CVeskPicViewWrap::LowerPane() {
    return GetRichEditorAuth()->IsRichTextEnabled() ? Lower{&richEditor, kPreviewRecordHeight}
                                                    : Lower{};
}

void CVeskPicViewWrap::OnCreated() {
    Widget()->setObjectName(u"VeskPicViewWrap"_s);
    Widget()->setWindowTitle(u"查看照片"_s);
    CPicViewWrap::OnCreated();
}

// The pane's own window goes with the next events; no note waits for that.
void CVeskPicViewWrap::OnDestroyed() {
    Pane().Note().StopIfPlaying();
}

void CVeskPicViewWrap::ShowItem(const QString& caption, const KX_DATA::PicViewItem& item,
                                qint32 kind) {
    Widget()->setWindowTitle(toolkit::PlainTitle(caption));
    RichContext record;
    record.objectId = item.positionKey;
    record.subId = item.markId;
    record.ownerId = item.drawingId;
    record.objectType = kind == gallery::kBimPage ? 1 : 2;
    record.readOnly = 1;
    record.projectId = item.ppid;
    // Where nothing can be changed there is nothing to be saved on the way.
    richEditor.GoTo(record);
    LayoutWrap();
}
