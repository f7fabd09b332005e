#include "viewers/PaneTexts.h"

#include "toolkit/Look.h"

using namespace Qt::StringLiterals;

namespace gallery {

CColorStatic* MakeMarkText(QWidget& pane) {
    auto* field = MakeControl<CColorStatic>(pane, u"markText"_s);
    field->SetTxtAlian(CColorStatic::kCentredLine);
    field->SetFontColor(toolkit::ColorFromBgr(0));
    field->SetBGColor(toolkit::ColorFromBgr(0xfafafa));
    return field;
}

void ShowMark(CColorStatic& field, const QString& name, qint32 color) {
    field.SetBGColor(toolkit::ColorFromBgr(color));
    field.setText(name);
    field.setToolTip(name.isEmpty() ? QString() : toolkit::PlainTip(name));
    field.repaint();
}

void Say(QLabel& line, const QString& caption, const QString& value, const QString& tip) {
    line.setText(caption + value);
    line.setToolTip(tip.isEmpty() ? QString() : toolkit::PlainTip(tip));
}

} // namespace gallery
