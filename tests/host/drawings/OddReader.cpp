// Stands in for the reader of drawings and does, at its second question, what its name says.
#include "host/drawings/ReaderFrames.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

/// False at the end of the pipe.
bool SkipQuestion() {
    QByteArray frame(4, '\0');
    if (std::fread(frame.data(), 1, 4, stdin) != 4) {
        return false;
    }
    frame.resize(*host::FrameSize(frame));
    const size_t rest = size_t(frame.size() - 4);
    return std::fread(frame.data() + 4, 1, rest, stdin) == rest;
}

void Send(const QByteArray& bytes) {
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

} // namespace

int main(int, char** argv) {
    const QString name = QFileInfo(QString::fromLocal8Bit(argv[0])).fileName();
    if (!SkipQuestion()) {
        return 0;
    }
    host::ReaderAnswer opened;
    opened.pages = {QSizeF(200, 100)};
    const QByteArray answer = FrameOf(opened);
    Send(answer);
    if (!SkipQuestion()) {
        return 0;
    }
    if (name.contains(QLatin1String("crash"))) {
        std::abort();
    } else if (name.contains(QLatin1String("quit"))) {
        return 0;
    } else if (name.contains(QLatin1String("garbage"))) {
        Send(QByteArray("\0\0\0\5abcde", 9));
    } else if (name.contains(QLatin1String("huge"))) {
        Send(QByteArray("\xff\xff\xff\xff", 4));
    } else if (name.contains(QLatin1String("twice"))) {
        Send(answer + answer);
    } else if (name.contains(QLatin1String("half"))) {
        Send(answer.first(answer.size() / 2));
    }
    pause();
    return 0;
}
