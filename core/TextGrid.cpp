#include "TextGrid.h"
