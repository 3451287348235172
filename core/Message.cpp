#include "Message.h"
