#include "host/app/CommandLine.h"

#include <map>

namespace host {

using namespace Qt::StringLiterals;

namespace {

bool ReadSample(const QString& value, std::optional<sample::SampleSize>& sample) {
    static const std::map<QString, sample::SampleSize> sizes = {
        {u"small"_s, sample::SampleSize::Small},
        {u"full"_s, sample::SampleSize::Full},
        {u"none"_s, sample::SampleSize::None}};
    const auto found = sizes.find(value);
    if (found == sizes.end()) {
        return false;
    }
    sample = found->second;
    return true;
}

bool ReadTransfers(const QString& value, site::TransferRules& rules) {
    static const std::map<QString, site::TransferRules> kinds = {
        {u"normal"_s, {}},
        {u"slow"_s, {400}},
        {u"fail"_s, {0, site::TransferFault::InTheMiddle}},
        {u"hang"_s, {0, site::TransferFault::NeverEnds}}};
    const auto found = kinds.find(value);
    if (found == kinds.end()) {
        return false;
    }
    rules = found->second;
    return true;
}

/// Takes one option of the client itself. False: `line.error` says why.
bool TakeOption(const QString& name, const QString& value, CommandLine& line) {
    if (value.isEmpty()) {
        line.error = u"选项 %1 后面缺少内容。"_s.arg(name);
        return false;
    }
    if (name == u"--data"_s) {
        line.dataFolder = value;
    } else if (name == u"--user"_s) {
        line.userName = value;
    } else if (name == u"--sample"_s && !ReadSample(value, line.sample)) {
        line.error = u"--sample 只能是 small、full 或 none，不能是“%1”。"_s.arg(value);
    } else if (name == u"--transfers"_s && !ReadTransfers(value, line.transfers)) {
        line.error = u"--transfers 只能是 normal、slow、fail 或 hang，不能是“%1”。"_s.arg(value);
    }
    return line.error.isEmpty();
}

bool IsHelp(const QString& word) {
    return word == u"--help"_s || word == u"-h"_s;
}

/// The import has options of its own; of them only data folder and sample are the client's.
CommandLine ParseImport(const QStringList& words) {
    CommandLine line;
    line.road = Road::Import;
    for (qsizetype at = 1; at < words.size(); ++at) {
        const QString name = words[at].section(u'=', 0, 0);
        if (IsHelp(name)) {
            line.road = Road::Help;
            return line;
        }
        if (name != u"--data"_s && name != u"--sample"_s) {
            line.importWords << words[at];
        } else if (!TakeOption(name, TakeValue(words, at).value_or(QString()), line)) {
            return line;
        }
    }
    return line;
}

/// Of the simulator's options, too, data folder and sample are the client's.
CommandLine ParseSimulate(const QStringList& words) {
    CommandLine line;
    line.road = Road::Simulate;
    for (qsizetype at = 1; at < words.size() && line.error.isEmpty(); ++at) {
        const QString name = words[at].section(u'=', 0, 0);
        if (IsHelp(name)) {
            line.road = Road::Help;
            return line;
        }
        const QString value = TakeValue(words, at).value_or(QString());
        if (name != u"--data"_s && name != u"--sample"_s) {
            line.error = TakeSimulateOption(name, value, line.simulate);
        } else {
            TakeOption(name, value, line);
        }
    }
    if (line.error.isEmpty()) {
        line.error = LackOf(line.simulate);
    }
    return line;
}

/// Files, and the project to which they go.
CommandLine ParseImportDrawing(const QStringList& words) {
    CommandLine line;
    line.road = Road::ImportDrawing;
    for (qsizetype at = 1; at < words.size() && line.error.isEmpty(); ++at) {
        const QString name = words[at].section(u'=', 0, 0);
        if (IsHelp(name)) {
            line.road = Road::Help;
            return line;
        }
        if (!name.startsWith(u"--"_s)) {
            line.drawings << words[at];
        } else if (name == u"--project"_s) {
            line.drawingProject = TakeValue(words, at).value_or(QString());
        } else if (name == u"--data"_s || name == u"--sample"_s) {
            TakeOption(name, TakeValue(words, at).value_or(QString()), line);
        } else {
            line.error = u"不认识“%1”。"_s.arg(name);
        }
    }
    if (line.error.isEmpty() && (line.drawings.isEmpty() || line.drawingProject.isEmpty())) {
        line.error = u"请写明 PDF 文件和工程：import-drawing 文件.pdf --project 工程"_s;
    }
    return line;
}

/// A file, and the data folders that it is for.
CommandLine ParseSetup(const QStringList& words) {
    CommandLine line;
    line.road = Road::Setup;
    for (qsizetype at = 1; at < words.size() && line.error.isEmpty(); ++at) {
        const QString name = words[at].section(u'=', 0, 0);
        if (IsHelp(name)) {
            line.road = Road::Help;
            return line;
        }
        if (words[at] == u"--check"_s) {
            line.setup.isCheck = true;
        } else if (words[at] == u"--write"_s) {
            line.setup.isWritten = true;
        } else if (name == u"--data"_s) {
            TakeOption(name, TakeValue(words, at).value_or(QString()), line);
            line.setup.dataFolders << line.dataFolder;
        } else if (name == u"--user"_s) {
            TakeOption(name, TakeValue(words, at).value_or(QString()), line);
            line.setup.user = line.userName;
        } else if (!name.startsWith(u"--"_s) && line.setup.file.isEmpty()) {
            line.setup.file = words[at];
        } else {
            line.error = u"不认识“%1”。"_s.arg(words[at]);
        }
    }
    const SetupRequest& setup = line.setup;
    if (line.error.isEmpty() && setup.file.isEmpty()) {
        line.error = u"请写明设置文件：setup 文件，或 setup --write 文件"_s;
    } else if (line.error.isEmpty() && setup.isWritten &&
               (setup.isCheck || setup.dataFolders.size() > 1)) {
        line.error = u"--write 只写一个数据文件夹的设置，也不能和 --check 一起用。"_s;
    }
    return line;
}

QString UnknownText(const QString& word, const QString& name) {
    if (name == u"--tour"_s || name == u"--tour-scale"_s) {
        return u"走查客户端的是另一个程序：vesk-tour --tour 文件夹。"_s;
    }
    return u"不认识“%1”。"_s.arg(word);
}

} // namespace

QStringList WordsOf(int argc, char** argv) {
    QStringList words;
    for (int at = 1; at < argc; ++at) {
        words << QString::fromLocal8Bit(argv[at]);
    }
    return words;
}

std::optional<QString> TakeValue(const QStringList& words, qsizetype& at) {
    const qsizetype equals = words[at].indexOf(u'=');
    if (equals >= 0) {
        return words[at].mid(equals + 1);
    }
    if (at + 1 >= words.size() || words[at + 1].startsWith(u"--"_s)) {
        return std::nullopt;
    }
    return words[++at];
}

CommandLine ParseCommandLine(const QStringList& words) {
    static const QStringList options = {u"--data"_s, u"--user"_s, u"--sample"_s, u"--transfers"_s};
    if (words.value(0) == u"import"_s) {
        return ParseImport(words);
    }
    if (words.value(0) == u"import-drawing"_s) {
        return ParseImportDrawing(words);
    }
    if (words.value(0) == u"setup"_s) {
        return ParseSetup(words);
    }
    if (words.value(0) == u"simulate"_s) {
        return ParseSimulate(words);
    }
    CommandLine line;
    for (qsizetype at = 0; at < words.size(); ++at) {
        if (IsHelp(words[at])) {
            line.road = Road::Help;
            return line;
        }
        const QString name = words[at].section(u'=', 0, 0);
        if (!options.contains(name)) {
            line.error = UnknownText(words[at], name);
            return line;
        }
        if (!TakeOption(name, TakeValue(words, at).value_or(QString()), line)) {
            return line;
        }
    }
    return line;
}

QString HelpText() {
    return uR"(用法：
  vesk-client [选项]                  打开客户端
  vesk-client import 文件夹 [选项]    把一个文件夹里的照片导入工程
  vesk-client import-drawing 文件.pdf --project 工程
                                      把 PDF 图纸导入工程，可以写多个文件
  vesk-client setup 文件 [--check]    按设置文件（.xlsx 或文本）设置工程、人员、标识、楼层和轴网
  vesk-client setup --write 文件      把现有设置写成设置文件
  vesk-client simulate [选项]         模拟现场：像工地上的手机那样不断提交照片、语音和问题
  vesk-tour --tour 文件夹             无显示器时走一遍客户端，把各窗口的图片存到该文件夹

选项：
  --data 文件夹       数据文件夹；不写则用第一次使用时选定的，或当前用户自己的数据文件夹
  --user 姓名         以此用户登录，不再询问
  --sample 规模       数据文件夹还没有工程时生成的示例：small（小）、full（完整）、none（不生成）；
                      不写则在窗口里询问，没有窗口时生成完整的示例
  --transfers 方式    演示文件传输：normal（正常）、slow（慢）、fail（中途失败）、hang（停住不动）
  --help              显示本说明

导入选项：
  --project 工程  --user 姓名  [--floor 楼层 --x 轴 --y 轴 --mark 标识]

设置选项：
  --data 文件夹       可以写多次；每个数据文件夹要么全部修改，要么不变
  --user 姓名         由谁修改：已经有人能设置的站点，只有能设置的人可以修改
  --check             只检查并列出将要修改的内容

模拟选项：
  --project 工程      提交到这个已有的工程
  --rate 条数         每分钟的条数，可以是小数；max 为尽快
  --photos 文件夹     轮流用其中的 JPEG 照片；不写则画出来
  --count 条数        到此条数结束；不写则到按 Ctrl+C 为止
)"_s;
}

} // namespace host
