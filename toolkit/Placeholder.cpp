#include "toolkit/WindowId.h"
