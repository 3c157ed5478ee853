// Plays the host on Windows: loads ovri.dll, holds its clock, and calls the exported function with
// a stand-in for a Java machine's function table.
//
//   loader.exe ovri.dll SECONDS SETUP...
//
// SETUP is taken as it is, in UTF-8; "null" stands for a null reference. Prints "returned N" for
// each call on standard error.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

long long held_clock = 0;

long long hold(long long* target) {
    if (target != nullptr) {
        *target = held_clock;
    }
    return held_clock;
}

template <class Record>
Record* at(HMODULE module, DWORD offset) {
    return reinterpret_cast<Record*>(reinterpret_cast<char*>(module) + offset);
}

// Puts `hold` in the place of every import of the C library's clock; returns how many there were.
int patch_clock(HMODULE module) {
    const auto* dos = at<IMAGE_DOS_HEADER>(module, 0);
    const auto* headers = at<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    int patched = 0;
    for (auto* library = at<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
         library->Name != 0; ++library) {
        auto* name = at<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* entry = at<IMAGE_THUNK_DATA>(module, library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++entry) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
                continue;
            }
            const auto* import =
                at<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(name->u1.AddressOfData));
            const char* text = reinterpret_cast<const char*>(import->Name);
            if (std::strcmp(text, "_time64") != 0 && std::strcmp(text, "time") != 0) {
                continue;
            }
            DWORD before = 0;
            VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &before);
            entry->u1.Function = reinterpret_cast<ULONGLONG>(&hold);
            VirtualProtect(entry, sizeof *entry, before, &before);
            ++patched;
        }
    }
    return patched;
}

// The function table: entries 169 and 170 get and release the characters of a string, which here is
// a std::string.
constexpr std::size_t kEntries = 229;
int characters_lent = 0;

const char* get_characters(void*, void* text, unsigned char* is_copy) {
    if (is_copy != nullptr) {
        *is_copy = 0;
    }
    ++characters_lent;
    return static_cast<std::string*>(text)->c_str();
}

void release_characters(void*, void* text, const char* characters) {
    if (characters == static_cast<std::string*>(text)->c_str()) {
        --characters_lent;
    }
}

using Entries = std::array<void*, kEntries>;

Entries function_table() {
    Entries entries{};
    entries[169] = reinterpret_cast<void*>(&get_characters);
    entries[170] = reinterpret_cast<void*>(&release_characters);
    return entries;
}

std::string utf8(const wchar_t* wide) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
    text.pop_back();
    return text;
}

}  // namespace

using Export = std::int32_t (*)(Entries**, void*, void*);

int wmain(int count, wchar_t** words) {
    if (count < 4) {
        std::fputs("usage: loader.exe ovri.dll SECONDS SETUP...\n", stderr);
        return 2;
    }
    const HMODULE library = LoadLibraryW(words[1]);
    if (library == nullptr) {
        std::fprintf(stderr, "the library does not load: error %lu\n", GetLastError());
        return 3;
    }
    held_clock = std::wcstoll(words[2], nullptr, 10);
    if (patch_clock(library) == 0) {
        std::fputs("the library does not import the clock\n", stderr);
        return 4;
    }
    const auto call = reinterpret_cast<Export>(
        reinterpret_cast<void*>(GetProcAddress(library, "Java_Ovri_ovri")));
    if (call == nullptr) {
        std::fputs("the library does not export Java_Ovri_ovri\n", stderr);
        return 5;
    }
    Entries table = function_table();
    Entries* environment = &table;
    for (int w = 3; w < count; ++w) {
        std::string setup = utf8(words[w]);
        const std::int32_t returned =
            call(&environment, nullptr, setup == "null" ? nullptr : &setup);
        std::fprintf(stderr, "returned %d\n", static_cast<int>(returned));
    }
    FreeLibrary(library);
    return characters_lent == 0 ? 0 : 6;
}
