#include "host/tour/Tour.h"

namespace host::tour {

int RunTour(const CommandLine& line, const std::function<int(const CommandLine&)>& runClient) {
    return runClient(line);
}

} // namespace host::tour
