#include "toolkit/KXTools.h"

#include "toolkit/windows/Prompts.h"

#include <QDateTime>

namespace KXTools {

using namespace Qt::StringLiterals;

void ShowMsgBox(toolkit::WindowId parent, const QString& text) {
    toolkit::Prompts().ShowMessage(parent, text);
}

int ShowQuestionBox(toolkit::WindowId parent, const QString& text) {
    return toolkit::Prompts().AskYesNo(parent, text) ? kYes : kNo;
}

void Set0Hour0Minute0Second(qint64& time) {
    // The start of the day isn't always 00:00: some zones change to summer time at midnight.
    time = QDateTime::fromSecsSinceEpoch(time).date().startOfDay().toSecsSinceEpoch();
}

void Set23Hour59Minute59Second(qint64& time) {
    time = QDateTime::fromSecsSinceEpoch(time).date().endOfDay().toSecsSinceEpoch();
}

QString MinuteText(qint64 time) {
    return QDateTime::fromSecsSinceEpoch(time).toString(u"yyyy-MM-dd HH:mm"_s);
}

QString SecondText(qint64 time) {
    const QDateTime at = QDateTime::fromSecsSinceEpoch(time);
    // Lists have thousands of them, and a pattern would be read for each. The other form has no
    // years of five digits.
    const QString day = at.date().toString(Qt::ISODate);
    return day.isEmpty() ? at.toString(u"yyyy-MM-dd HH:mm:ss"_s)
                         : day + u' ' + at.time().toString(Qt::ISODate);
}

QString timeToCString(qint64 time) {
    return time == 0 ? QString() : SecondText(time);
}

} // namespace KXTools
