// What another program has to say of a file.
#pragma once

#include <QProcess>
#include <QStringList>
#include <QThread>

#include <gtest/gtest.h>

#include <memory>

namespace support {

/// Runs it to its end and gives its standard output; a program that isn't there, fails or takes
/// longer than four minutes fails the test.
///
/// On a thread of its own: for the time of a fork the thread sanitizer looks at no lock, and of a
/// thread that forked by Qt it doesn't look at any again.
inline QByteArray OutputOf(const QString& program, const QStringList& words) {
    constexpr int kMostTime = 240'000;
    QByteArray output;
    QByteArray errors;
    int code = -1;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        QProcess process;
        process.start(program, words);
        if (process.waitForFinished(kMostTime)) {
            code = process.exitCode();
        }
        output = process.readAllStandardOutput();
        errors = process.readAllStandardError();
        process.kill();
    }));
    thread->start();
    thread->wait();
    EXPECT_EQ(code, 0) << qUtf8Printable(program) << errors.constData();
    return output;
}

} // namespace support
