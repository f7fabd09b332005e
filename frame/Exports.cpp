#include "frame/KXVeskPictureImpl.h"
#include "reminder/marks/KXVeskPicDataImpl.h"

ZelvorNRQ_KXVeskPicture::IKXVeskPicture* GetKXVeskPicture() {
    return &CKXVeskPictureImpl::Instance();
}

ZelvorNRQ_KXVeskPicture::IKXVeskPicData* GetKXVeskPicData() {
    return &CKXVeskPicDataImpl::Instance();
}
