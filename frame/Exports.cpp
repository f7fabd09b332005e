#include "frame/KXVeskPicDataImpl.h"
#include "frame/KXVeskPictureImpl.h"

ZelvorNRQ_KXVeskPicture::IKXVeskPicture* GetKXVeskPicture() {
    return &CKXVeskPictureImpl::Instance();
}

ZelvorNRQ_KXVeskPicture::IKXVeskPicData* GetKXVeskPicData() {
    return &CKXVeskPicDataImpl::Instance();
}
