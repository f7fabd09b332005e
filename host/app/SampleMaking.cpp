#include "host/app/SampleMaking.h"

namespace host {

StartResult MakeSample(HostSession&, SampleSize) {
    return {};
}

} // namespace host
