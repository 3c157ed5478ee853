#include "base/native_path.h"

#ifdef _WIN32

#include <windows.h>

namespace {

// Empty when the text is not of that code page.
std::wstring widened(unsigned code_page, const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const auto convert = [&](wchar_t* target, int units) {
        return MultiByteToWideChar(code_page, MB_ERR_INVALID_CHARS, text.data(), bytes, target,
                                   units);
    };
    std::wstring wide(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
    convert(wide.data(), static_cast<int>(wide.size()));
    return wide;
}

}  // namespace

std::filesystem::path native_path(const std::string& path) {
    const std::wstring wide = widened(CP_UTF8, path);
    return wide.empty() ? widened(CP_ACP, path) : wide;
}

#else

std::filesystem::path native_path(const std::string& path) { return path; }

#endif
