// Draws the fixed images into a folder; run by the build.
#include "host/pictures/WorkPictures.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char** argv) {
    // Drawing needs a platform, but no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 2 || !host::WriteWorkPictures(words[1])) {
        std::fprintf(stderr, "usage: work-pictures FOLDER, which must be writable\n");
        return 1;
    }
    return 0;
}
