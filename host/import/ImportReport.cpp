#include "host/import/ImportReport.h"

namespace host {

using namespace Qt::StringLiterals;

void ImportReport::Add(const ImportLine& line) {
    switch (line.outcome) {
    case ImportOutcome::Filed:
        ++filed;
        photoIds.push_back(line.photoId);
        if (line.note.isEmpty()) {
            return;
        }
        break;
    case ImportOutcome::Duplicate:
        ++duplicates;
        break;
    case ImportOutcome::Refused:
        ++refused;
        break;
    case ImportOutcome::Failed:
        fault = line.text;
        break;
    }
    lines.push_back(line);
}

QString ImportReport::Summary() const {
    const QString counts =
        u"导入 %1 张照片，重复 %2 张，跳过 %3 个文件。"_s.arg(filed).arg(duplicates).arg(refused);
    if (!fault.isEmpty()) {
        return u"导入中止：%1 已导入的 %2 张照片均已保存，排除故障后重新导入同一文件夹即可继续。"_s
            .arg(fault, QString::number(filed));
    }
    return cancelled ? u"已取消。"_s + counts : counts;
}

} // namespace host
