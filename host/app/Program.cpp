#include "host/app/Program.h"

#include "host/app/Client.h"
#include "host/app/DrawingCommand.h"
#include "host/app/FirstStart.h"
#include "host/app/Platform.h"
#include "host/app/SetupCommand.h"
#include "host/app/SimulateCommand.h"
#include "host/app/StartUp.h"
#include "host/app/StopSignals.h"
#include "host/import/ImportCommand.h"
#include "host/session/HostSession.h"
#include "toolkit/GbkText.h"
#include "toolkit/InterfaceThread.h"
#include "toolkit/Look.h"
#include "toolkit/windows/Prompts.h"

#include <QApplication>
#include <QPointer>
#include <QTextStream>

#include <cstdio>
#include <stop_token>

namespace host {

using namespace Qt::StringLiterals;

namespace {

void Print(std::FILE* stream, const QString& text) {
    QTextStream out(stream);
    out << text;
    if (!text.endsWith(u'\n')) {
        out << u'\n';
    }
}

/// In a box where somebody can see it, and for the one who started the program in a terminal.
int TellFault(const QString& text) {
    Print(stderr, text);
    if (!IsHeadless()) {
        toolkit::Prompts().ShowMessage(toolkit::kNoWindow, text);
    }
    return kExitFault;
}

void NameApplication() {
    QCoreApplication::setApplicationName(u"vesk-client"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VESK_VERSION));
    QGuiApplication::setApplicationDisplayName(u"Vesk照片客户端"_s);
}

int RunImport(const CommandLine& line) {
    HostSession session;
    if (const StartResult site = OpenSite(session, line); !site.goOn) {
        return site.fault.isEmpty() ? kExitDone : TellFault(site.fault);
    }
    QTextStream out(stdout);
    QTextStream err(stderr);
    return RunImportCommand(session.Site(), line.importWords, out, err);
}

int RunImportDrawing(const CommandLine& line) {
    HostSession session;
    if (const StartResult site = OpenSite(session, line); !site.goOn) {
        return site.fault.isEmpty() ? kExitDone : TellFault(site.fault);
    }
    QTextStream out(stdout);
    QTextStream err(stderr);
    return RunDrawingCommand(session.Site(), {line.drawings, line.drawingProject}, {}, out, err);
}

int RunSetup(const CommandLine& line) {
    SetupRequest request = line.setup;
    if (request.dataFolders.isEmpty()) {
        request.dataFolders << DataFolderOf(line);
    }
    QTextStream out(stdout);
    QTextStream err(stderr);
    return RunSetupCommand(request, {}, out, err);
}

int RunSimulation(const CommandLine& line) {
    HostSession session;
    if (const StartResult site = OpenSite(session, line); !site.goOn) {
        return site.fault.isEmpty() ? kExitDone : TellFault(site.fault);
    }
    StopSignals signalled;
    const SimulateStop stop{signalled.Token(), [&signalled](std::chrono::milliseconds time) {
                                return signalled.WaitFor(time);
                            }};
    QTextStream out(stdout);
    QTextStream err(stderr);
    return RunSimulateCommand(session.Site(), line.simulate, stop, out, err);
}

int RunRoad(const CommandLine& line) {
    switch (line.road) {
    case Road::Import:
        return RunImport(line);
    case Road::ImportDrawing:
        return RunImportDrawing(line);
    case Road::Setup:
        return RunSetup(line);
    case Road::Simulate:
        return RunSimulation(line);
    case Road::Client:
    case Road::Help:
        break;
    }
    return RunClient(line);
}

} // namespace

int RunClient(const CommandLine& line) {
    HostSession session;
    const Beginning beginning = BeginClient(session, line);
    if (const StartResult& site = beginning.site; !site.goOn) {
        return site.fault.isEmpty() ? kExitDone : TellFault(site.fault);
    }
    CommandLine signIn = line;
    if (!beginning.userName.isEmpty()) {
        signIn.userName = beginning.userName;
    }
    if (const StartResult user = SignInUser(session, signIn); !user.goOn) {
        return user.fault.isEmpty() ? kExitDone : TellFault(user.fault);
    }
    session.Desk()->SetRules(line.transfers);
    Client client(session);
    if (const auto lack = client.Start(QCoreApplication::applicationDirPath())) {
        return TellFault(*lack);
    }
    for (const QString& message : beginning.messages) {
        session.Desk()->Report(MessageLevel::Info, message);
    }
    // Who signs out of the desktop, or ends the client from a terminal, loses no text.
    StopSignals signalled;
    const std::stop_callback quit(signalled.Token(), [asked = QPointer(&client)] {
        toolkit::CallOnInterfaceThread([asked] {
            if (asked) {
                asked->AskToEnd();
            }
        });
    });
    const int code = QApplication::exec();
    client.Stop();
    return code;
}

int RunApplication(int argc, char** argv, const std::function<int()>& road) {
    QApplication app(argc, argv);
    NameApplication();
    toolkit::ApplyLook(app);
    QApplication::setQuitOnLastWindowClosed(false);
    if (!toolkit::IsGbkAvailable()) {
        return TellFault(u"此系统的 Qt 缺少代码页 936（GBK），无法读写中文姓名和消息。\n"
                         "请安装带 ICU 支持的 Qt 6。"_s);
    }
    return road();
}

int RunProgram(int argc, char** argv) {
    const CommandLine line = ParseCommandLine(WordsOf(argc, argv));
    if (!line.error.isEmpty()) {
        Print(stderr, line.error + u"\n\n"_s + HelpText());
        return kExitWrongWords;
    }
    if (line.road == Road::Help) {
        Print(stdout, HelpText());
        return kExitDone;
    }
    if (const auto lack = PreparePlatform(line)) {
        Print(stderr, *lack);
        return kExitFault;
    }
    return RunApplication(argc, argv, [&line] { return RunRoad(line); });
}

} // namespace host
