#include "host/ui/plan/PlaceCard.h"

#include "host/ui/plan/FloorPlanLayout.h"
#include "toolkit/Icons.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

PlaceCard::PlaceCard(QWidget* parent) : QFrame(parent) {
    setObjectName(u"planCard"_s);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(12, 8, 12, 12);
    lines->setSpacing(8);
    m_text = new QLabel(this);
    m_text->setObjectName(u"planCardText"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_photos = new QPushButton(toolkit::Icon(u"photo"_s), u"查看此处照片"_s, this);
    m_photos->setObjectName(u"planCardPhotos"_s);
    m_photos->setToolTip(u"在控制台中列出此轴线交点的照片（Ctrl+4）"_s);
    lines->addWidget(m_text);
    lines->addWidget(m_photos);
    connect(m_photos, &QPushButton::clicked, this, &PlaceCard::PhotosWanted);
    hide();
}

void PlaceCard::ShowFor(const QString& caption, const PhotoCount& count, const QRectF& place,
                        const QRectF& area) {
    m_text->setText(caption + u'\n' + (count.Total() > 0 ? PhotosText(count) : u"此处没有照片"_s));
    m_photos->setEnabled(count.Total() > 0);
    layout()->activate();
    setGeometry(PlaceCardBeside(place, sizeHint(), area).toAlignedRect());
    show();
    raise();
}

} // namespace host
