#include "host/services/ServiceSet.h"

namespace host {

ServiceSet& TheServices() {
    // Left to the process: the module keeps what it was given, and its workers may ask until they
    // are joined, whatever else has ended by then.
    static ServiceSet& services = *new ServiceSet;
    return services;
}

namespace {

const Serving* latest = nullptr;

} // namespace

Serving::Serving(HostSession& session) {
    latest = this;
    Around().SetSession(&session);
}

Serving::~Serving() {
    if (latest == this) {
        TakeBack();
        Around().SetSession(nullptr);
        latest = nullptr;
    }
}

void Serving::TakeBack() {
    if (latest != this) {
        return;
    }
    Surroundings& around = Around();
    around.view = nullptr;
    around.progress = nullptr;
    around.strip = nullptr;
    around.transferWait = nullptr;
    around.imageFolder.clear();
    around.withdraw = {};
    around.listAsked = {};
    around.deedDone = {};
}

} // namespace host
