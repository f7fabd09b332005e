// Flat pictures that lie on surfaces: damage, markings, signs.
#pragma once

#include "sample/Dice.h"

#include <QImage>
#include <QSize>
#include <QString>

namespace sample {

/// A branching crack from the top to the bottom.
[[nodiscard]] QImage DrawCrack(QSize size, Dice& dice);
/// Water stain with runs and a pale rim.
[[nodiscard]] QImage DrawLeak(QSize size, Dice& dice);
/// Honeycombing: a ragged patch of pits and bare stones.
[[nodiscard]] QImage DrawHoneycomb(QSize size, Dice& dice);
/// A ring and a note in red marker pen.
[[nodiscard]] QImage DrawPenMark(QSize size, const QString& note, Dice& dice);
/// A printed sign: white letters on a coloured board.
[[nodiscard]] QImage DrawSign(QSize size, const QString& text, const QColor& board);

} // namespace sample
