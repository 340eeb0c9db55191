// Must not compile: the session knows no widget.
#include "widgets/Placement.h"
