#include "viewers/PhotoBlock.h"

#include "viewers/PaneTexts.h"

#include <utility>

namespace gallery {

using namespace Qt::StringLiterals;

namespace {

/// These are made without path shortening.
CStaticFilespec* MakeLine(QWidget& pane, const QString& name) {
    auto* line = MakeControl<CStaticFilespec>(pane, name);
    line->SetPathShortening(false);
    return line;
}

} // namespace

PhotoBlock::PhotoBlock(const PhotoBlockShape& shape, QString updaterCaption)
    : m_shape(shape), m_updaterCaption(std::move(updaterCaption)) {}

void PhotoBlock::MakeControls(QWidget& pane, NotePlayer& note) {
    separator = MakeControl<QFrame>(pane, u"separator"_s);
    separator->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    markText = MakeMarkText(pane);
    posText = MakeLine(pane, u"posText"_s);
    uploaderText = MakeLine(pane, u"uploaderText"_s);
    uploadTimeText = MakeLine(pane, u"uploadTimeText"_s);
    updaterText = MakeLine(pane, u"updaterText"_s);
    updateTimeText = MakeLine(pane, u"updateTimeText"_s);
    labelText = MakeLine(pane, u"labelText"_s);
    descText = MakeControl<CAutoLineStatic>(pane, u"descText"_s);
    // Made before what stands in it, which therefore lies above it.
    noteGroup = MakeControl<CTitledGroup>(pane, u"noteGroup"_s);
    noteGroup->setTitle(u"语音"_s);
    note.MakeControls(&pane);
}

void PhotoBlock::LayOut(const QSize& pane, NotePlayer& note) {
    if (!HasControls()) {
        return;
    }
    const PhotoBlockLayout layout = LayoutPhotoBlock(pane, m_shape);
    separator->setGeometry(layout.separator);
    markText->setGeometry(layout.mark);
    toolkit::PlaceLine(*posText, layout.position);
    toolkit::PlaceLine(*uploaderText, layout.uploader);
    toolkit::PlaceLine(*uploadTimeText, layout.uploadTime);
    toolkit::PlaceLine(*updaterText, layout.updater);
    toolkit::PlaceLine(*updateTimeText, layout.updateTime);
    toolkit::PlaceLine(*labelText, layout.labels);
    toolkit::PlaceLine(*descText, layout.description);
    noteGroup->setGeometry(layout.noteGroup);
    note.Button()->move(layout.noteButton);
    note.Progress()->setGeometry(layout.noteProgress);
    toolkit::PlaceLine(*note.Status(), layout.noteStatus);
}

void PhotoBlock::ShowMark(const QString& name, qint32 color) {
    gallery::ShowMark(*markText, name, color);
}

void PhotoBlock::ShowTexts(const PhotoBlockTexts& texts) {
    Say(*labelText, u"标签："_s, texts.labels, texts.labelTip);
    Say(*posText, u"位置："_s, texts.position, texts.position);
    // Leading blanks are part of the captions.
    Say(*uploaderText, u"    上传人："_s, texts.uploader, texts.uploader);
    Say(*uploadTimeText, u"上传时间："_s, texts.uploadTime, texts.uploadTime);
    Say(*updaterText, m_updaterCaption, texts.updater, texts.updater);
    Say(*updateTimeText, u"更新时间："_s, texts.updateTime, texts.updateTime);
    Say(*descText, u"描述："_s, texts.description, texts.description);
}

} // namespace gallery
