#include "Cp1253.h"
