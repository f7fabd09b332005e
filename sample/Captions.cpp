#include "sample/Captions.h"

#include "sample/Lettering.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace sample {

using namespace Qt::StringLiterals;

namespace {

/// Height of a caption's letters for a picture.
[[nodiscard]] int LetterHeight(const QImage& image) {
    return std::max(9, std::min(image.width(), image.height()) / 38);
}

void DrawPlate(QImage& image, const QStringList& lines) {
    const int letter = LetterHeight(image);
    const int row = letter * 3 / 2;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(SiteFont(letter));
    int width = letter * 10;
    for (const QString& line : lines) {
        width = std::max(width, painter.fontMetrics().horizontalAdvance(line));
    }
    const int head = row * 4 / 3;
    const QRect plate(
        letter, image.height() - letter - head - row * static_cast<int>(lines.size()) - letter / 2,
        width + letter * 2, head + row * static_cast<int>(lines.size()) + letter / 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(20, 60, 130, 205));
    painter.drawRect(plate.x(), plate.y(), plate.width(), head);
    painter.setBrush(QColor(240, 246, 252, 165));
    painter.drawRect(plate.adjusted(0, head, 0, 0));
    painter.setPen(Qt::white);
    painter.setFont(SiteFont(letter * 11 / 10, true));
    painter.drawText(QRect(plate.x(), plate.y(), plate.width(), head), Qt::AlignCenter,
                     u"工程记录"_s);
    painter.setPen(QColor(20, 26, 40));
    painter.setFont(SiteFont(letter));
    for (int index = 0; index < lines.size(); ++index) {
        const QRect cell(plate.x() + letter, plate.y() + head + row * index + letter / 4,
                         plate.width() - letter, row);
        painter.drawText(cell, Qt::AlignLeft | Qt::AlignVCenter, lines[index]);
    }
}

void DrawBoard(QImage& image, const QStringList& lines) {
    const int letter = LetterHeight(image);
    const int row = letter * 2;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(SiteFont(letter));
    int label = letter * 3;
    int value = letter * 8;
    for (const QString& line : lines) {
        const qsizetype colon = line.indexOf(u'：');
        label = std::max(label, painter.fontMetrics().horizontalAdvance(line.left(colon)));
        value = std::max(value, painter.fontMetrics().horizontalAdvance(line.mid(colon + 1)));
    }
    const int width = label + value + letter * 3;
    const int height = row * static_cast<int>(lines.size());
    painter.translate(image.width() - width - letter * 2, image.height() - height - letter * 2);
    painter.rotate(-1.2);
    painter.fillRect(letter / 4, letter / 3, width, height, QColor(0, 0, 0, 90));
    painter.fillRect(0, 0, width, height, QColor(238, 238, 230));
    painter.setPen(QPen(QColor(40, 70, 60), std::max(1, letter / 10)));
    painter.drawRect(0, 0, width, height);
    painter.drawLine(label + letter, 0, label + letter, height);
    for (int index = 0; index < lines.size(); ++index) {
        const qsizetype colon = lines[index].indexOf(u'：');
        painter.setPen(QPen(QColor(40, 70, 60), std::max(1, letter / 10)));
        painter.drawLine(0, row * index, width, row * index);
        painter.setPen(QColor(30, 34, 50));
        painter.drawText(QRect(letter / 2, row * index, label, row),
                         Qt::AlignLeft | Qt::AlignVCenter, lines[index].left(colon));
        painter.drawText(QRect(label + letter * 3 / 2, row * index, value + letter, row),
                         Qt::AlignLeft | Qt::AlignVCenter, lines[index].mid(colon + 1));
    }
}

void DrawStamp(QImage& image, const QString& text) {
    const int letter = LetterHeight(image) * 5 / 4;
    QPainter painter(&image);
    painter.setFont(SiteFont(letter, true));
    const QRect place = image.rect().adjusted(0, 0, -letter, -letter);
    painter.setPen(QColor(60, 20, 0, 160));
    painter.drawText(place.translated(letter / 12 + 1, letter / 12 + 1),
                     Qt::AlignRight | Qt::AlignBottom, text);
    painter.setPen(QColor(255, 150, 40));
    painter.drawText(place, Qt::AlignRight | Qt::AlignBottom, text);
}

} // namespace

void DrawCaption(QImage& image, CaptionStyle style, const QStringList& lines) {
    if (lines.isEmpty()) {
        return;
    }
    switch (style) {
    case CaptionStyle::Plate:
        DrawPlate(image, lines);
        break;
    case CaptionStyle::Board:
        DrawBoard(image, lines);
        break;
    case CaptionStyle::Stamp:
        DrawStamp(image, lines.last());
        break;
    case CaptionStyle::None:
        break;
    }
}

} // namespace sample
