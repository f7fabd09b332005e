#include "host/tour/TourScript.h"

#include "host/tour/TourEyes.h"

namespace host::tour {

void TourScript::Do(const QString& text, Act act, Act seen) {
    steps.push_back({text, std::move(act), std::move(seen), {}, {}});
}

void TourScript::Picture(const QString& window, const QString& file) {
    steps.back().picture = file;
    steps.back().pictureOf = [window] { return FindWindow(window); };
}

} // namespace host::tour
