#include "base/MissingDialogs.h"

#include "base/PictureLog.h"
#include "toolkit/windows/Notices.h"

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

using namespace Qt::StringLiterals;

namespace {

QString NameOf(MissingDialog dialog) {
    switch (dialog) {
    case MissingDialog::Report:
        return u"输出报告"_s;
    }
    return {};
}

} // namespace

bool AnswerAsCancelled(MissingDialog dialog) {
    WriteLog(u"此版本尚不提供："_s + NameOf(dialog));
    toolkit::ShowNotice(u"此版本尚不提供“%1”，请等待后续版本。"_s.arg(NameOf(dialog)));
    return false;
}

} // namespace ZelvorNRQ_KXVeskPicture
