#include "Numbers.h"
