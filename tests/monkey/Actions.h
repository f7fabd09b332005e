// How a deed is done.
#pragma once

#include "tests/monkey/Deeds.h"

#include <functional>

namespace monkey {

class Neighbour;

/// What a deed may need beside the windows.
struct Surroundings {
    Neighbour& neighbour;
    /// Of the client in use; gives what was changed.
    std::function<QString(const Deed&)> changeTransfers;
    QString dropFolder; ///< files in it are dropped
};

/// Chooses by the dice among what is there, writes that to the history, and does it; nothing where
/// there is nothing to do it with. May return only after other deeds were done inside a dialog that
/// this one opened. Thread: user interface.
void Act(const Deed& deed, const Surroundings& surroundings);

} // namespace monkey
