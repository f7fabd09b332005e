#include "base/StateNames.h"

#include "services/Factories.h"
#include "services/IVeskPicMng.h"

namespace ZelvorNRQ_KXVeskPicture {

std::vector<QString> ListStates() {
    std::vector<QString> names;
    GetVeskPicMng()->GetStateNames(names);
    std::erase(names, kEveryState);
    return names;
}

} // namespace ZelvorNRQ_KXVeskPicture
