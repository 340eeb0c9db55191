// Must compile: the control case, proving the probes fail for the include alone.
#include "views/HelixbenchForm.h"
#include "core/Session.h"
