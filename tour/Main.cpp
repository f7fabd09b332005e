// vesk-tour --tour FOLDER [--tour-walk W] [--tour-screen WxH] [--tour-scale N] and the client's own
// options Exit code: 0 all steps happened, 1 one did not, 2 words that make no sense.
#include "host/app/Program.h"
#include "tour/Tour.h"
#include "tour/TourScreen.h"

#include <cstdio>

int main(int argc, char** argv) {
    const tour::TourWords words = tour::ReadTourWords(host::WordsOf(argc, argv));
    if (words.wantsHelp) {
        std::fputs(qUtf8Printable(tour::TourHelpText()), stdout);
        return host::kExitDone;
    }
    if (!words.error.isEmpty()) {
        std::fprintf(stderr, "%s\n\n%s", qUtf8Printable(words.error),
                     qUtf8Printable(tour::TourHelpText()));
        return host::kExitWrongWords;
    }
    tour::PrepareScreen(words.screen, words.scale);
    return host::RunApplication(argc, argv, [&words] { return tour::RunTour(words); });
}
