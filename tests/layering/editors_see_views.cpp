// Must not compile: the editors lie below the main window.
#include "views/HelixbenchForm.h"
