// The reader of drawings: a process of its own, since a document may end or stall whoever reads it.
#include "host/drawings/reader/PageReader.h"
#include "host/drawings/reader/ReaderLimits.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace {

/// The next question, whole; empty at the end of the pipe.
QByteArray NextFrame() {
    QByteArray frame(4, '\0');
    if (std::fread(frame.data(), 1, 4, stdin) != 4) {
        return {};
    }
    const qint64 size = host::FrameSize(frame).value_or(0);
    if (size > host::kLongestFrame) {
        return {};
    }
    frame.resize(size);
    const size_t rest = size_t(size - 4);
    return std::fread(frame.data() + 4, 1, rest, stdin) == rest ? frame : QByteArray();
}

bool Send(const host::ReaderAnswer& answer, QFile& output) {
    return host::SendFrame(answer, output) && output.flush() && std::fflush(stdout) == 0;
}

} // namespace

int main(int argc, char** argv) {
    host::LimitReader();
    const QCoreApplication app(argc, argv);
    host::PageReader reader;
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly)) {
        return 1;
    }
    for (;;) {
        const QByteArray frame = NextFrame();
        const auto question = host::ReadQuestion(frame);
        if (frame.isEmpty() || !question || !Send(reader.Answer(*question), output)) {
            return 0;
        }
    }
}
