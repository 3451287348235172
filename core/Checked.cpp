#include "Checked.h"
