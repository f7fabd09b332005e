#include "host/tour/TourScript.h"

#include "host/tour/TourEyes.h"

namespace host::tour {

void TourScript::Do(const QString& text, Act act, Act seen) {
    steps.push_back({text, std::move(act), std::move(seen), {}, {}});
}

void TourScript::Picture(const QString& window, const QString& file) {
    Picture([window] { return FindWindow(window); }, file);
}

void TourScript::Picture(const std::function<QWidget*()>& find, const QString& file) {
    steps.back().picture = file;
    steps.back().pictureOf = find;
}

} // namespace host::tour
