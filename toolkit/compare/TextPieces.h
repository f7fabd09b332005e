// Two lines compared by their characters.
#pragma once

#include "toolkit/compare/NoteCompare.h"

#include <vector>

namespace toolkit {

/// In the order of the text; what was removed at a place stands before what was added there.
/// No piece is empty, and no character outside the basic plane is divided.
[[nodiscard]] std::vector<TextPiece> ComparePieces(const NoteLine& from, const NoteLine& to);

/// The whole line as one piece, or none if it is empty.
[[nodiscard]] std::vector<TextPiece> WholePiece(const NoteLine& line, PieceKind kind);

} // namespace toolkit
