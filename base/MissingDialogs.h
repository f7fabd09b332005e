// The one list of what this build doesn't have yet. Each use does everything up to the opening and
// then goes on as if the user had cancelled.
#pragma once

namespace ZelvorNRQ_KXVeskPicture {

/// A dialog, a feed or an output that comes with a later version. An entry goes when its dialog
/// comes.
enum class MissingDialog {
    Report,
};

/// Writes one line to the log, tells the person, and answers what a cancelled dialog answers:
/// false.
bool AnswerAsCancelled(MissingDialog dialog);

} // namespace ZelvorNRQ_KXVeskPicture
