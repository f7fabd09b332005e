#include "viewers/PhotoBlock.h"

#include "toolkit/Look.h"

#include <utility>

namespace gallery {

using namespace Qt::StringLiterals;

namespace {

template <class Control> Control* Make(QWidget& pane, const QString& name) {
    auto* control = new Control(&pane);
    control->setObjectName(name);
    control->show();
    return control;
}

void Say(QLabel& line, const QString& caption, const QString& value, const QString& tip) {
    line.setText(caption + value);
    line.setToolTip(tip.isEmpty() ? QString() : toolkit::PlainTip(tip));
}

} // namespace

PhotoBlock::PhotoBlock(const PhotoBlockShape& shape, QString updaterCaption)
    : m_shape(shape), m_updaterCaption(std::move(updaterCaption)) {}

void PhotoBlock::MakeControls(QWidget& pane, NotePlayer& note) {
    separator = Make<QFrame>(pane, u"separator"_s);
    separator->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    markText = Make<CColorStatic>(pane, u"markText"_s);
    markText->SetTxtAlian(CColorStatic::kCentredLine);
    markText->SetFontColor(toolkit::ColorFromBgr(0));
    markText->SetBGColor(toolkit::ColorFromBgr(0xfafafa));
    posText = Make<CStaticFilespec>(pane, u"posText"_s);
    uploaderText = Make<CStaticFilespec>(pane, u"uploaderText"_s);
    uploadTimeText = Make<CStaticFilespec>(pane, u"uploadTimeText"_s);
    updaterText = Make<CStaticFilespec>(pane, u"updaterText"_s);
    updateTimeText = Make<CStaticFilespec>(pane, u"updateTimeText"_s);
    labelText = Make<CStaticFilespec>(pane, u"labelText"_s);
    descText = Make<CAutoLineStatic>(pane, u"descText"_s);
    // Made before what stands in it, which therefore lies above it.
    noteGroup = Make<CTitledGroup>(pane, u"noteGroup"_s);
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
    markText->SetBGColor(toolkit::ColorFromBgr(color));
    markText->setText(name);
    markText->setToolTip(name.isEmpty() ? QString() : toolkit::PlainTip(name));
    markText->repaint();
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
