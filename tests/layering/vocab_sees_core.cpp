// Must not compile: the vocabularies lie below the session.
#include "core/Session.h"
