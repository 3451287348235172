#include "RecordLayout.h"
