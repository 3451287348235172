#include "StudyState.h"
