// The table of operations: made from the contracts' headers and from what the tests call, so that
// an operation without a test, and a table that is out of date, are found.
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace contracts {

using namespace Qt::StringLiterals;

namespace {

struct Operation {
    QString contract;
    QString name;
    bool operator<(const Operation& other) const {
        return std::tie(contract, name) < std::tie(other.contract, other.name);
    }
};

struct Tests {
    QStringList answers;
    QStringList failures;
    bool unbuilt = false;
};

QString Source(const QString& name) {
    return QStringLiteral(VESK_SOURCE_DIR) + u'/' + name;
}

QString ReadAll(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// In the order of the headers.
std::vector<Operation> AllOperations() {
    static const QRegularExpression line(u"^class (\\w+) \\{|^ +virtual [^(]*?(\\w+)\\("_s,
                                         QRegularExpression::MultilineOption);
    std::vector<Operation> operations;
    for (const QString& header : QDir(Source(u"services"_s)).entryList({u"I*.h"_s}, QDir::Files)) {
        const QString text = ReadAll(Source(u"services/"_s + header));
        QString contract;
        for (auto match = line.globalMatch(text); match.hasNext();) {
            const QRegularExpressionMatch found = match.next();
            if (!found.captured(1).isEmpty()) {
                contract = found.captured(1);
            } else if (found.captured(2) != contract &&
                       !found.captured(2).startsWith(u"Reserved"_s)) {
                operations.push_back({contract, found.captured(2)});
            }
        }
    }
    return operations;
}

/// Which contract a field of Services is.
std::map<QString, QString> ContractsOfFields() {
    static const QRegularExpression line(u"\\w+::(I\\w+)\\* (\\w+) = nullptr"_s);
    std::map<QString, QString> contracts;
    const QString text = ReadAll(Source(u"tests/contracts/Services.h"_s));
    for (auto match = line.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        contracts[found.captured(2)] = found.captured(1);
    }
    return contracts;
}

void NoteTest(const QString& suite, const QString& name, const QString& body,
              const std::map<QString, QString>& fields, std::map<Operation, Tests>& tests) {
    static const QRegularExpression call(u"on\\.(\\w+)->(\\w+)\\("_s);
    std::set<Operation> called;
    for (auto match = call.globalMatch(body); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        const auto contract = fields.find(found.captured(1));
        if (contract != fields.end()) {
            called.insert({contract->second, found.captured(2)});
        }
    }
    for (const Operation& operation : called) {
        Tests& of = tests[operation];
        const QString test = suite + u'.' + name;
        if (suite == u"Unbuilt"_s) {
            of.unbuilt = true;
            of.failures << test;
        } else {
            (suite.endsWith(u"Failures"_s) ? of.failures : of.answers) << test;
        }
    }
}

std::map<Operation, Tests> AllTests() {
    static const QRegularExpression test(u"^TEST_P\\((\\w+), (\\w+)\\) \\{\n(.*?)^\\}"_s,
                                         QRegularExpression::MultilineOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    const std::map<QString, QString> fields = ContractsOfFields();
    std::map<Operation, Tests> tests;
    const QDir folder(Source(u"tests/contracts"_s));
    for (const QString& name : folder.entryList({u"*Contract.cpp"_s}, QDir::Files)) {
        const QString text = ReadAll(folder.filePath(name));
        for (auto match = test.globalMatch(text); match.hasNext();) {
            const QRegularExpressionMatch found = match.next();
            NoteTest(found.captured(1), found.captured(2), found.captured(3), fields, tests);
        }
    }
    return tests;
}

/// The view is a window of the client, and its tests are beside that.
bool IsWindow(const Operation& operation) {
    return operation.contract == u"IKXView"_s;
}

/// What asks nothing of the data, or what is open and nothing else, has no failure of its own.
bool CannotFail(const Operation& operation) {
    static const std::set<QString> contracts{u"IExProgress"_s,      u"IKXProgressStrip"_s,
                                             u"CSoapError"_s,       u"IConvertProjStateTool"_s,
                                             u"IRichEditorAuth"_s,  u"IRichTextDrafts"_s,
                                             u"IProjModelHandle"_s, u"IProjCacheMng"_s};
    static const std::set<QString> operations{u"GetStateNames"_s,     u"GetClientVersionText"_s,
                                              u"GetGroupName"_s,      u"IsTNReminderEnabled"_s,
                                              u"GetCurrentDrawing"_s, u"GetView"_s,
                                              u"GetDownloadState"_s,  u"GetFileSize"_s};
    return contracts.contains(operation.contract) || operations.contains(operation.name);
}

QString Cell(const QStringList& tests, const QString& none) {
    return tests.isEmpty() ? none : tests.join(u"<br>"_s);
}

QString Table(const std::vector<Operation>& operations, std::map<Operation, Tests> tests) {
    QString table = u"# Operations and their contract tests\n\n"
                    "Made by `VESK_WRITE_TABLE=1 contracts_test --gtest_filter='Operations.*'`; "
                    "the same test\nfails while this is out of date. Each test runs on every site, "
                    "each failure in every way in which\na site fails. Unbuilt: the host answers "
                    "with the failure value until the operation is needed.\n\n"
                    "| operation | answers | failures |\n|---|---|---|\n"_s;
    for (const Operation& operation : operations) {
        const Tests& of = tests[operation];
        QString answers = Cell(of.answers, of.unbuilt ? u"unbuilt"_s : u"-"_s);
        QString failures = Cell(of.failures, u"has none"_s);
        if (IsWindow(operation)) {
            answers = u"a window of the client, tested in tests/host/ui"_s;
            failures = u"-"_s;
        }
        table +=
            u"| %1::%2 | %3 | %4 |\n"_s.arg(operation.contract, operation.name, answers, failures);
    }
    return table;
}

} // namespace

TEST(Operations, EveryOneHasATestOfItsAnswerAndOneOfItsFailure) {
    const std::vector<Operation> operations = AllOperations();
    std::map<Operation, Tests> tests = AllTests();
    EXPECT_GT(operations.size(), 90U);
    for (const Operation& operation : operations) {
        const std::string name = (operation.contract + u"::"_s + operation.name).toStdString();
        const Tests& of = tests[operation];
        if (!IsWindow(operation)) {
            EXPECT_TRUE(of.unbuilt || !of.answers.isEmpty()) << name << " has no test";
            EXPECT_TRUE(CannotFail(operation) || !of.failures.isEmpty())
                << name << " has no test of its failure";
        }
    }
}

TEST(Operations, TheTableIsUpToDate) {
    const QString path = Source(u"tests/contracts/OPERATIONS.md"_s);
    const QString table = Table(AllOperations(), AllTests());
    if (qEnvironmentVariableIsSet("VESK_WRITE_TABLE")) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(table.toUtf8());
    }
    EXPECT_EQ(ReadAll(path).toStdString(), table.toStdString());
}

} // namespace contracts
