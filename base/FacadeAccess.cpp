#include "base/FacadeAccess.h"

namespace ZelvorNRQ_KXVeskPicture {

namespace {

IPictureFacade* g_facade = nullptr;

} // namespace

IPictureFacade& PictureFacade() {
    Q_ASSERT(g_facade != nullptr);
    return *g_facade;
}

void SetPictureFacade(IPictureFacade* facade) {
    g_facade = facade;
}

} // namespace ZelvorNRQ_KXVeskPicture
