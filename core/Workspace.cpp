#include "Workspace.h"
