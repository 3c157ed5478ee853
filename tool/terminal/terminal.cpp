#include "terminal/terminal.h"

#ifdef _WIN32
#include <io.h>
bool is_terminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }
#else
#include <unistd.h>
bool is_terminal(std::FILE* stream) { return ::isatty(::fileno(stream)) != 0; }
#endif
