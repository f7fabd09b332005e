#include "bench/ReminderMessages.h"

#include "toolkit/GbkText.h"

#include <QUuid>

namespace bench {

using namespace Qt::StringLiterals;

namespace {

QString Uuid(int number) {
    return QUuid(0x3f2504e0, 0x4f89, 0x11d3, 0x9a, 0x0c, 0x03, 0x05, uchar(number >> 16),
                 uchar(number >> 8), uchar(number), 0)
        .toString(QUuid::WithoutBraces);
}

QString PictureMessage(int number) {
    return uR"({"ppid":%1,"markerId":%2,"picId":%3,"intersectionId":"P1-F7-X4-YB",)"
           uR"("labels":["防水工程","需复查","外墙渗漏 %4 号"],"name":"板面钢筋间距偏大-%3.jpg",)"
           uR"("pos":"7层 4-B轴","username":"刘监理","uuid":"%5","floor":"7"})"_s
               .arg(1 + number % 3)
               .arg(1 + number % 8)
               .arg(number)
               .arg(number % 97)
               .arg(Uuid(number));
}

QString IssueMessage(int number) {
    return uR"({"ppid":%1,"markerId":%2,"username":"陈质检","questionId":"%4",)"
           uR"("questionName":"外墙渗水痕迹，范围约 2.4 m × 1.2 m，第 %3 处","pos":"框架柱 KZ-1",)"
           uR"("handle":"4F%3","uuid":"%4","floor":"-1","compName":"剪力墙 Q-3"})"_s
               .arg(1 + number % 3)
               .arg(1 + number % 8)
               .arg(number)
               .arg(Uuid(number));
}

} // namespace

std::vector<ReminderMessage> MakeReminderMessages(int count) {
    std::vector<ReminderMessage> messages;
    for (int number = 0; number < count; ++number) {
        const bool isPicture = number % 2 == 0;
        messages.push_back(
            {isPicture, toolkit::ToGbk(isPicture ? PictureMessage(number) : IssueMessage(number))});
    }
    return messages;
}

} // namespace bench
