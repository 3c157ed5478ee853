#define TOML_IMPLEMENTATION
#include "formats/toml_library.h"
