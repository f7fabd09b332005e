#include "host/ui/PictureSink.h"
