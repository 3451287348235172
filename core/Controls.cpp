#include "Controls.h"
