// Must not compile: the link and the editors stand side by side and know nothing of each other.
#include "editors/GeneEditor.h"
