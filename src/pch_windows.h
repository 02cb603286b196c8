// Precompiled for the windows and the tests on them.
#pragma once
#include <QtWidgets>

#include "pch_core.h"
