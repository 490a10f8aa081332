#include "support/fixture.h"
