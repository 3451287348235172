#include "RecordFile.h"
