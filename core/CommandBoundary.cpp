#include "CommandBoundary.h"
