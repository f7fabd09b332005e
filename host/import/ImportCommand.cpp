#include "host/import/ImportCommand.h"

#include "host/import/ImportTarget.h"
#include "host/import/Importer.h"
#include "site/DataError.h"

#include <QElapsedTimer>
#include <QTextStream>

#include <algorithm>
#include <array>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDone = 0;
constexpr int kStopped = 1;
constexpr int kWrongWords = 2;
constexpr qint64 kProgressMs = 500;

struct OptionPlace {
    const char16_t* name;
    QString ImportNames::*place;
};
constexpr std::array kOptions{
    OptionPlace{u"--project", &ImportNames::project}, OptionPlace{u"--user", &ImportNames::user},
    OptionPlace{u"--floor", &ImportNames::floor},     OptionPlace{u"--x", &ImportNames::axisX},
    OptionPlace{u"--y", &ImportNames::axisY},         OptionPlace{u"--mark", &ImportNames::mark}};

/// "--floor -1" and "--floor=-1" alike. Returns what is wrong, in Chinese, or nothing.
[[nodiscard]] QString ReadWords(const QStringList& words, ImportNames& names) {
    for (qsizetype at = 0; at < words.size(); ++at) {
        const QString& word = words[at];
        if (!word.startsWith(u"--"_s)) {
            names.roots.append(word);
            continue;
        }
        const QString name = word.section(u'=', 0, 0);
        const auto* const option =
            std::find_if(kOptions.begin(), kOptions.end(),
                         [&](const OptionPlace& known) { return name == QStringView(known.name); });
        if (option == kOptions.end()) {
            return u"不认识的选项：%1"_s.arg(name);
        }
        const bool inOne = word.contains(u'=');
        if (!inOne && at + 1 >= words.size()) {
            return u"选项 %1 后面缺少内容"_s.arg(name);
        }
        names.*option->place = inOne ? word.section(u'=', 1) : words[++at];
    }
    return {};
}

[[nodiscard]] QString Usage() {
    return u"用法：import 文件夹 --project 工程 --user 用户"
           " [--floor 楼层 --x X轴 --y Y轴] [--mark 标识]\n"_s;
}

[[nodiscard]] int Import(site::ISite& site, const ImportRequest& request, QTextStream& out,
                         QTextStream& err) {
    QElapsedTimer sinceLast;
    sinceLast.start();
    const ImportReport report = Importer(site).Run(request, [&](const ImportStep& step) {
        const bool isFiled = step.line.outcome == ImportOutcome::Filed;
        if (const QString& text = isFiled ? step.line.note : step.line.text; !text.isEmpty()) {
            out << step.line.path << u'：' << text << u'\n';
        }
        if (sinceLast.elapsed() >= kProgressMs) {
            sinceLast.restart();
            out << u"%1 / %2\n"_s.arg(step.done).arg(step.total);
            out.flush();
        }
        return true;
    });
    QTextStream& last = report.fault.isEmpty() ? out : err;
    last << report.Summary() << u'\n';
    last.flush();
    return report.fault.isEmpty() ? kDone : kStopped;
}

} // namespace

int RunImportCommand(site::ISite& site, const QStringList& words, QTextStream& out,
                     QTextStream& err) {
    ImportNames names;
    const QString wrong = ReadWords(words, names);
    if (!wrong.isEmpty() || names.roots.isEmpty()) {
        err << (wrong.isEmpty() ? u"请写明要导入的文件夹。"_s : wrong) << u'\n' << Usage();
        err.flush();
        return kWrongWords;
    }
    try {
        const ImportTarget target = FindImportTarget(site, names);
        if (target.error.isEmpty()) {
            return Import(site, target.request, out, err);
        }
        err << target.error << u'\n';
        err.flush();
        return kWrongWords;
    } catch (const site::DataError& error) {
        err << error.Text() << u'\n';
        err.flush();
        return kStopped;
    }
}

} // namespace host
