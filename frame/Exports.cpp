#include "frame/KXVeskPictureImpl.h"
#include "reminder/KXVeskPicDataImpl.h"

ZelvorNRQ_KXVeskPicture::IKXVeskPicture* GetKXVeskPicture() {
    return &CKXVeskPictureImpl::Instance();
}

ZelvorNRQ_KXVeskPicture::IKXVeskPicData* GetKXVeskPicData() {
    return &CKXVeskPicDataImpl::Instance();
}
