#pragma once

#include "support/testing.h"
