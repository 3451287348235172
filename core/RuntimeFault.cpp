#include "RuntimeFault.h"
