#include "tour/TourScript.h"

#include "tour/TourEyes.h"

namespace tour {

using namespace Qt::StringLiterals;

void TourScript::Do(const QString& text, Act act, Act seen) {
    m_steps.push_back({text, std::move(act), std::move(seen), {}, {}});
}

void TourScript::Picture(const QString& window, const QString& what) {
    Picture([window] { return FindWindow(window); }, what);
}

void TourScript::Picture(const std::function<QWidget*()>& find, const QString& what) {
    m_steps.back().picture = u"%1-%2.png"_s.arg(++m_pictures, 2, 10, QChar(u'0')).arg(what);
    m_steps.back().pictureOf = find;
}

} // namespace tour
