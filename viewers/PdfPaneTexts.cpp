#include "viewers/PdfPaneTexts.h"

#include "viewers/PaneTexts.h"

using namespace Qt::StringLiterals;

namespace gallery {

namespace {

CTitledGroup* MakeGroup(QWidget& pane, const QString& name, const QString& title) {
    auto* group = MakeControl<CTitledGroup>(pane, name);
    group->setTitle(title);
    return group;
}

} // namespace

void PdfPaneTexts::MakeControls(QWidget& pane) {
    // Made before what stands in them, which therefore lies above them.
    picGroup = MakeGroup(pane, u"picGroup"_s, u"照片信息"_s);
    noteGroup = MakeGroup(pane, u"noteGroup"_s, u"检查点语音"_s);
    checkpointGroup = MakeGroup(pane, u"checkpointGroup"_s, u"检查点信息"_s);
    uploaderText = MakeControl<CStaticFilespec>(pane, u"uploaderText"_s);
    uploadTimeText = MakeControl<CStaticFilespec>(pane, u"uploadTimeText"_s);
    updaterText = MakeControl<CStaticFilespec>(pane, u"updaterText"_s);
    updateTimeText = MakeControl<CStaticFilespec>(pane, u"updateTimeText"_s);
    picDescText = MakeControl<CStaticFilespec>(pane, u"picDescText"_s);
    markText = MakeMarkText(pane);
    cpLabelText = MakeControl<CStaticFilespec>(pane, u"cpLabelText"_s);
    cpDescText = MakeControl<CStaticFilespec>(pane, u"cpDescText"_s);
    cpUpdateTimeText = MakeControl<CStaticFilespec>(pane, u"cpUpdateTimeText"_s);
    remarkText = MakeControl<CStaticFilespec>(pane, u"remarkText"_s);
}

void PdfPaneTexts::LayOut(const PdfPaneLayout& layout) {
    picGroup->setGeometry(layout.picGroup);
    noteGroup->setGeometry(layout.noteGroup);
    checkpointGroup->setGeometry(layout.checkpointGroup);
    toolkit::PlaceLine(*uploaderText, layout.uploader);
    toolkit::PlaceLine(*uploadTimeText, layout.uploadTime);
    toolkit::PlaceLine(*updaterText, layout.updater);
    toolkit::PlaceLine(*updateTimeText, layout.updateTime);
    toolkit::PlaceLine(*picDescText, layout.picDescription);
    markText->setGeometry(layout.mark);
    toolkit::PlaceLine(*cpLabelText, layout.labels);
    toolkit::PlaceLine(*cpDescText, layout.cpDescription);
    toolkit::PlaceLine(*cpUpdateTimeText, layout.cpUpdateTime);
    toolkit::PlaceLine(*remarkText, layout.remark);
}

void PdfPaneTexts::ShowPicture(const DrawingViewItem& item) {
    // Leading blanks are part of the captions.
    Say(*uploaderText, u"    上传人："_s, item.uploader, item.uploader);
    Say(*uploadTimeText, u"上传时间："_s, item.uploadTime, item.uploadTime);
    Say(*updaterText, u"    更新人："_s, item.updater, item.updater);
    Say(*updateTimeText, u"更新时间："_s, item.updateTime, item.updateTime);
    Say(*picDescText, u"照片描述："_s, item.description, item.description);
}

void PdfPaneTexts::ShowCheckpoint(const KX_DATA::DrawingRecord& record) {
    Say(*cpLabelText, u"标签："_s, LabelLine(record), LabelTip(record));
    Say(*cpDescText, u"检查点描述："_s, record.description, record.description);
    Say(*cpUpdateTimeText, u"更新时间："_s, record.updateTime, record.updateTime);
    Say(*remarkText, u"检查点备注："_s, record.remark, record.remark);
    ShowMark(*markText, record.markName, record.markColor);
}

} // namespace gallery
