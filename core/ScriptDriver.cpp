#include "ScriptDriver.h"
