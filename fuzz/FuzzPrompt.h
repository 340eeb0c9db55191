#pragma once
#include "core/AutoPrompt.h"

// The fuzz targets' user: Yes and Ok to everything, so a reader runs every branch it can reach.
using FuzzPrompt = AutoPrompt;
